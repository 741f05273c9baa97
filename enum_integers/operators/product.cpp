// z = x * y, value by value.

#include <optional>

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/operators/pairwise_collection.h"

namespace {

// Every x solves 0 = x * 0.
bool AdmitsEveryFactor(const KivOmbEnumInteger& z, const KivOmbEnumInteger& y) {
  return y.Contains(0) && z.Contains(0);
}

// z / y for every divisor but 0, which has no factor then. A quotient counts whether or not the
// division leaves a remainder, so that a factor may stay that the next product excludes.
KivOmbEnumInteger CollectQuotients(const KivOmbEnumInteger& z, const KivOmbEnumInteger& y) {
  return kiv::CollectPairs(
      y, z, [](std::int32_t divisor, std::int32_t dividend) -> std::optional<SubIntBase> {
        if (divisor == 0) return std::nullopt;
        return base_div(dividend, divisor);
      });
}

}  // namespace

int KivOmbEnumInteger::CalcProdValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny()) return 0;
  return Intersect(kiv::CollectPairs(x, y, base_mult));
}

int KivOmbEnumInteger::CalcFirstInverseProdValue(KivOmbEnumInteger& x,
                                                 const KivOmbEnumInteger& y) const {
  if (y.CheckAny() || AdmitsEveryFactor(*this, y)) return 0;
  return x.Intersect(CollectQuotients(*this, y));
}

int KivOmbEnumInteger::CalcFirstInverseProdValue(KivOmbSingleInteger& x,
                                                 const KivOmbEnumInteger& y) const {
  if (y.CheckAny() || AdmitsEveryFactor(*this, y)) return 0;
  return CollectQuotients(*this, y).IntersectInverse(x);
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
