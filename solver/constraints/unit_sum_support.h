#pragma once

#include <cstdint>
#include <optional>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_sum.h"

namespace kiv {

// What NarrowToSupported does, for a sum of two or three terms with coefficients 1 and -1 over
// domains whose values lie close together, so that sets of values are words of bits and the values
// that one value of a term leaves for the others are found by shifting them. None, with nothing
// done, for other sums, and where a kind does not list its values.
std::optional<KivOmbiFilterResult> NarrowUnitSumToSupported(
    const KivOmbiObjectEnvironment& environment, const LinearSum& sum, std::int64_t constant,
    std::uint64_t most_pairs);

}  // namespace kiv
