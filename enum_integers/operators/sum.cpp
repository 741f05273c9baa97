// z = x + y, value by value.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/operators/pairwise_collection.h"

int KivOmbEnumInteger::CalcSumValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny()) return 0;
  return Intersect(kiv::CollectPairs(x, y, base_plus));
}

int KivOmbEnumInteger::CalcFirstInverseSumValue(KivOmbEnumInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return 0;
  return x.Intersect(kiv::CollectPairs(*this, y, base_minus));
}

int KivOmbEnumInteger::CalcFirstInverseSumValue(KivOmbSingleInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return 0;
  return kiv::CollectPairs(*this, y, base_minus).IntersectInverse(x);
}

int KivOmbEnumInteger::CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcSumValue(first, second);
  });
}

int KivOmbEnumInteger::CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInverseSumValue(target, known);
  });
}
