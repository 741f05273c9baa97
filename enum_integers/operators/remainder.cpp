// z = x mod y, value by value. The inverses keep those values of their target that go with some
// pair of the others.

#include <cstdint>
#include <optional>

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/operators/pairwise_collection.h"

namespace {

// Of the division truncated toward zero: its sign is that of the dividend. In 64 bits, where the
// quotient of the least 32-bit integer by -1 exists.
std::int32_t Remainder(std::int32_t dividend, std::int32_t modulus) {
  return static_cast<std::int32_t>(std::int64_t{dividend} % modulus);
}

}  // namespace

// A modulus that may be 0 tells nothing of the result or the dividend.

int KivOmbEnumInteger::CalcModValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny() || y.Contains(0)) return 0;
  return Intersect(kiv::CollectPairs(x, y, Remainder));
}

int KivOmbEnumInteger::CalcFirstInverseModValue(KivOmbEnumInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (x.CheckAny() || y.CheckAny() || y.Contains(0)) return 0;
  return x.Intersect(kiv::CollectPairs(
      x, y, [this](std::int32_t dividend, std::int32_t modulus) -> std::optional<SubIntBase> {
        if (!Contains(Remainder(dividend, modulus))) return std::nullopt;
        return dividend;
      }));
}

int KivOmbEnumInteger::CalcFirstInverseModValue(KivOmbSingleInteger& x,
                                                const KivOmbEnumInteger& y) const {
  if (x.CheckAny() || y.CheckAny() || y.Contains(0)) return 0;
  for (unsigned j = 0; j < y.Count(); ++j) {
    if (Contains(Remainder(x.GetValue(), y.GetValue(j)))) return 0;
  }
  return x.Nil();
}

// A modulus 0 is never excluded: there is no remainder that could.
int KivOmbEnumInteger::CalcSecondInverseModValue(const KivOmbEnumInteger& x,
                                                 KivOmbEnumInteger& y) const {
  if (CheckAny() || y.CheckAny()) return 0;
  return y.Intersect(kiv::CollectPairs(
      x, y, [this](std::int32_t dividend, std::int32_t modulus) -> std::optional<SubIntBase> {
        if (modulus != 0 && !Contains(Remainder(dividend, modulus))) return std::nullopt;
        return modulus;
      }));
}

int KivOmbEnumInteger::CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcModValue(first, second);
  });
}

int KivOmbEnumInteger::CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInverseModValue(target, known);
  });
}

int KivOmbEnumInteger::CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const {
  return kiv::SecondInverseEntry(*this, x, y, [this](const auto& known, auto& target) {
    return CalcSecondInverseModValue(known, target);
  });
}
