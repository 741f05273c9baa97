// z = x ^ y. Unlike in the other operations the infinities are operands of a meaning of their own
// here, which PowerOf and its inverses know.

#include "framework/intervals/power.h"

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

namespace {

SubdefInt IntervalOf(const KivOmbiInteger& x) {
  return SubdefInt(x.GetLowerBound(), x.GetUpperBound());
}

// What a target may hold, as a hull of which no end is lost.
kiv::Hull HullOf(const SubdefInt& x) {
  if (x.IsEmpty()) return kiv::kEmptyHull;
  return {x.GetLower().GetValue(), x.GetUpper().GetValue()};
}

}  // namespace

int KivOmbBoundedInteger::CalcPowerValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::Forward(*this, x, y, [this](const KivOmbiInteger& a, const KivOmbiInteger& b) {
    if (a.IsUndefined() != 0 || b.IsUndefined() != 0) return 0;
    if (a.GetCardinality() != 1 || b.GetCardinality() != 1) {
      return NarrowTo(kiv::Power(kiv::HullOf(a), kiv::HullOf(b)));
    }
    const kiv::PowerValue power = kiv::PowerOf(a.GetLowerBound(), b.GetLowerBound());
    switch (power.state) {
      case kiv::PowerValue::kNone:
        return NarrowTo(kiv::kEmptyHull);
      case kiv::PowerValue::kValue:
        return Narrow(power.value.GetValue(), power.value.GetValue());
      case kiv::PowerValue::kUnknown:
        break;
    }
    return 0;
  });
}

int KivOmbBoundedInteger::CalcFirstInversePowerValue(KivOmbiNumber& x,
                                                     const KivOmbiNumber& y) const {
  return kiv::Inverse(
      *this, x, y, [this](const KivOmbiInteger& bases, const KivOmbiInteger& exponents) {
        const SubdefInt before = IntervalOf(bases);
        if (IsUndefined() != 0 || exponents.IsUndefined() != 0) return HullOf(before);
        return HullOf(kiv::BasesOf(IntervalOf(*this), before, IntervalOf(exponents)));
      });
}

int KivOmbBoundedInteger::CalcSecondInversePowerValue(const KivOmbiNumber& x,
                                                      KivOmbiNumber& y) const {
  return kiv::Inverse(
      *this, y, x, [this](const KivOmbiInteger& exponents, const KivOmbiInteger& bases) {
        const SubdefInt before = IntervalOf(exponents);
        if (IsUndefined() != 0) return HullOf(before);
        return HullOf(kiv::ExponentsOf(IntervalOf(*this), IntervalOf(bases), before));
      });
}
