// The residue classes come from the extended Euclidean algorithm (Donald E. Knuth, 1997, The Art of
// Computer Programming, volume 2, section 4.5.2).

#include "solver/constraints/linear_congruence.h"

#include <numeric>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

namespace {

// The number of 0 .. modulus - 1 whose product with `number` leaves 1; the two have no common
// divisor, modulus > 1.
Int128 InverseOf(Int128 number, Int128 modulus) {
  // In each row, factor * number leaves `remainder`.
  Int128 remainder = Modulo(number, modulus);
  Int128 next_remainder = modulus;
  Int128 factor = 1;
  Int128 next_factor = 0;
  while (next_remainder != 0) {
    const Int128 quotient = remainder / next_remainder;
    remainder = std::exchange(next_remainder, remainder - quotient * next_remainder);
    factor = std::exchange(next_factor, factor - quotient * next_factor);
  }
  return Modulo(factor, modulus);
}

// Argument i is `residue` modulo `modulus`.
KivOmbiFilterResult NarrowToResidue(const KivOmbiObjectEnvironment& environment, unsigned i,
                                    Int128 residue, Int128 modulus) {
  const Hull hull = HullOf(environment.Summary(i));
  if (hull.lower > -Hull::kUnbounded) {
    const Int128 least = hull.lower + Modulo(residue - hull.lower, modulus);
    if (const auto result = TightenLower(environment, i, ToHullBound(least))) return result;
  }
  if (hull.upper < Hull::kUnbounded) {
    const Int128 most = hull.upper - Modulo(hull.upper - residue, modulus);
    return TightenUpper(environment, i, ToHullBound(most));
  }
  return 0;
}

}  // namespace

KivOmbiFilterResult NarrowToCongruent(const KivOmbiObjectEnvironment& environment,
                                      const ArgumentTerm& x, const ArgumentTerm& y, Int128 sum) {
  const std::int64_t divisor = std::gcd(x.coefficient, y.coefficient);
  if (sum % divisor != 0) return Empty(environment, x.argument);
  const Int128 rest = sum / divisor;
  for (const auto& [term, other] : {std::pair{x, y}, std::pair{y, x}}) {
    const std::int64_t quotient = other.coefficient / divisor;
    const Int128 modulus = quotient < 0 ? -static_cast<Int128>(quotient) : quotient;
    if (modulus == 1) continue;
    const Int128 residue =
        Modulo(Modulo(rest, modulus) * InverseOf(term.coefficient / divisor, modulus), modulus);
    if (const auto result = NarrowToResidue(environment, term.argument, residue, modulus)) {
      return result;
    }
  }
  return 0;
}

}  // namespace kiv
