// z = x * y.

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

int KivOmbBoundedInteger::CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::Forward(*this, x, y, [this](const KivOmbiInteger& a, const KivOmbiInteger& b) {
    return NarrowTo(kiv::Product(kiv::HullOf(a), kiv::HullOf(b)));
  });
}

int KivOmbBoundedInteger::CalcFirstInverseProdValue(KivOmbiNumber& x,
                                                    const KivOmbiNumber& y) const {
  return kiv::Inverse(
      *this, x, y, [this](const KivOmbiInteger& factor, const KivOmbiInteger& other) {
        return kiv::Factor(kiv::HullOf(factor), kiv::HullOf(other), kiv::HullOf(*this));
      });
}
