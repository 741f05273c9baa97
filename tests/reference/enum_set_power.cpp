#include <algorithm>
#include <cstdlib>

#include "tests/reference/arithmetic.h"
#include "tests/reference/enum_set.h"

namespace kiv::reference {

namespace {

bool MayBe(const Power& power, std::int32_t result) {
  return power.state == Power::kUnknown || (power.state == Power::kValue && power.value == result);
}

void Extend(Interval& hull, std::int64_t v) {
  hull.lower =
      hull.nil ? static_cast<std::int32_t>(v) : std::min(hull.lower, static_cast<std::int32_t>(v));
  hull.upper =
      hull.nil ? static_cast<std::int32_t>(v) : std::max(hull.upper, static_cast<std::int32_t>(v));
  hull.nil = false;
}

// The hull of the bases in `range` with base ^ exponent = result, by walking those up to the roots.
// Beyond, all bases of one sign have the same power, unless the exponent is 1.
Interval Bases(std::int32_t result, const Interval& range, std::int32_t exponent) {
  Interval hull{true, 0, 0};
  if (range.nil) return hull;
  const auto try_one = [&](std::int64_t base) {
    if (base < range.lower || base > range.upper) return;
    if (MayBe(PowerOf(static_cast<std::int32_t>(base), exponent), result)) Extend(hull, base);
  };
  try_one(range.lower);
  try_one(range.upper);
  if (exponent == 1) {
    try_one(result);
    return hull;
  }
  for (std::int64_t base = 0;; ++base) {
    try_one(base);
    try_one(-base);
    // Beyond a power above the result there are no roots, and beyond a clamped one, or for an
    // exponent without powers, all bases are alike.
    const std::int32_t power = PowerOf(static_cast<std::int32_t>(base), exponent).value;
    if (base > 1 && (exponent <= 0 || power == kMax || power > std::abs(std::int64_t{result}))) {
      break;
    }
  }
  return hull;
}

// The hull of the exponents in `range` with base ^ exponent = result. Beyond those that are walked,
// it is the parity that decides.
Interval Exponents(std::int32_t result, std::int32_t base, const Interval& range) {
  Interval hull{true, 0, 0};
  const auto try_one = [&](std::int64_t exponent) {
    if (exponent < range.lower || exponent > range.upper) return;
    if (MayBe(PowerOf(base, static_cast<std::int32_t>(exponent)), result)) Extend(hull, exponent);
  };
  for (std::int64_t exponent = -40; exponent <= 40; ++exponent) try_one(exponent);
  for (std::int64_t i = 0; i < 4; ++i) {
    try_one(std::int64_t{range.lower} + i);
    try_one(std::int64_t{range.upper} - i);
  }
  return hull;
}

// Any when the answer of some pair is Any.
EnumSet CollectBases(const EnumSet& z, const Interval& range, const EnumSet& y) {
  EnumSet collected;
  for (const std::int32_t c : z.values) {
    for (const std::int32_t b : y.values) {
      const Interval bases = Bases(c, range, b);
      if (bases.IsAny()) return {{}, 1};
      if (bases.nil) continue;
      Insert(collected, bases.lower);
      if (collected.IsAny()) return collected;
      Insert(collected, bases.upper);
      if (collected.IsAny()) return collected;
    }
  }
  return collected;
}

Interval HullOf(const EnumSet& x) {
  if (x.IsAny()) return {};
  if (x.IsNil()) return {true, 0, 0};
  return {false, x.values.front(), x.values.back()};
}

Interval HullOf(const Single& x) {
  if (x.state == Single::kAny) return {};
  if (x.state == Single::kNil) return {true, 0, 0};
  return {false, x.value, x.value};
}

}  // namespace

int PowerForward(EnumSet& z, const EnumSet& x, const EnumSet& y) {
  if (x.IsAny()) return 0;
  if (y.IsAny()) return 0;
  EnumSet collected;
  for (const std::int32_t a : x.values) {
    for (const std::int32_t b : y.values) {
      const Power power = PowerOf(a, b);
      if (power.state == Power::kUnknown) return 0;
      if (power.state == Power::kNone) continue;
      Insert(collected, power.value);
      if (collected.IsAny()) return 0;
    }
  }
  return Intersect(z, collected);
}

int FirstInversePower(const EnumSet& z, EnumSet& x, const EnumSet& y) {
  if (y.IsAny()) return 0;
  const EnumSet collected = CollectBases(z, HullOf(x), y);
  if (collected.IsAny()) return 0;
  return Intersect(x, collected);
}

int FirstInversePower(const EnumSet& z, Single& x, const EnumSet& y) {
  if (y.IsAny()) return 0;
  return DecideSingle(x, CollectBases(z, HullOf(x), y));
}

int SecondInversePower(const EnumSet& z, const EnumSet& x, EnumSet& y) {
  EnumSet collected;
  for (const std::int32_t c : z.values) {
    for (const std::int32_t a : x.values) {
      if (y.IsAny()) {
        const Interval exponents = Exponents(c, a, {});
        if (exponents.IsAny()) return 0;
        if (exponents.nil) continue;
        EnumSet listed{{}, 1};
        Intersect(listed, exponents);
        if (listed.IsAny()) return 0;
        Unite(collected, listed);
        if (collected.IsAny()) return 0;
      } else {
        for (const std::int32_t b : y.values) {
          // Repetitions and all.
          if (MayBe(PowerOf(a, b), c)) collected.values.push_back(b);
        }
      }
    }
  }
  std::sort(collected.values.begin(), collected.values.end());
  return Intersect(y, collected);
}

}  // namespace kiv::reference
