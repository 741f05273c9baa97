// z = x mod y, with the sign of x.

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

int KivOmbBoundedInteger::CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::Forward(*this, x, y, [this](const KivOmbiInteger& a, const KivOmbiInteger& b) {
    return NarrowTo(kiv::Remainder(kiv::HullOf(a), kiv::HullOf(b)));
  });
}

int KivOmbBoundedInteger::CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::Inverse(
      *this, x, y, [this](const KivOmbiInteger& dividend, const KivOmbiInteger& modulus) {
        return kiv::Dividend(kiv::HullOf(dividend), kiv::HullOf(modulus), kiv::HullOf(*this));
      });
}

int KivOmbBoundedInteger::CalcSecondInverseModValue(const KivOmbiNumber& x,
                                                    KivOmbiNumber& y) const {
  return kiv::Inverse(
      *this, y, x, [this](const KivOmbiInteger& modulus, const KivOmbiInteger& dividend) {
        return kiv::Modulus(kiv::HullOf(dividend), kiv::HullOf(modulus), kiv::HullOf(*this));
      });
}
