// Remainders of hulls. Dividend and remainder have the same sign and the sign of the modulus does
// not matter, so that x = k * y + z with 0 <= z < y holds of the magnitudes, k being the quotient.

#include <algorithm>

#include "framework/intervals/bound_arithmetic.h"
#include "framework/intervals/hull.h"

namespace kiv {

using namespace bound_arithmetic;

Hull Remainder(const Hull& x, const Hull& y) {
  Hull remainders = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(Operand(x), x_sign);
      const Hull b = StrictSide(Operand(y), y_sign);
      if (a.IsEmpty() || b.IsEmpty()) continue;
      const std::int64_t least_quotient = FloorQuotient(a.lower, b.upper);
      const std::int64_t greatest_quotient = FloorQuotient(a.upper, b.lower);
      const Hull side{std::max<std::int64_t>(Plus(a.lower, -Times(greatest_quotient, b.upper)), 0),
                      std::min(Plus(a.upper, -Times(least_quotient, b.lower)), Plus(b.upper, -1))};
      remainders = Union(remainders, WithSign(side, x_sign));
    }
  }
  return remainders;
}

// The dividends of quotient k lie between k * b.lower + c.lower and k * b.upper + c.upper; an end
// of x between two of these ranges moves to the next one.
Hull Dividend(const Hull& x, const Hull& y, const Hull& z) {
  Hull dividends = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(Operand(x), x_sign);
      Hull b = StrictSide(Operand(y), y_sign);
      Hull c = WeakSide(Operand(z), x_sign);
      b.lower = std::max(b.lower, c.lower + 1);
      c.upper = std::min(c.upper, Plus(b.upper, -1));
      if (a.IsEmpty() || b.IsEmpty() || c.IsEmpty() || a.upper < c.lower) continue;
      const std::int64_t least_quotient =
          a.lower <= c.upper ? 0 : CeilQuotient(a.lower - c.upper, b.upper);
      const std::int64_t greatest_quotient = FloorQuotient(Plus(a.upper, -c.lower), b.lower);
      const Hull side{std::max(a.lower, Plus(Times(least_quotient, b.lower), c.lower)),
                      std::min(a.upper, Plus(Times(greatest_quotient, b.upper), c.upper))};
      dividends = Union(dividends, Intersection(x, WithSign(side, x_sign)));
    }
  }
  return dividends;
}

// The moduli of a quotient k > 0 lie between (a.lower - c.upper) / k and (a.upper - c.lower) / k,
// those of the quotient 0 beyond the dividend, which then is the remainder.
Hull Modulus(const Hull& x, const Hull& y, const Hull& z) {
  Hull moduli = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      Hull a = WeakSide(Operand(x), x_sign);
      Hull b = StrictSide(Operand(y), y_sign);
      Hull c = WeakSide(Operand(z), x_sign);
      a.lower = std::max(a.lower, c.lower);
      b.lower = std::max(b.lower, c.lower + 1);
      c.upper = std::min({c.upper, a.upper, Plus(b.upper, -1)});
      if (a.IsEmpty() || b.IsEmpty() || c.IsEmpty()) continue;

      const bool may_be_dividend = a.lower <= c.upper;
      const std::int64_t least_distance = may_be_dividend ? 0 : a.lower - c.upper;
      const std::int64_t greatest_distance = Plus(a.upper, -c.lower);
      const std::int64_t greatest_quotient = FloorQuotient(greatest_distance, b.lower);
      Hull side = b;
      if (greatest_quotient > 0) {
        side.lower = std::max(b.lower, CeilQuotient(least_distance, greatest_quotient));
      } else if (may_be_dividend) {
        side.lower = std::max(b.lower, a.lower + 1);
      } else {
        continue;
      }
      if (!may_be_dividend || b.upper <= a.lower) {
        const std::int64_t least_quotient =
            may_be_dividend ? 1 : CeilQuotient(least_distance, b.upper);
        side.upper = std::min(b.upper, FloorQuotient(greatest_distance, least_quotient));
      }
      moduli = Union(moduli, Intersection(y, WithSign(side, y_sign)));
    }
  }
  return moduli;
}

}  // namespace kiv
