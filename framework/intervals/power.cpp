#include "framework/intervals/power.h"

#include <algorithm>
#include <cstdint>

#include "framework/intervals/hull.h"

namespace kiv {

namespace {

constexpr SubdefInt kNone(SubIntBase::kMax, SubIntBase::kMin);

// The ends as integers like all others.
Hull HullOf(const SubdefInt& x) { return {x.GetLower().GetValue(), x.GetUpper().GetValue()}; }

SubdefInt IntervalOf(const Hull& x) {
  return x.IsEmpty() ? kNone : SubdefInt(SubIntBase::Clamp(x.lower), SubIntBase::Clamp(x.upper));
}

// The powers that are clamped into a result.
Hull PowersOf(const SubdefInt& result) {
  const Hull hull = HullOf(result);
  return {hull.lower == SubIntBase::kMin ? -Hull::kUnbounded : hull.lower,
          hull.upper == SubIntBase::kMax ? Hull::kUnbounded : hull.upper};
}

}  // namespace

PowerValue PowerOf(SubIntBase base, SubIntBase exponent) {
  if (base.GetValue() < 0 && !exponent.IsFinite()) return {PowerValue::kUnknown, 0};
  const Hull power = Power(HullOf({base, base}), HullOf({exponent, exponent}));
  if (power.IsEmpty()) return {PowerValue::kNone, 0};
  return {PowerValue::kValue, SubIntBase::Clamp(power.lower)};
}

// For an infinite exponent a base from 0 has the power that a large finite one gives it; that of a
// negative base is not known.
SubdefInt BasesOf(const SubdefInt& result, const SubdefInt& bases, const SubdefInt& exponents) {
  const Hull hull = HullOf(bases);
  const Hull known = Base(hull, HullOf(exponents), PowersOf(result));
  const bool is_finite = exponents.GetLower().IsFinite() && exponents.GetUpper().IsFinite();
  const Hull unknown{hull.lower, std::min<std::int64_t>(hull.upper, -1)};
  return IntervalOf(is_finite ? known : Union(known, unknown));
}

SubdefInt ExponentsOf(const SubdefInt& result, const SubdefInt& bases, const SubdefInt& exponents) {
  Hull solutions = Exponent(HullOf(bases), HullOf(exponents), PowersOf(result));
  for (const SubIntBase end : {exponents.GetLower(), exponents.GetUpper()}) {
    if (end.IsFinite() || BasesOf(result, bases, {end, end}).IsEmpty()) continue;
    solutions = Union(solutions, HullOf({end, end}));
  }
  return IntervalOf(solutions);
}

}  // namespace kiv
