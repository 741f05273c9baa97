// s = sign(x), with x as the receiver of both directions.

#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

int KivOmbBoundedInteger::CalcSignumValue(KivOmbiInteger& s) const {
  return kiv::Inverse(*this, s,
                      [this](const KivOmbiInteger&) { return kiv::Sign(kiv::HullOf(*this)); });
}

// Each sign is asked for by itself: 0 may be missing between the others.
int KivOmbBoundedInteger::CalcInverseSignumValue(const KivOmbiInteger& s) {
  kiv::Hull possible = kiv::kEmptyHull;
  for (const std::int32_t sign : {-1, 0, 1}) {
    if (!s.MayBe(sign)) continue;
    possible = kiv::Union(possible, kiv::SignOperand(kiv::HullOf(*this), {sign, sign}));
  }
  return NarrowTo(possible);
}
