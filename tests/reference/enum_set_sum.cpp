#include <algorithm>

#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

bool IsInfinite(std::int32_t v) { return v == kMin || v == kMax; }

std::int32_t Plus(std::int32_t a, std::int32_t b, bool& error) {
  if (IsInfinite(a) && IsInfinite(b) && a != b) {
    error = true;
    return 0;
  }
  if (IsInfinite(a)) return a;
  if (IsInfinite(b)) return b;
  const std::int64_t sum = std::int64_t{a} + b;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, kMin, kMax));
}

// The candidates a + sign * b. A collection that is Any takes nothing more, yet every a is still
// combined with the first b.
EnumSet Collect(const EnumSet& outer, const EnumSet& inner, int sign, bool& error) {
  EnumSet collected;
  for (const std::int32_t a : outer.values) {
    for (const std::int32_t b : inner.values) {
      if (Insert(collected, Plus(a, sign * b, error)) == 0) break;
    }
  }
  return collected;
}

}  // namespace

int Sum(EnumSet& z, const EnumSet& x, const EnumSet& y, bool& error) {
  if (x.IsAny()) return 0;
  if (y.IsAny()) return 0;
  return Intersect(z, Collect(x, y, 1, error));
}

int FirstInverseSum(const EnumSet& z, EnumSet& x, const EnumSet& y, bool& error) {
  if (y.IsAny()) return 0;
  return Intersect(x, Collect(z, y, -1, error));
}

int FirstInverseSum(const EnumSet& z, Single& x, const EnumSet& y, bool& error) {
  if (y.IsAny()) return 0;
  const EnumSet collected = Collect(z, y, -1, error);
  if (x.state == Single::kNil) return 0;
  if (collected.IsAny()) return 0;
  if (collected.IsNil()) return MakeNil(x);
  if (x.state == Single::kAny) {
    if (collected.values.size() != 1) return 0;
    x = {Single::kValue, collected.values[0]};
    return 1;
  }
  return collected.Contains(x.value) ? 0 : MakeNil(x);
}

}  // namespace kiv::reference
