#include "bench/kernel_goals.h"

#include <string_view>

namespace kiv::bench {
namespace {

bool Is(const Shape& shape, std::string_view density) { return shape.density.name == density; }

}  // namespace

Goal SumGoal(const Shape& shape) {
  if (Is(shape, "interval")) {
    return {"literal", shape.size >= 30 ? 150.0 : shape.size >= 10 ? 15.0 : 1.0};
  }
  if (Is(shape, "dense")) {
    return {"literal", shape.size >= 100 ? 350.0 : shape.size >= 30 ? 75.0 : 1.0};
  }
  return {"literal", shape.size >= 100 ? 25.0 : shape.size >= 30 ? 18.0 : 1.0};
}

Goal ProductGoal(const Shape& shape) {
  return {"literal", shape.size >= 100  ? 20.0
                     : shape.size >= 30 ? 12.0
                     : shape.size >= 10 ? 7.0
                                        : 1.0};
}

Goal QuotientGoal(const Shape& shape) {
  if (shape.size >= 300 && !Is(shape, "sparse")) return {"literal", 100.0};
  return {"literal", shape.size >= 100 ? 20.0 : shape.size >= 30 ? 6.0 : 1.0};
}

Goal RemainderGoal(const Shape& shape) {
  return {"literal", shape.size >= 100 ? 40.0 : shape.size >= 30 ? 9.0 : 1.0};
}

Goal RemainderInverseGoal(const Shape& shape) {
  if (shape.size < 100) return {"literal", 0.9};
  return {"literal", Is(shape, "sparse") ? 9.0 : 4.0};
}

// The literal version of a merge is quadratic, so from the size where that shows a merge of the
// standard library is the rival.

Goal IntersectionGoal(const Shape& shape) {
  return shape.size >= 100 ? Goal{"merge", 4.0} : Goal{"literal", 1.0};
}

Goal UnionGoal(const Shape& shape) {
  return shape.size >= 100 ? Goal{"merge", 2.0} : Goal{"literal", 1.0};
}

Goal MembershipGoal(const Shape& shape) { return {"bisection", shape.size >= 100 ? 3.0 : 0.9}; }

Goal BoundCutGoal(const Shape& shape) { return {"literal", shape.size >= 300 ? 5.0 : 1.0}; }

Goal NotSlowerGoal(const Shape&) { return {"literal", 1.0}; }

}  // namespace kiv::bench
