#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_sum.h"

namespace kiv {

// Sums of at most so many terms are looked at value by value.
inline constexpr unsigned kMostSupportedTerms = 3;

// The most pairs of values that are tried. Two domains of 64 values make so many, which takes about
// as long as twenty runs of a constraint over bounds; see bench/README.md.
inline constexpr std::uint64_t kMostPairs = 4096;

// sum = constant, of at most kMostSupportedTerms terms that are at their fixpoint by bounds: keeps
// of each argument the values that are part of a solution over the domains, as far as its kind can
// lose the others; of an argument with too many values to list, the bounds of such values. An
// unknown argument takes its values from the others. Does nothing where the two smaller domains
// have more than kMostPairs pairs of values. Once it ran, running again would change nothing.
KivOmbiFilterResult NarrowToSupported(const KivOmbiObjectEnvironment& environment,
                                      const LinearSum& sum, Int128 constant);

// Whether sum = constant has a solution over the domains, where the bounds of the sum admit one;
// true where that would take more than kMostPairs pairs of values.
bool HasSupport(const KivOmbiObjectEnvironment& environment, const LinearSum& sum, Int128 constant);

}  // namespace kiv
