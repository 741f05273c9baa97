#include "framework/intervals/hull.h"

#include <algorithm>

#include "framework/intervals/bound_arithmetic.h"

namespace kiv {

namespace {

using bound_arithmetic::kInfinite;
using bound_arithmetic::Operand;
using bound_arithmetic::Plus;
using bound_arithmetic::WeakSide;
using bound_arithmetic::WithSign;

std::int64_t SignOf(std::int64_t value) { return (value > 0) - (value < 0); }

}  // namespace

Hull Sum(const Hull& x, const Hull& y) {
  const Hull a = Operand(x);
  const Hull b = Operand(y);
  if (a.IsEmpty() || b.IsEmpty()) return kEmptyHull;
  return {Plus(a.lower, b.lower), Plus(a.upper, b.upper)};
}

Hull Difference(const Hull& x, const Hull& y) { return Sum(x, Negation(y)); }

Hull Negation(const Hull& x) { return {-x.upper, -x.lower}; }

Hull Minimum(const Hull& x, const Hull& y) {
  if (x.IsEmpty() || y.IsEmpty()) return kEmptyHull;
  return {std::min(x.lower, y.lower), std::min(x.upper, y.upper)};
}

Hull Maximum(const Hull& x, const Hull& y) {
  if (x.IsEmpty() || y.IsEmpty()) return kEmptyHull;
  return {std::max(x.lower, y.lower), std::max(x.upper, y.upper)};
}

Hull Absolute(const Hull& x) { return Union(WeakSide(x, 1), WeakSide(x, -1)); }

Hull Sign(const Hull& x) {
  return x.IsEmpty() ? kEmptyHull : Hull{SignOf(x.lower), SignOf(x.upper)};
}

// The value of x is z itself, or lies beyond a value that z and y share.
Hull MinimumOperand(const Hull& x, const Hull& y, const Hull& z) {
  if (x.IsEmpty() || y.IsEmpty() || z.IsEmpty()) return kEmptyHull;
  const Hull least = Intersection(x, {z.lower, std::min(z.upper, y.upper)});
  const Hull shared = Intersection(y, z);
  if (shared.IsEmpty()) return least;
  return Union(least, {std::max(x.lower, shared.lower), x.upper});
}

Hull MaximumOperand(const Hull& x, const Hull& y, const Hull& z) {
  return Negation(MinimumOperand(Negation(x), Negation(y), Negation(z)));
}

Hull AbsoluteOperand(const Hull& x, const Hull& z) {
  const Hull magnitudes = WeakSide(z, 1);
  return Union(Intersection(x, magnitudes), Intersection(x, WithSign(magnitudes, -1)));
}

Hull SignOperand(const Hull& x, const Hull& s) {
  const std::int64_t lower = s.lower > 0 ? 1 : s.lower == 0 ? 0 : -kInfinite;
  const std::int64_t upper = s.upper < 0 ? -1 : s.upper == 0 ? 0 : kInfinite;
  const bool has_sign = !s.IsEmpty() && s.lower <= 1 && s.upper >= -1;
  return has_sign ? Intersection(x, {lower, upper}) : kEmptyHull;
}

}  // namespace kiv
