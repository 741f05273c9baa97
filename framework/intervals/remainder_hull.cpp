// Remainders of hulls. Dividend and remainder have the same sign and the sign of the modulus does
// not matter, so that x = k * y + z with 0 <= z < y holds of the magnitudes, k being the quotient.

#include <algorithm>
#include <cstdlib>

#include "framework/intervals/bound_arithmetic.h"
#include "framework/intervals/hull.h"

namespace kiv {

using namespace bound_arithmetic;

namespace {

Hull RemaindersOf(const Hull& a, const Hull& b) {
  const Hull all{0, Plus(b.upper, -1)};
  // Far from each other the ends have different quotients for every modulus.
  if (a.upper - a.lower >= b.upper) return all;
  const std::int64_t least_quotient = FloorQuotient(a.lower, b.upper);
  const std::int64_t greatest_quotient = FloorQuotient(a.upper, b.lower);
  return {std::max(Plus(a.lower, -Times(greatest_quotient, b.upper)), all.lower),
          std::min(Plus(a.upper, -Times(least_quotient, b.lower)), all.upper)};
}

// The dividends of quotient k lie between k * b.lower + c.lower and k * b.upper + c.upper; an end
// of `a` between two of these ranges moves to the next one.
Hull DividendsOf(const Hull& a, Hull b, Hull c) {
  b.lower = std::max(b.lower, c.lower + 1);
  c.upper = std::min(c.upper, Plus(b.upper, -1));
  if (b.IsEmpty() || c.IsEmpty() || a.upper < c.lower) return kEmptyHull;
  // Where the greatest modulus leaves every remainder, these ranges leave nothing between them.
  if (c.lower == 0 && c.upper == Plus(b.upper, -1)) return a;
  const std::int64_t least_quotient =
      a.lower <= c.upper ? 0 : CeilQuotient(a.lower - c.upper, b.upper);
  const std::int64_t greatest_quotient = FloorQuotient(Plus(a.upper, -c.lower), b.lower);
  return {std::max(a.lower, Plus(Times(least_quotient, b.lower), c.lower)),
          std::min(a.upper, Plus(Times(greatest_quotient, b.upper), c.upper))};
}

// The moduli of a quotient k > 0 lie between (a.lower - c.upper) / k and (a.upper - c.lower) / k,
// those of the quotient 0 beyond the dividend, which then is the remainder.
Hull ModuliOf(Hull a, Hull b, Hull c) {
  a.lower = std::max(a.lower, c.lower);
  b.lower = std::max(b.lower, c.lower + 1);
  c.upper = std::min({c.upper, a.upper, Plus(b.upper, -1)});
  if (a.IsEmpty() || b.IsEmpty() || c.IsEmpty()) return kEmptyHull;

  const bool may_be_dividend = a.lower <= c.upper;
  const std::int64_t least_distance = may_be_dividend ? 0 : a.lower - c.upper;
  const std::int64_t greatest_distance = Plus(a.upper, -c.lower);
  const std::int64_t greatest_quotient = FloorQuotient(greatest_distance, b.lower);
  Hull moduli = b;
  if (greatest_quotient > 0) {
    moduli.lower = std::max(b.lower, CeilQuotient(least_distance, greatest_quotient));
  } else if (may_be_dividend) {
    moduli.lower = std::max(b.lower, a.lower + 1);
  } else {
    return kEmptyHull;
  }
  if (!may_be_dividend || b.upper <= a.lower) {
    const std::int64_t least_quotient = may_be_dividend ? 1 : CeilQuotient(least_distance, b.upper);
    moduli.upper = std::min(b.upper, FloorQuotient(greatest_distance, least_quotient));
  }
  return moduli;
}

// For finite dividends from 0. Each end of them that leaves no remainder in z moves to the next one
// that does, so that a second round is only for ends that have got the same quotient.
void SettlePositiveRemainder(Hull& x, std::int64_t modulus, Hull& z) {
  const Hull all{0, modulus - 1};
  for (;;) {
    const bool is_wide = x.upper - x.lower >= modulus;
    // Then every remainder stays, and nothing has to be divided.
    if (is_wide && z.lower <= 0 && z.upper >= all.upper) {
      z = all;
      return;
    }
    const std::int64_t least = x.lower / modulus * modulus;
    if (x.upper - least < modulus) {
      z = Intersection(z, {x.lower - least, x.upper - least});
      x = {least + z.lower, least + z.upper};
      return;
    }
    z = Intersection(z, all);
    if (z.IsEmpty() || z == all) return;
    const Hull before = x;
    std::int64_t multiple = x.lower > least + z.upper ? least + modulus : least;
    x.lower = std::max(x.lower, multiple + z.lower);
    multiple = is_wide ? x.upper / modulus * modulus : least + modulus;
    if (x.upper < multiple + z.lower) multiple -= modulus;
    x.upper = std::min(x.upper, multiple + z.upper);
    if (x == before || x.IsEmpty()) return;
  }
}

}  // namespace

Hull Remainder(const Hull& x, const Hull& y) {
  const Hull dividends = Operand(x);
  const Hull moduli = Operand(y);
  if (dividends.IsEmpty() || moduli.IsEmpty()) return kEmptyHull;
  if (dividends.lower >= 0 && moduli.lower > 0) return RemaindersOf(dividends, moduli);
  Hull remainders = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(dividends, x_sign);
      const Hull b = StrictSide(moduli, y_sign);
      if (a.IsEmpty() || b.IsEmpty()) continue;
      remainders = Union(remainders, WithSign(RemaindersOf(a, b), x_sign));
    }
  }
  return remainders;
}

Hull Dividend(const Hull& x, const Hull& y, const Hull& z) {
  const Hull operands = Operand(x);
  const Hull moduli = Operand(y);
  const Hull remainders = Operand(z);
  if (operands.IsEmpty() || moduli.IsEmpty() || remainders.IsEmpty()) return kEmptyHull;
  if (operands.lower >= 0 && moduli.lower > 0) {
    return Intersection(x, DividendsOf(operands, moduli, WeakSide(remainders, 1)));
  }
  Hull dividends = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(operands, x_sign);
      const Hull b = StrictSide(moduli, y_sign);
      if (a.IsEmpty() || b.IsEmpty()) continue;
      const Hull side = DividendsOf(a, b, WeakSide(remainders, x_sign));
      dividends = Union(dividends, Intersection(x, WithSign(side, x_sign)));
    }
  }
  return dividends;
}

Hull Modulus(const Hull& x, const Hull& y, const Hull& z) {
  Hull moduli = kEmptyHull;
  for (const int x_sign : kSigns) {
    for (const int y_sign : kSigns) {
      const Hull a = WeakSide(Operand(x), x_sign);
      const Hull b = StrictSide(Operand(y), y_sign);
      const Hull c = WeakSide(Operand(z), x_sign);
      moduli = Union(moduli, Intersection(y, WithSign(ModuliOf(a, b, c), y_sign)));
    }
  }
  return moduli;
}

void SettleRemainder(Hull& x, std::int64_t modulus, Hull& z) {
  modulus = std::abs(modulus);
  if (x.lower >= 0 && IsFinite(x.upper)) return SettlePositiveRemainder(x, modulus, z);
  const Hull moduli{modulus, modulus};
  for (;;) {
    z = Intersection(z, Remainder(x, moduli));
    if (z.IsEmpty() || x.IsFixed()) return;
    const Hull dividends = Dividend(x, moduli, z);
    if (dividends == x) return;
    x = dividends;
  }
}

}  // namespace kiv
