#include "bench/kernel_goals.h"

#include <string_view>

namespace kiv::bench {
namespace {

bool Is(const Shape& shape, std::string_view density) { return shape.density.name == density; }

}  // namespace

double SumGoal(const Shape& shape) {
  if (Is(shape, "interval")) return shape.size >= 30 ? 150 : shape.size >= 10 ? 15 : 1;
  if (Is(shape, "dense")) return shape.size >= 100 ? 350 : shape.size >= 30 ? 75 : 1;
  return shape.size >= 100 ? 25 : shape.size >= 30 ? 18 : 1;
}

double ProductGoal(const Shape& shape) {
  return shape.size >= 100 ? 20 : shape.size >= 30 ? 12 : shape.size >= 10 ? 7 : 1;
}

double QuotientGoal(const Shape& shape) {
  if (shape.size >= 300 && !Is(shape, "sparse")) return 100;
  return shape.size >= 100 ? 20 : shape.size >= 30 ? 6 : 1;
}

double RemainderGoal(const Shape& shape) {
  return shape.size >= 100 ? 40 : shape.size >= 30 ? 9 : 1;
}

double RemainderInverseGoal(const Shape& shape) {
  if (shape.size < 100) return 0.9;
  return Is(shape, "sparse") ? 9 : 4;
}

double IntersectionGoal(const Shape& shape) { return shape.size >= 100 ? 4 : 0.9; }

double UnionGoal(const Shape& shape) { return shape.size >= 100 ? 2 : 0.9; }

double MembershipGoal(const Shape& shape) { return shape.size >= 100 ? 3 : 0.9; }

double BoundCutGoal(const Shape& shape) { return shape.size >= 300 ? 5 : 1; }

double NotSlowerGoal(const Shape&) { return 1; }

}  // namespace kiv::bench
