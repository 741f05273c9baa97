// z = x * y, value by value.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/domain/narrowing.h"
#include "enum_integers/kernels/products.h"
#include "enum_integers/kernels/quotients.h"

int KivOmbEnumInteger::CalcProdValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny()) return 0;
  return kiv::kernels::CollectProducts(x.View(), y.View(), sMAX_CARD, [this](const auto& products) {
    return NarrowToCollection(products);
  });
}

// Every x solves 0 = x * 0. Otherwise a divisor 0 has no factor, and for each other divisor a
// quotient counts whether or not the division leaves a remainder, so that a factor may stay that
// the next product excludes.
int KivOmbEnumInteger::CalcFirstInverseProdValue(KivOmbEnumInteger& x,
                                                 const KivOmbEnumInteger& y) const {
  if (y.CheckAny() || (y.Contains(0) && Contains(0))) return 0;
  return kiv::kernels::CollectQuotients(View(), y.View(), sMAX_CARD, [&x](const auto& quotients) {
    return x.NarrowToCollection(quotients);
  });
}

int KivOmbEnumInteger::CalcFirstInverseProdValue(KivOmbSingleInteger& x,
                                                 const KivOmbEnumInteger& y) const {
  if (y.CheckAny() || (y.Contains(0) && Contains(0))) return 0;
  return kiv::kernels::CollectQuotients(View(), y.View(), sMAX_CARD, [&x](const auto& quotients) {
    return kiv::NarrowSingleTo(x, quotients);
  });
}

int KivOmbEnumInteger::CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcProdValue(first, second);
  });
}

int KivOmbEnumInteger::CalcFirstInverseProdValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInverseProdValue(target, known);
  });
}
