// Powers of hulls. The magnitude of a power grows with the base's, and with the exponent for bases
// of 2 or more; its sign is that of the exponent's parity for negative bases.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "framework/intervals/bound_arithmetic.h"
#include "framework/intervals/hull.h"

namespace kiv {

using namespace bound_arithmetic;

namespace {

// From here on every base but -1, 0 and 1 has a power beyond kUnbounded.
constexpr std::int64_t kSaturatingExponent = 60;
static_assert(std::int64_t{1} << kSaturatingExponent == kInfinite);

bool IsOdd(std::int64_t value) { return value % 2 != 0; }

// base ^ exponent, for a base from 0 and an exponent from 1.
std::int64_t Magnitude(std::int64_t base, std::int64_t exponent) {
  if (base <= 1) return base;
  std::int64_t power = base;
  for (std::int64_t i = 1; i < exponent && IsFinite(power); ++i) power = Times(power, base);
  return power;
}

// The least base from 0 whose square is `bound` or more, for a bound from 0 to kUnbounded. It is at
// most 2^30, so that a double misses it by one at most.
std::int64_t CeilSquareRoot(std::int64_t bound) {
  auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(bound)));
  if (root * root < bound) ++root;
  return root > 0 && (root - 1) * (root - 1) >= bound ? root - 1 : root;
}

// The same for another exponent from 1.
std::int64_t CeilRoot(std::int64_t bound, std::int64_t exponent) {
  if (exponent == 1) return bound;
  if (exponent == 2) return CeilSquareRoot(bound);
  const double estimate = std::pow(static_cast<double>(bound), 1.0 / static_cast<double>(exponent));
  auto root = static_cast<std::int64_t>(estimate);
  while (Magnitude(root, exponent) < bound) ++root;
  while (root > 0 && Magnitude(root - 1, exponent) >= bound) --root;
  return root;
}

// The greatest base whose power is `bound` or less; -1 when there is none, infinite when the bound
// is.
std::int64_t FloorRoot(std::int64_t bound, std::int64_t exponent) {
  return IsFinite(bound) ? CeilRoot(bound + 1, exponent) - 1 : bound;
}

// The bases in `a` whose power lies in `powers`. An end whose power does stays without a root.
Hull RootsWithin(const Hull& a, std::int64_t exponent, const Hull& powers) {
  const bool has_lower = Magnitude(a.lower, exponent) >= powers.lower;
  const bool has_upper = Magnitude(a.upper, exponent) <= powers.upper;
  return {has_lower ? a.lower : CeilRoot(powers.lower, exponent),
          has_upper ? a.upper : FloorRoot(powers.upper, exponent)};
}

// For bases from 0 and an exponent from 1.
void SettleRisingPower(Hull& x, std::int64_t exponent, Hull& z) {
  while (!x.IsEmpty()) {
    const Hull powers{Magnitude(x.lower, exponent), Magnitude(x.upper, exponent)};
    z = Intersection(z, powers);
    if (z == powers || z.IsEmpty() || x.IsFixed()) return;
    if (z.lower > powers.lower) x.lower = CeilRoot(z.lower, exponent);
    if (z.upper < powers.upper) x.upper = FloorRoot(z.upper, exponent);
  }
}

// The exponents of one parity, which may be none.
Hull OfParity(const Hull& exponents, bool odd) {
  const auto has_parity = [odd](std::int64_t e) { return !IsFinite(e) || IsOdd(e) == odd; };
  return {exponents.lower + !has_parity(exponents.lower),
          exponents.upper - !has_parity(exponents.upper)};
}

// The bases in x whose power for one finite exponent lies in z.
Hull BasesFor(const Hull& x, std::int64_t exponent, const Hull& z) {
  if (exponent == 0) return z.Contains(1) ? x : kEmptyHull;
  if (exponent < 0) {
    const Hull one = z.Contains(1) ? Intersection(x, {1, 1}) : kEmptyHull;
    const bool takes_minus_one = z.Contains(IsOdd(exponent) ? -1 : 1);
    return takes_minus_one ? Union(one, Intersection(x, {-1, -1})) : one;
  }
  Hull bases = kEmptyHull;
  for (const int x_sign : kSigns) {
    const Hull a = WeakSide(x, x_sign);
    const Hull powers = WeakSide(z, IsOdd(exponent) ? x_sign : 1);
    if (a.IsEmpty() || powers.IsEmpty()) continue;
    bases = Union(bases, Intersection(x, WithSign(RootsWithin(a, exponent, powers), x_sign)));
  }
  return bases;
}

}  // namespace

Hull Power(const Hull& x, const Hull& y) {
  const Hull bases = Operand(x);
  const Hull exponents = Operand(y);
  if (bases.IsEmpty() || exponents.IsEmpty()) return kEmptyHull;
  if (bases.lower >= 0 && exponents.lower > 0) {
    return {Magnitude(bases.lower, exponents.lower), Magnitude(bases.upper, exponents.upper)};
  }
  Hull powers = exponents.Contains(0) ? Hull{1, 1} : kEmptyHull;
  const Hull rising = StrictSide(exponents, 1);
  const Hull inverse{exponents.lower, std::min<std::int64_t>(exponents.upper, -1)};

  const Hull a = WeakSide(bases, 1);
  if (!a.IsEmpty() && !rising.IsEmpty()) {
    powers = Union(powers, {Magnitude(a.lower, rising.lower), Magnitude(a.upper, rising.upper)});
  }
  if (bases.Contains(1) && !inverse.IsEmpty()) powers = Union(powers, {1, 1});

  for (const bool odd : {false, true}) {
    const int sign = odd ? -1 : 1;
    const Hull b = StrictSide(bases, -1);
    const Hull e = OfParity(rising, odd);
    if (!b.IsEmpty() && !e.IsEmpty()) {
      const Hull side{Magnitude(b.lower, e.lower), Magnitude(b.upper, e.upper)};
      powers = Union(powers, WithSign(side, sign));
    }
    if (bases.Contains(-1) && !OfParity(inverse, odd).IsEmpty()) {
      powers = Union(powers, {sign, sign});
    }
  }
  return powers;
}

// Below 0 and from the saturating exponent on the bases depend on the exponent's parity alone, so
// that two exponents stand for all of these.
Hull Base(const Hull& x, const Hull& y, const Hull& z) {
  if (x.IsEmpty() || y.IsEmpty() || z.IsEmpty()) return kEmptyHull;
  const Hull exponents = Operand(y);
  const Hull powers = Operand(z);
  const std::int64_t first =
      std::max(exponents.lower, std::min<std::int64_t>(exponents.upper, -1) - 1);
  const std::int64_t last =
      std::min(exponents.upper, std::max(exponents.lower, kSaturatingExponent) + 1);
  Hull bases = kEmptyHull;
  for (std::int64_t e = first; e <= last && bases != x; ++e) {
    bases = Union(bases, BasesFor(x, e, powers));
  }
  return bases;
}

void SettlePower(Hull& x, std::int64_t exponent, Hull& z) {
  if (x.lower >= 0 && exponent > 0) return SettleRisingPower(x, exponent, z);
  const Hull exponents{exponent, exponent};
  for (;;) {
    z = Intersection(z, Power(x, exponents));
    if (z.IsEmpty() || x.IsFixed()) return;
    const Hull bases = Base(x, exponents, z);
    if (bases == x) return;
    x = bases;
  }
}

// For the same reason, and since a negative exponent has positive ones of its parity beside it, the
// ends of the hull are among the two outermost exponents on either side and 0 .. 61.
Hull Exponent(const Hull& x, const Hull& y, const Hull& z) {
  if (x.IsEmpty() || y.IsEmpty() || z.IsEmpty()) return kEmptyHull;
  const Hull exponents = Operand(y);
  const Hull powers = Operand(z);
  const auto is_solution = [&](std::int64_t e) { return !BasesFor(x, e, powers).IsEmpty(); };
  Hull solutions = kEmptyHull;
  const auto add_those_of = [&](std::int64_t from, std::int64_t to) {
    const Hull tried = Intersection(exponents, {from, to});
    for (std::int64_t e = tried.lower; e <= tried.upper; ++e) {
      if (is_solution(e)) solutions = Union(solutions, {e, e});
    }
  };
  add_those_of(exponents.lower, exponents.lower + 1);
  add_those_of(0, kSaturatingExponent + 1);
  add_those_of(exponents.upper - 1, exponents.upper);
  // Beyond every bound there are exponents of either parity.
  if (solutions.lower <= -kInfinite + 1) solutions.lower = -kInfinite;
  if (solutions.upper >= kInfinite - 1) solutions.upper = kInfinite;
  return Intersection(y, solutions);
}

}  // namespace kiv
