#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/wide_integer.h"

namespace kiv {

// coefficient * the argument of this number
struct ArgumentTerm {
  unsigned argument;
  std::int64_t coefficient;
};

// Where x + y = sum, two integer terms with coefficients that are not 0: moves the bounds of either
// argument inwards to the nearest integer for which the other term has an integer argument, within
// its domain or not. Such integers are a residue class of the other's coefficient. Takes time
// logarithmic in the coefficients, where bounds that only follow each other may need as many steps
// as there are values.
KivOmbiFilterResult NarrowToCongruent(const KivOmbiObjectEnvironment& environment,
                                      const ArgumentTerm& x, const ArgumentTerm& y, Int128 sum);

}  // namespace kiv
