#pragma once

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

// What kAutomatic stands for, by the domains as they are now: kValues for two terms, which it makes
// domain consistent; kDomain for at most 512 terms that share few values, at most twice as many as
// there are terms or at most 64; kBounds otherwise. With many values to spare a matching finds
// little that bounds do not, and costs more.
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
