// Products and truncated quotients of hulls. Where zero parts the values, each pair of signs is
// taken by itself, on magnitudes: there every operation grows or falls with each operand.

#include <algorithm>

#include "framework/intervals/bound_arithmetic.h"
#include "framework/intervals/hull.h"

namespace kiv {

using namespace bound_arithmetic;

Hull Product(const Hull& x, const Hull& y) {
  const Hull a = Operand(x);
  const Hull b = Operand(y);
  if (a.IsEmpty() || b.IsEmpty()) return kEmptyHull;
  const auto [lower, upper] = std::minmax({Times(a.lower, b.lower), Times(a.lower, b.upper),
                                           Times(a.upper, b.lower), Times(a.upper, b.upper)});
  return {lower, upper};
}

Hull TruncatedQuotient(const Hull& x, const Hull& y) {
  Hull quotients = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(Operand(x), x_sign);
      const Hull b = StrictSide(Operand(y), y_sign);
      if (a.IsEmpty() || b.IsEmpty()) continue;
      const Hull side{FloorQuotient(a.lower, b.upper), FloorQuotient(a.upper, b.lower)};
      quotients = Union(quotients, WithSign(side, x_sign * y_sign));
    }
  }
  return quotients;
}

Hull Factor(const Hull& x, const Hull& y, const Hull& z) {
  if (x.IsEmpty() || y.IsEmpty() || z.IsEmpty()) return kEmptyHull;
  if (y.Contains(0) && z.Contains(0)) return x;
  // From here on no product of a zero y is in z.
  Hull factors = z.Contains(0) ? Intersection(x, {0, 0}) : kEmptyHull;
  for (const int y_sign : kSigns) {
    for (const int z_sign : kSigns) {
      const Hull b = StrictSide(Operand(y), y_sign);
      const Hull c = StrictSide(Operand(z), z_sign);
      if (b.IsEmpty() || c.IsEmpty()) continue;
      const Hull side{CeilQuotient(c.lower, b.upper), FloorQuotient(c.upper, b.lower)};
      factors = Union(factors, Intersection(x, WithSign(side, y_sign * z_sign)));
    }
  }
  return factors;
}

// For a divisor of magnitude b the dividends are those from c.lower * b to (c.upper + 1) * b - 1,
// all of them; the further b grows, the further both ends move. So the outermost dividends are
// found through the outermost divisors that reach them.
Hull TruncatedDividend(const Hull& x, const Hull& y, const Hull& z) {
  Hull dividends = kEmptyHull;
  for (const int y_sign : kSigns) {
    for (const int z_sign : kSigns) {
      const int x_sign = y_sign * z_sign;
      const Hull a = WeakSide(Operand(x), x_sign);
      const Hull b = StrictSide(Operand(y), y_sign);
      const Hull c = WeakSide(Operand(z), z_sign);
      if (a.IsEmpty() || b.IsEmpty() || c.IsEmpty()) continue;
      const std::int64_t beyond = Plus(c.upper, 1);
      const std::int64_t least = std::max(b.lower, FloorQuotient(a.lower, beyond) + 1);
      const std::int64_t greatest =
          c.lower == 0 ? b.upper : std::min(b.upper, FloorQuotient(a.upper, c.lower));
      if (least > b.upper || greatest < b.lower) continue;
      const Hull side{std::max(a.lower, Times(c.lower, least)),
                      std::min(a.upper, Plus(Times(beyond, greatest), -1))};
      dividends = Union(dividends, Intersection(x, WithSign(side, x_sign)));
    }
  }
  return dividends;
}

// A divisor of magnitude b has dividends in `a` when c.lower * b <= a.upper and
// a.lower < (c.upper + 1) * b.
Hull TruncatedDivisor(const Hull& x, const Hull& y, const Hull& z) {
  Hull divisors = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(Operand(x), x_sign);
      const Hull c = WeakSide(Operand(z), x_sign * y_sign);
      if (a.IsEmpty() || c.IsEmpty()) continue;
      const Hull side{FloorQuotient(a.lower, Plus(c.upper, 1)) + 1,
                      c.lower == 0 ? kInfinite : FloorQuotient(a.upper, c.lower)};
      divisors = Union(divisors, Intersection(y, WithSign(side, y_sign)));
    }
  }
  return divisors;
}

}  // namespace kiv
