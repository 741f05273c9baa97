#pragma once

#include "bench/set_shapes.h"

// What the kernels are to reach: how many times as long a rival takes. Small domains are the common
// ones in a search, so that nothing may be slower there than the plainest way.
namespace kiv::bench {

double SumGoal(const Shape& shape);
double ProductGoal(const Shape& shape);
double QuotientGoal(const Shape& shape);
double RemainderGoal(const Shape& shape);
double RemainderInverseGoal(const Shape& shape);
double IntersectionGoal(const Shape& shape);
double UnionGoal(const Shape& shape);
double MembershipGoal(const Shape& shape);
double BoundCutGoal(const Shape& shape);
double NotSlowerGoal(const Shape& shape);

}  // namespace kiv::bench
