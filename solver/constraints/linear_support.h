#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_sum.h"

namespace kiv {

// Sums of at most so many terms are looked at value by value.
inline constexpr unsigned kMostSupportedTerms = 3;

// The most pairs of values that are tried: those of two domains of 64 values. Full enumerations of
// x + y = z over sparse domains take 1.8 times as long by bounds alone with 16 values each, 1.5
// times with 64 and 1.1 times with 250, so that beyond the limit little is gained by the longer
// runs (see sparse_sum of bench/linear.cpp).
inline constexpr std::uint64_t kMostPairs = 4096;

// All pairs of values of two domains that list them.
inline constexpr std::uint64_t kAllPairs = 1024 * 1024;

// sum = constant, both limits of it, of at most kMostSupportedTerms terms that are at their
// fixpoint by bounds: keeps of each argument the values that are part of a solution over the
// domains, as far as its kind can lose the others; of an argument with too many values to list, the
// bounds of such values. An unknown argument takes its values from the others. Does nothing where
// the two smaller domains have more than `most_pairs` pairs of values. Once it ran, running again
// would change nothing.
KivOmbiFilterResult NarrowToSupported(const KivOmbiObjectEnvironment& environment,
                                      const LinearSum& sum, const LinearSum::Limits& limits,
                                      std::uint64_t most_pairs);

// Whether the same equation has a solution over the domains, where the bounds of the sum admit one;
// true where that would take more than kMostPairs pairs of values.
bool HasSupport(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                const LinearSum::Limits& limits);

}  // namespace kiv
