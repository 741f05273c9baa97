#include "tests/reference/arithmetic.h"
#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

// A collection that is Any takes nothing more, yet every a is still combined with the first b.
EnumSet Differences(const EnumSet& z, const EnumSet& y) {
  EnumSet collected;
  for (const std::int32_t a : z.values) {
    for (const std::int32_t b : y.values) {
      if (Insert(collected, Plus(a, -b)) == 0) break;
    }
  }
  return collected;
}

}  // namespace

int Sum(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  if (x.IsAny()) return 0;
  if (y.IsAny()) return 0;
  EnumSet collected;
  for (const std::int32_t a : x.values) {
    for (const std::int32_t b : y.values) {
      if (Insert(collected, Plus(a, b)) == 0) break;
    }
  }
  return Intersect(z, collected);
}

int FirstInverseSum(const EnumSet& z, EnumSet& x, const EnumSet& y) {
  if (y.IsAny()) return 0;
  return Intersect(x, Differences(z, y));
}

int FirstInverseSum(const EnumSet& z, Single& x, const EnumSet& y) {
  if (y.IsAny()) return 0;
  return DecideSingle(x, Differences(z, y));
}

int DecideSingle(Single& x, const EnumSet& collected) {
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
