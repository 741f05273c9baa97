// z = next(x), which is x + 1.

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

namespace {

constexpr kiv::Hull kOne{1, 1};

}  // namespace

int KivOmbBoundedInteger::CalcNextValue(const KivOmbiScalar& x) {
  return kiv::Forward(*this, x, [this](const KivOmbiInteger& operand) {
    return NarrowTo(kiv::Sum(kiv::HullOf(operand), kOne));
  });
}

int KivOmbBoundedInteger::CalcInverseNextValue(KivOmbiScalar& x) const {
  return kiv::Inverse(*this, x, [this](const KivOmbiInteger&) {
    return kiv::Difference(kiv::HullOf(*this), kOne);
  });
}
