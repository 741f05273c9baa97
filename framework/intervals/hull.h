#pragma once

#include <algorithm>
#include <cstdint>

#include "framework/base/export.h"

// Bounds reasoning: what the bounds of some integers tell of the bounds of others.
namespace kiv {

// A closed range of integers, empty when lower > upper. A lower bound of -kUnbounded or less and an
// upper bound of kUnbounded or more are no bounds. Sums and differences of two bounds do not
// overflow.
struct Hull {
  static constexpr std::int64_t kUnbounded = std::int64_t{1} << 60;

  std::int64_t lower;
  std::int64_t upper;

  constexpr bool IsEmpty() const noexcept { return lower > upper; }
  constexpr bool IsFixed() const noexcept { return lower == upper; }
  constexpr bool Contains(std::int64_t value) const noexcept {
    return lower <= value && value <= upper;
  }
  friend constexpr bool operator==(const Hull&, const Hull&) = default;
};

inline constexpr Hull kEmptyHull{Hull::kUnbounded, -Hull::kUnbounded};

// The common part; may be empty in any way.
constexpr Hull Intersection(const Hull& a, const Hull& b) noexcept {
  return {std::max(a.lower, b.lower), std::min(a.upper, b.upper)};
}
// The least hull around both; an empty one adds nothing.
constexpr Hull Union(const Hull& a, const Hull& b) noexcept {
  if (a.IsEmpty()) return b;
  if (b.IsEmpty()) return a;
  return {std::min(a.lower, b.lower), std::max(a.upper, b.upper)};
}

// Forward: the least hull of all values of z = f(x, y) for x and y in their hulls, empty when there
// are none. An unbounded operand holds arbitrarily large integers but no infinite one, so that 0
// times whatever is 0. The bounds of a result are clamped at kUnbounded; an operand that lies
// beyond kUnbounded altogether is taken to begin one before it. All take constant time.
KIV_EXPORT Hull Sum(const Hull& x, const Hull& y);
KIV_EXPORT Hull Difference(const Hull& x, const Hull& y);
KIV_EXPORT Hull Negation(const Hull& x);
KIV_EXPORT Hull Product(const Hull& x, const Hull& y);
// Truncating toward zero; a divisor 0 has no quotient.
KIV_EXPORT Hull TruncatedQuotient(const Hull& x, const Hull& y);
// With the sign of x; a modulus 0 has no remainder. The least hull when the moduli are m, -m or
// both, when all dividends have the same quotient but for its sign, and when some modulus exceeds
// some dividend in magnitude; otherwise it may be wider.
KIV_EXPORT Hull Remainder(const Hull& x, const Hull& y);
KIV_EXPORT Hull Minimum(const Hull& x, const Hull& y);
KIV_EXPORT Hull Maximum(const Hull& x, const Hull& y);
KIV_EXPORT Hull Absolute(const Hull& x);
KIV_EXPORT Hull Sign(const Hull& x);
// x ^ 0 = 1 whatever x is; for a negative exponent only 1 and -1 have powers.
KIV_EXPORT Hull Power(const Hull& x, const Hull& y);

// Inverse: x of z = f(x, y), or y where the function is named after it, without the ends that no
// other operands complete to a solution, empty when none do. Where nothing else is said, each end
// that stays is part of a solution, so that the result is the least hull. All take constant time,
// Base and Exponent up to some ten thousand steps when an operand is wide.

// z = x * y. Each end that stays has a real number y, not always an integer, beside it.
KIV_EXPORT Hull Factor(const Hull& x, const Hull& y, const Hull& z);
// z = x div y, truncating, y <> 0.
KIV_EXPORT Hull TruncatedDividend(const Hull& x, const Hull& y, const Hull& z);
KIV_EXPORT Hull TruncatedDivisor(const Hull& x, const Hull& y, const Hull& z);
// z = x mod y, y <> 0. The dividends are the least hull when the moduli are m, -m or both;
// otherwise they, and the moduli always, may keep ends without a solution. Moduli that were
// narrowed may be narrowed more the next time.
KIV_EXPORT Hull Dividend(const Hull& x, const Hull& y, const Hull& z);
KIV_EXPORT Hull Modulus(const Hull& x, const Hull& y, const Hull& z);
// z = min(x, y) and z = max(x, y).
KIV_EXPORT Hull MinimumOperand(const Hull& x, const Hull& y, const Hull& z);
KIV_EXPORT Hull MaximumOperand(const Hull& x, const Hull& y, const Hull& z);
// z = abs(x), s = sign(x).
KIV_EXPORT Hull AbsoluteOperand(const Hull& x, const Hull& z);
KIV_EXPORT Hull SignOperand(const Hull& x, const Hull& s);
// z = x ^ y.
KIV_EXPORT Hull Base(const Hull& x, const Hull& y, const Hull& z);
KIV_EXPORT Hull Exponent(const Hull& x, const Hull& y, const Hull& z);

// All directions together, over and over until none of them narrows anything; some hull is empty
// when there is no solution left. For positive operands without a call or a division that changes
// nothing. As many rounds as bounds have to move.

// z = x * y, by Product and Factor.
KIV_EXPORT void SettleProduct(Hull& x, Hull& y, Hull& z);
// z = x ^ exponent, by Power and Base.
KIV_EXPORT void SettlePower(Hull& x, std::int64_t exponent, Hull& z);
// z = x mod modulus, which is not 0, by Remainder and Dividend.
KIV_EXPORT void SettleRemainder(Hull& x, std::int64_t modulus, Hull& z);

}  // namespace kiv
