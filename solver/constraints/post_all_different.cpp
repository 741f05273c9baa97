#include "solver/constraints/post_all_different.h"

#include <algorithm>
#include <stdexcept>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/all_different.h"
#include "solver/constraints/all_different_bounds.h"
#include "solver/constraints/all_different_domain.h"

namespace kiv {

AllDifferentStrength ChooseStrength(const KivOmbNetwork& network,
                                    std::span<const KivOmbNetwork::VariableId> variables,
                                    const TermOffsets& offsets) {
  constexpr std::int64_t kMostTerms = 512;
  constexpr std::int64_t kFewValues = 64;
  const auto count = static_cast<std::int64_t>(variables.size());
  if (count <= 2) return AllDifferentStrength::kValues;
  if (count > kMostTerms) return AllDifferentStrength::kBounds;
  std::int64_t least = Hull::kUnbounded;
  std::int64_t greatest = -Hull::kUnbounded;
  for (unsigned i = 0; i < variables.size(); ++i) {
    const Hull hull = HullOf(network.GetSummary(variables[i]));
    least = std::min(least, hull.lower + OffsetOf(offsets, i));
    greatest = std::max(greatest, hull.upper + OffsetOf(offsets, i));
  }
  const std::int64_t values = greatest - least + 1;
  return values <= std::max(2 * count, kFewValues) ? AllDifferentStrength::kDomain
                                                   : AllDifferentStrength::kBounds;
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
