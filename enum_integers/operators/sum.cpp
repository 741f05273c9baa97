// z = x + y, value by value.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/domain/narrowing.h"
#include "enum_integers/kernels/sums.h"

int KivOmbEnumInteger::CalcSumValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny()) return 0;
  return kiv::kernels::CollectSums(x.View(), y.View(), sMAX_CARD,
                                   [this](const auto& sums) { return NarrowToCollection(sums); });
}

int KivOmbEnumInteger::CalcFirstInverseSumValue(KivOmbEnumInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return 0;
  return kiv::kernels::CollectDifferences(
      View(), y.View(), sMAX_CARD,
      [&x](const auto& differences) { return x.NarrowToCollection(differences); });
}

int KivOmbEnumInteger::CalcFirstInverseSumValue(KivOmbSingleInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return 0;
  return kiv::kernels::CollectDifferences(
      View(), y.View(), sMAX_CARD,
      [&x](const auto& differences) { return kiv::NarrowSingleTo(x, differences); });
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
