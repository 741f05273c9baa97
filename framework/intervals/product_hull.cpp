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

Hull FactorsOf(const Hull& b, const Hull& c) {
  return {CeilQuotient(c.lower, b.upper), FloorQuotient(c.upper, b.lower)};
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
  if (others.lower > 0 && products.lower >= 0) return Intersection(x, FactorsOf(others, products));
  if (others.Contains(0) && products.Contains(0)) return x;
  // From here on no product of a zero y is in z.
  Hull factors = products.Contains(0) ? Intersection(x, {0, 0}) : kEmptyHull;
  for (const int y_sign : kSigns) {
    for (const int z_sign : kSigns) {
      const Hull b = StrictSide(others, y_sign);
      const Hull c = StrictSide(products, z_sign);
      if (b.IsEmpty() || c.IsEmpty()) continue;
      factors = Union(factors, Intersection(x, WithSign(FactorsOf(b, c), y_sign * z_sign)));
    }
  }
  return factors;
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
