#include "solver/constraints/post_all_different.h"

#include <algorithm>
#include <stdexcept>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/all_different.h"
#include "solver/constraints/all_different_bounds.h"
#include "solver/constraints/all_different_domain.h"
#include "solver/constraints/value_bits.h"

namespace kiv {

AllDifferentStrength ChooseStrength(std::int64_t terms, std::int64_t values) {
  constexpr std::int64_t kMostTerms = 512;
  if (terms <= 2) return AllDifferentStrength::kValues;
  return terms <= kMostTerms && values <= kWidestBitWindow ? AllDifferentStrength::kDomain
                                                           : AllDifferentStrength::kBounds;
}

AllDifferentStrength ChooseStrength(const KivOmbNetwork& network,
                                    std::span<const KivOmbNetwork::VariableId> variables,
                                    const TermOffsets& offsets) {
  if (variables.empty()) return ChooseStrength(0, 0);
  std::int64_t least = 2 * Hull::kUnbounded;
  std::int64_t greatest = -least;
  for (unsigned i = 0; i < variables.size(); ++i) {
    const Hull hull = HullOf(network.GetSummary(variables[i]));
    least = std::min(least, hull.lower + OffsetOf(offsets, i));
    greatest = std::max(greatest, hull.upper + OffsetOf(offsets, i));
  }
  return ChooseStrength(static_cast<std::int64_t>(variables.size()), greatest - least + 1);
}

std::vector<KivOmbNetwork::ConstraintId> PostAllDifferent(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> variables,
    AllDifferentStrength strength, const TermOffsets& offsets) {
  if (!offsets.empty() && offsets.size() != variables.size()) {
    throw std::invalid_argument("all_different: one offset for each variable, or none");
  }
  if (strength == AllDifferentStrength::kAutomatic) {
    strength = ChooseStrength(network, variables, offsets);
  }
  std::vector posted{network.Emplace<AllDifferent>(variables, offsets)};
  if (strength == AllDifferentStrength::kBounds) {
    posted.push_back(network.Emplace<AllDifferentBounds>(variables, offsets));
  }
  if (strength == AllDifferentStrength::kDomain) {
    posted.push_back(network.Emplace<AllDifferentDomain>(variables, offsets));
  }
  return posted;
}

}  // namespace kiv
