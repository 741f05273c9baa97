// z = -x.

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

int KivOmbBoundedInteger::CalcNegativeValue(const KivOmbiNumber& x) {
  return kiv::Forward(*this, x, [this](const KivOmbiInteger& operand) {
    return NarrowTo(kiv::Negation(kiv::HullOf(operand)));
  });
}

int KivOmbBoundedInteger::CalcInverseNegativeValue(KivOmbiNumber& x) const {
  return kiv::Inverse(*this, x,
                      [this](const KivOmbiInteger&) { return kiv::Negation(kiv::HullOf(*this)); });
}
