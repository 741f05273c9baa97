// z = x mod y, value by value. The inverses keep those values of their target that go with some
// pair of the others.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/domain/narrowing.h"
#include "enum_integers/kernels/remainder_inverses.h"
#include "enum_integers/kernels/remainders.h"

// A modulus that may be 0 tells nothing of the result or the dividend.

int KivOmbEnumInteger::CalcModValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny() || y.Contains(0)) return 0;
  return kiv::kernels::CollectRemainders(
      x.View(), y.View(), sMAX_CARD,
      [this](const auto& remainders) { return NarrowToCollection(remainders); });
}

int KivOmbEnumInteger::CalcFirstInverseModValue(KivOmbEnumInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (x.CheckAny() || y.CheckAny() || y.Contains(0)) return 0;
  return kiv::kernels::CollectDividends(
      View(), x.View(), y.View(), sMAX_CARD,
      [&x](const auto& dividends) { return x.NarrowToCollection(dividends); });
}

int KivOmbEnumInteger::CalcFirstInverseModValue(KivOmbSingleInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (x.CheckAny() || y.CheckAny() || y.Contains(0)) return 0;
  for (unsigned j = 0; j < y.Count(); ++j) {
    if (Contains(x.GetValue() % y.GetValue(j))) return 0;
  }
  return x.Nil();
}

// A modulus 0 is never excluded: there is no remainder that could.
int KivOmbEnumInteger::CalcSecondInverseModValue(const KivOmbEnumInteger& x,
                                                 KivOmbEnumInteger& y) const {
  if (CheckAny() || y.CheckAny()) return 0;
  return kiv::kernels::CollectModuli(
      View(), x.View(), y.View(), sMAX_CARD,
      [&y](const auto& moduli) { return y.NarrowToCollection(moduli); });
}

int KivOmbEnumInteger::CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcModValue(first, second);
  });
}

int KivOmbEnumInteger::CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInverseModValue(target, known);
  });
}

int KivOmbEnumInteger::CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const {
  return kiv::SecondInverseEntry(*this, x, y, [this](const auto& known, auto& target) {
    return CalcSecondInverseModValue(known, target);
  });
}
