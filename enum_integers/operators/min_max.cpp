// z = min(x, y) and z = max(x, y). The forward operations look at every value; the inverses know
// only that an argument lies on the far side of z, and cut it at z's bound.

#include <algorithm>

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"

// The minimum is a value of one argument, and at most the greatest value of either.
int KivOmbEnumInteger::CalcMinValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny()) return CalcLessOrEqualValue(y);
  if (y.CheckAny()) return CalcLessOrEqualValue(x);
  const SubIntBase bound = std::min(x.GetLastU(), y.GetLastU());
  return IntersectWithUnion(x.View(), y.View(), SubIntBase::kMin, bound.GetValue(),
                            {x.GetDelta(), y.GetDelta()});
}

int KivOmbEnumInteger::CalcMaxValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny()) return CalcNotLessValue(y);
  if (y.CheckAny()) return CalcNotLessValue(x);
  const SubIntBase bound = std::max(x.GetFirstL(), y.GetFirstL());
  return IntersectWithUnion(x.View(), y.View(), bound.GetValue(), SubIntBase::kMax,
                            {x.GetDelta(), y.GetDelta()});
}

int KivOmbEnumInteger::CalcFirstInverseMinValue(KivOmbEnumInteger& x,
                                                const KivOmbEnumInteger&) const {
  return CalcInverseLessOrEqualValue(x);
}

int KivOmbEnumInteger::CalcFirstInverseMinValue(KivOmbSingleInteger& x,
                                                const KivOmbEnumInteger&) const {
  return CalcInverseLessOrEqualValue(x);
}

int KivOmbEnumInteger::CalcFirstInverseMaxValue(KivOmbEnumInteger& x,
                                                const KivOmbEnumInteger&) const {
  return CalcInverseNotLessValue(x);
}

int KivOmbEnumInteger::CalcFirstInverseMaxValue(KivOmbSingleInteger& x,
                                                const KivOmbEnumInteger&) const {
  return CalcInverseNotLessValue(x);
}

int KivOmbEnumInteger::CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcMinValue(first, second);
  });
}

int KivOmbEnumInteger::CalcMaxValue(const KivOmbiAny& x, const KivOmbiAny& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcMaxValue(first, second);
  });
}

int KivOmbEnumInteger::CalcFirstInverseMinValue(KivOmbiAny& x, const KivOmbiAny& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInverseMinValue(target, known);
  });
}

int KivOmbEnumInteger::CalcFirstInverseMaxValue(KivOmbiAny& x, const KivOmbiAny& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInverseMaxValue(target, known);
  });
}
