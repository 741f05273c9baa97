// z = min(x, y) and z = max(x, y).

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

int KivOmbBoundedInteger::CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y) {
  return kiv::Forward(*this, x, y, [this](const KivOmbiInteger& a, const KivOmbiInteger& b) {
    return NarrowTo(kiv::Minimum(kiv::HullOf(a), kiv::HullOf(b)));
  });
}

int KivOmbBoundedInteger::CalcMaxValue(const KivOmbiAny& x, const KivOmbiAny& y) {
  return kiv::Forward(*this, x, y, [this](const KivOmbiInteger& a, const KivOmbiInteger& b) {
    return NarrowTo(kiv::Maximum(kiv::HullOf(a), kiv::HullOf(b)));
  });
}

int KivOmbBoundedInteger::CalcFirstInverseMinValue(KivOmbiAny& x, const KivOmbiAny& y) const {
  return kiv::Inverse(
      *this, x, y, [this](const KivOmbiInteger& operand, const KivOmbiInteger& other) {
        return kiv::MinimumOperand(kiv::HullOf(operand), kiv::HullOf(other), kiv::HullOf(*this));
      });
}

int KivOmbBoundedInteger::CalcFirstInverseMaxValue(KivOmbiAny& x, const KivOmbiAny& y) const {
  return kiv::Inverse(
      *this, x, y, [this](const KivOmbiInteger& operand, const KivOmbiInteger& other) {
        return kiv::MaximumOperand(kiv::HullOf(operand), kiv::HullOf(other), kiv::HullOf(*this));
      });
}
