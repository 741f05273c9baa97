#include "tests/reference/arithmetic.h"
#include "tests/reference/enum_set.h"

namespace kiv::reference {

int Mod(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  if (x.IsAny()) return 0;
  if (y.IsAny()) return 0;
  if (y.Contains(0)) return 0;
  EnumSet collected;
  for (const std::int32_t a : x.values) {
    for (const std::int32_t b : y.values) {
      if (Insert(collected, Remainder(a, b)) == 0) break;
    }
  }
  return Intersect(z, collected);
}

// A dividend is offered once for every modulus that fits.
int FirstInverseMod(const EnumSet& z, EnumSet& x, const EnumSet& y) {
  if (x.IsAny()) return 0;
  if (y.IsAny()) return 0;
  if (y.Contains(0)) return 0;
  EnumSet collected;
  for (const std::int32_t a : x.values) {
    for (const std::int32_t b : y.values) {
      if (z.Contains(Remainder(a, b))) Insert(collected, a);
    }
  }
  return Intersect(x, collected);
}

int FirstInverseMod(const EnumSet& z, Single& x, const EnumSet& y) {
  if (x.state == Single::kAny) return 0;
  if (y.IsAny()) return 0;
  if (y.Contains(0)) return 0;
  for (const std::int32_t b : y.values) {
    if (z.Contains(Remainder(x.value, b))) return 0;
  }
  return MakeNil(x);
}

int SecondInverseMod(const EnumSet& z, const EnumSet& x, EnumSet& y) {
  if (z.IsAny()) return 0;
  if (y.IsAny()) return 0;
  EnumSet collected;
  for (const std::int32_t a : x.values) {
    for (const std::int32_t b : y.values) {
      if (b == 0) {
        Insert(collected, b);
      } else if (z.Contains(Remainder(a, b))) {
        Insert(collected, b);
      }
    }
  }
  return Intersect(y, collected);
}

}  // namespace kiv::reference
