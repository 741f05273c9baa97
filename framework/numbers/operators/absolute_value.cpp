// z = abs(x).

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

int KivOmbBoundedInteger::CalcAbsoluteValue(const KivOmbiNumber& x) {
  return kiv::Forward(*this, x, [this](const KivOmbiInteger& operand) {
    return NarrowTo(kiv::Absolute(kiv::HullOf(operand)));
  });
}

int KivOmbBoundedInteger::CalcInverseAbsoluteValue(KivOmbiNumber& x) const {
  return kiv::Inverse(*this, x, [this](const KivOmbiInteger& operand) {
    return kiv::AbsoluteOperand(kiv::HullOf(operand), kiv::HullOf(*this));
  });
}
