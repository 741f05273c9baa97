#pragma once

#include <algorithm>
#include <cstdint>

#include "framework/intervals/hull.h"

// Arithmetic of single bounds, the steps of all reasoning about hulls. A bound is an integer
// between -kUnbounded and kUnbounded; these two are infinite.
namespace kiv::bound_arithmetic {

inline constexpr std::int64_t kInfinite = Hull::kUnbounded;

// To go through both sides of zero.
inline constexpr int kSigns[] = {1, -1};

constexpr bool IsFinite(std::int64_t bound) { return -kInfinite < bound && bound < kInfinite; }

constexpr std::int64_t Clamp(std::int64_t bound) {
  return std::clamp(bound, -kInfinite, kInfinite);
}

// An infinity absorbs the other operand, the first one wins.
constexpr std::int64_t Plus(std::int64_t a, std::int64_t b) {
  if (!IsFinite(a)) return a;
  return IsFinite(b) ? Clamp(a + b) : b;
}

// 0 times an infinity is 0: there is no infinite integer.
constexpr std::int64_t Times(std::int64_t a, std::int64_t b) {
  std::int64_t product = 0;
  if (!__builtin_mul_overflow(a, b, &product)) return Clamp(product);
  return (a < 0) == (b < 0) ? kInfinite : -kInfinite;
}

// a / b for a >= 0 and b > 0, not both infinite, rounded down. 0 for an infinite b.
constexpr std::int64_t FloorQuotient(std::int64_t a, std::int64_t b) {
  if (!IsFinite(b)) return 0;
  return IsFinite(a) ? a / b : a;
}

// Rounded up, for a finite a.
constexpr std::int64_t CeilQuotient(std::int64_t a, std::int64_t b) {
  return a == 0 ? 0 : FloorQuotient(a - 1, b) + 1;
}

// The hull as an operand: its lower bound is finite or minus infinite, its upper one finite or plus
// infinite, and sums of them never meet opposite infinities.
constexpr Hull Operand(const Hull& x) {
  if (x.IsEmpty()) return kEmptyHull;
  return {std::clamp(x.lower, -kInfinite, kInfinite - 1),
          std::clamp(x.upper, -kInfinite + 1, kInfinite)};
}

// The magnitudes of the values of an operand that are not of the other sign, and of those that are
// of this sign.
constexpr Hull WithSign(const Hull& magnitudes, int sign) {
  return sign > 0 ? magnitudes : Hull{-magnitudes.upper, -magnitudes.lower};
}
constexpr Hull MagnitudesFrom(std::int64_t least, const Hull& x, int sign) {
  const Hull side = WithSign(x, sign);
  return {std::max(side.lower, least), side.upper};
}
constexpr Hull WeakSide(const Hull& x, int sign) { return MagnitudesFrom(0, x, sign); }
constexpr Hull StrictSide(const Hull& x, int sign) { return MagnitudesFrom(1, x, sign); }

}  // namespace kiv::bound_arithmetic
