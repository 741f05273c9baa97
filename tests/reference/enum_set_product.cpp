#include "tests/reference/arithmetic.h"
#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

// The divisors are the outer loop, and 0 is passed over.
EnumSet Quotients(const EnumSet& z, const EnumSet& y) {
  EnumSet collected;
  for (const std::int32_t b : y.values) {
    if (b == 0) continue;
    for (const std::int32_t a : z.values) {
      if (Insert(collected, Quotient(a, b)) == 0) break;
    }
  }
  return collected;
}

}  // namespace

int Product(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  if (x.IsAny()) return 0;
  if (y.IsAny()) return 0;
  EnumSet collected;
  for (const std::int32_t a : x.values) {
    for (const std::int32_t b : y.values) {
      if (Insert(collected, Times(a, b)) == 0) break;
    }
  }
  return Intersect(z, collected);
}

int FirstInverseProduct(const EnumSet& z, EnumSet& x, const EnumSet& y) {
  if (y.IsAny()) return 0;
  if (y.Contains(0) && z.Contains(0)) return 0;
  return Intersect(x, Quotients(z, y));
}

int FirstInverseProduct(const EnumSet& z, Single& x, const EnumSet& y) {
  if (y.IsAny()) return 0;
  if (y.Contains(0) && z.Contains(0)) return 0;
  return DecideSingle(x, Quotients(z, y));
}

}  // namespace kiv::reference
