#pragma once

#include "bench/set_shapes.h"

// What the kernels are to reach: how many times as long a rival takes. Small domains are the common
// ones in a search, so that nothing may be slower there than the plainest way.
namespace kiv::bench {

// How many times as long as the module the rival is to take.
struct Goal {
  const char* rival;
  double ratio;
};

Goal SumGoal(const Shape& shape);
Goal ProductGoal(const Shape& shape);
Goal QuotientGoal(const Shape& shape);
Goal RemainderGoal(const Shape& shape);
Goal RemainderInverseGoal(const Shape& shape);
Goal IntersectionGoal(const Shape& shape);
Goal UnionGoal(const Shape& shape);
Goal MembershipGoal(const Shape& shape);
Goal BoundCutGoal(const Shape& shape);
Goal NotSlowerGoal(const Shape& shape);

}  // namespace kiv::bench
