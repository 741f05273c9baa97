#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/networks/network.h"
#include "solver/constraints/distinct_terms.h"

namespace kiv {

enum class AllDifferentStrength {
  kAutomatic,
  kValues,  // AllDifferent alone: fixed values are removed from the others
  kBounds,  // and AllDifferentBounds
  kDomain,  // and AllDifferentDomain
};

// The strength that suits so many terms with so many values among them: kValues for two terms,
// which it makes domain consistent; kDomain for at most 512 terms whose values fit a window of
// bits, where a matching costs no more than bounds and finds more; kBounds otherwise.
KIV_EXPORT AllDifferentStrength ChooseStrength(std::int64_t terms, std::int64_t values);

// What kAutomatic stands for: the choice for the hull of all terms, by the domains as they are now.
KIV_EXPORT AllDifferentStrength ChooseStrength(const KivOmbNetwork& network,
                                               std::span<const KivOmbNetwork::VariableId> variables,
                                               const TermOffsets& offsets = {});

// Posts that the terms variables[i] + offsets[i] are pairwise different (no offsets: all zero) and
// returns the constraints posted, the cheapest first. A variable that is repeated with the same
// offset is a contradiction. Throws std::invalid_argument when there are offsets, but not as many
// as variables.
KIV_EXPORT std::vector<KivOmbNetwork::ConstraintId> PostAllDifferent(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> variables,
    AllDifferentStrength strength = AllDifferentStrength::kAutomatic,
    const TermOffsets& offsets = {});

}  // namespace kiv
