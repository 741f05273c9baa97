// Products and truncated quotients of hulls. Where zero parts the values, each pair of signs is
// taken by itself, on magnitudes: there every operation grows or falls with each operand. Most
// operands have no negative values; then one pair is all there is.

#include <algorithm>

#include "framework/intervals/bound_arithmetic.h"
#include "framework/intervals/hull.h"

namespace kiv {

using namespace bound_arithmetic;

namespace {

Hull QuotientsOf(const Hull& a, const Hull& b) {
  return {FloorQuotient(a.lower, b.upper), FloorQuotient(a.upper, b.lower)};
}

// The factors in `a` that some real number in `b` takes into `c`. An end that does so stays without
// a division.
Hull FactorsOf(const Hull& a, const Hull& b, const Hull& c) {
  const bool has_lower = Times(a.lower, b.upper) >= c.lower;
  const bool has_upper = Times(a.upper, b.lower) <= c.upper;
  return {has_lower ? a.lower : CeilQuotient(c.lower, b.upper),
          has_upper ? a.upper : FloorQuotient(c.upper, b.lower)};
}

// For a divisor b the dividends are those from c.lower * b to (c.upper + 1) * b - 1, all of them;
// the further b grows, the further both ends move. So the outermost dividends are found through the
// outermost divisors that reach them.
Hull DividendsOf(const Hull& a, const Hull& b, const Hull& c) {
  const std::int64_t beyond = Plus(c.upper, 1);
  std::int64_t least = b.lower;
  std::int64_t greatest = b.upper;
  if (!b.IsFixed()) {
    least = std::max(least, FloorQuotient(a.lower, beyond) + 1);
    if (c.lower != 0) greatest = std::min(greatest, FloorQuotient(a.upper, c.lower));
    if (least > b.upper || greatest < b.lower) return kEmptyHull;
  }
  return {std::max(a.lower, Times(c.lower, least)),
          std::min(a.upper, Plus(Times(beyond, greatest), -1))};
}

// A divisor b has dividends in `a` when c.lower * b <= a.upper and a.lower < (c.upper + 1) * b.
Hull DivisorsOf(const Hull& a, const Hull& c) {
  return {FloorQuotient(a.lower, Plus(c.upper, 1)) + 1,
          c.lower == 0 ? kInfinite : FloorQuotient(a.upper, c.lower)};
}

// Whether all values are positive and their products with others of this kind fit 64 bits.
bool IsSmallPositive(const Hull& x) { return x.lower > 0 && x.upper < std::int64_t{1} << 31; }

// The factors in x of a positive z.
void NarrowPositiveFactor(Hull& x, const Hull& y, const Hull& z) {
  if (x.lower * y.upper < z.lower) x.lower = (z.lower - 1) / y.upper + 1;
  if (x.upper * y.lower > z.upper) x.upper = z.upper / y.lower;
}

void SettlePositiveProduct(Hull& x, Hull& y, Hull& z) {
  for (;;) {
    z = Intersection(z, {x.lower * y.lower, x.upper * y.upper});
    if (z.IsEmpty()) return;
    const Hull before[] = {x, y};
    NarrowPositiveFactor(x, y, z);
    if (x.IsEmpty()) return;
    NarrowPositiveFactor(y, x, z);
    if (y.IsEmpty() || (x == before[0] && y == before[1])) return;
  }
}

}  // namespace

Hull Product(const Hull& x, const Hull& y) {
  const Hull a = Operand(x);
  const Hull b = Operand(y);
  if (a.IsEmpty() || b.IsEmpty()) return kEmptyHull;
  const auto [lower, upper] = std::minmax({Times(a.lower, b.lower), Times(a.lower, b.upper),
                                           Times(a.upper, b.lower), Times(a.upper, b.upper)});
  return {lower, upper};
}

Hull TruncatedQuotient(const Hull& x, const Hull& y) {
  const Hull dividends = Operand(x);
  const Hull divisors = Operand(y);
  if (dividends.IsEmpty() || divisors.IsEmpty()) return kEmptyHull;
  if (dividends.lower >= 0 && divisors.lower > 0) return QuotientsOf(dividends, divisors);
  Hull quotients = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(dividends, x_sign);
      const Hull b = StrictSide(divisors, y_sign);
      if (a.IsEmpty() || b.IsEmpty()) continue;
      quotients = Union(quotients, WithSign(QuotientsOf(a, b), x_sign * y_sign));
    }
  }
  return quotients;
}

Hull Factor(const Hull& x, const Hull& y, const Hull& z) {
  const Hull others = Operand(y);
  const Hull products = Operand(z);
  if (x.IsEmpty() || others.IsEmpty() || products.IsEmpty()) return kEmptyHull;
  if (others.lower > 0 && products.lower >= 0) {
    return Intersection(x, FactorsOf(WeakSide(x, 1), others, products));
  }
  if (others.Contains(0) && products.Contains(0)) return x;
  // From here on no product of a zero y is in z.
  Hull factors = products.Contains(0) ? Intersection(x, {0, 0}) : kEmptyHull;
  for (const int y_sign : kSigns) {
    for (const int z_sign : kSigns) {
      const int x_sign = y_sign * z_sign;
      const Hull a = StrictSide(x, x_sign);
      const Hull b = StrictSide(others, y_sign);
      const Hull c = StrictSide(products, z_sign);
      if (a.IsEmpty() || b.IsEmpty() || c.IsEmpty()) continue;
      factors = Union(factors, Intersection(x, WithSign(FactorsOf(a, b, c), x_sign)));
    }
  }
  return factors;
}

// A fixed factor is right as soon as there is something left for the others: what the bounds tell
// of these is then exact.
void SettleProduct(Hull& x, Hull& y, Hull& z) {
  if (IsSmallPositive(x) && IsSmallPositive(y)) return SettlePositiveProduct(x, y, z);
  for (;;) {
    const Hull before[] = {x, y};
    z = Intersection(z, Product(x, y));
    if (!x.IsFixed()) x = Factor(x, y, z);
    if (!y.IsFixed()) y = Factor(y, x, z);
    if (x.IsEmpty() || y.IsEmpty() || (x == before[0] && y == before[1])) return;
  }
}

Hull TruncatedDividend(const Hull& x, const Hull& y, const Hull& z) {
  const Hull operands = Operand(x);
  const Hull divisors = Operand(y);
  const Hull quotients = Operand(z);
  if (operands.IsEmpty() || divisors.IsEmpty() || quotients.IsEmpty()) return kEmptyHull;
  if (operands.lower >= 0 && divisors.lower > 0) {
    const Hull c = WeakSide(quotients, 1);
    if (c.IsEmpty()) return kEmptyHull;
    return Intersection(x, DividendsOf(operands, divisors, c));
  }
  Hull dividends = kEmptyHull;
  for (const int y_sign : kSigns) {
    for (const int z_sign : kSigns) {
      const int x_sign = y_sign * z_sign;
      const Hull a = WeakSide(operands, x_sign);
      const Hull b = StrictSide(divisors, y_sign);
      const Hull c = WeakSide(quotients, z_sign);
      if (a.IsEmpty() || b.IsEmpty() || c.IsEmpty()) continue;
      dividends = Union(dividends, Intersection(x, WithSign(DividendsOf(a, b, c), x_sign)));
    }
  }
  return dividends;
}

Hull TruncatedDivisor(const Hull& x, const Hull& y, const Hull& z) {
  Hull divisors = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(Operand(x), x_sign);
      const Hull c = WeakSide(Operand(z), x_sign * y_sign);
      if (a.IsEmpty() || c.IsEmpty()) continue;
      divisors = Union(divisors, Intersection(y, WithSign(DivisorsOf(a, c), y_sign)));
    }
  }
  return divisors;
}

}  // namespace kiv
