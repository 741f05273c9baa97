// z = x + y. An exact infinity, the one value of a domain, absorbs what is finite, as in the
// arithmetic of SubIntBase.

#include "framework/intervals/sub_int_base.h"
#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

namespace {

constexpr std::int64_t kUnbounded = kiv::Hull::kUnbounded;

// The bounds, with the ends of the integers as infinities on either side.
kiv::Hull ExtendedHullOf(const KivOmbiInteger& x) {
  const kiv::Hull hull = kiv::HullOf(x);
  return {hull.lower == SubIntBase::kMax ? kUnbounded : hull.lower,
          hull.upper == SubIntBase::kMin ? -kUnbounded : hull.upper};
}

}  // namespace

int KivOmbBoundedInteger::CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::Forward(*this, x, y, [this](const KivOmbiInteger& a, const KivOmbiInteger& b) {
    return NarrowTo(kiv::Sum(ExtendedHullOf(a), ExtendedHullOf(b)));
  });
}

int KivOmbBoundedInteger::CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::Inverse(*this, x, y, [this](const KivOmbiInteger&, const KivOmbiInteger& other) {
    return kiv::Difference(ExtendedHullOf(*this), ExtendedHullOf(other));
  });
}
