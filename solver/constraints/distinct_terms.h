#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/abstract_types/environment.h"

// Terms x[i] + c[i] that have to be pairwise different: what the strengths of all-different share.
namespace kiv {

// The constants c by position; none at all stands for zeros.
using TermOffsets = std::vector<std::int32_t>;

inline std::int64_t OffsetOf(const TermOffsets& offsets, unsigned i) {
  return offsets.empty() ? 0 : offsets[i];
}

// Whether the terms differ for these values of x: the ground truth.
bool AreDistinct(std::span<const std::int64_t> values, const TermOffsets& offsets);

// How the variables of a constraint repeat.
struct Repetition {
  bool of_variables = false;  // some variable stands in two terms
  bool of_terms = false;      // with the same constant, so that the two are equal
};

// Cost O(n log n), and memory.
Repetition FindRepetition(const KivOmbiObjectEnvironment& environment, const TermOffsets& offsets);

}  // namespace kiv
