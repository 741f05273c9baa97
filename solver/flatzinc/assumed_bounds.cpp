#include "solver/flatzinc/assumed_bounds.h"

#include <algorithm>
#include <cstdlib>

#include "framework/intervals/sub_int_base.h"
#include "solver/search/literal.h"

namespace kiv::flatzinc {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// Far enough for what people count, near enough for relations such as x < y < x to find out that
// they contradict, bound by bound.
constexpr std::int64_t kUsualBound = 1'000'000;
constexpr std::int64_t kGreatestBound = SubIntBase::kMax - 1;

bool HasLower(const KivOmbiDomainSummary& summary) { return summary.lower > SubIntBase::kMin; }
bool HasUpper(const KivOmbiDomainSummary& summary) { return summary.upper < SubIntBase::kMax; }
bool IsUnbounded(const KivOmbiDomainSummary& summary) {
  return !summary.IsNil() && !(HasLower(summary) && HasUpper(summary));
}

std::int32_t ChooseBound(const KivOmbNetwork& network) {
  std::int64_t farthest = 0;
  const auto note = [&](std::int64_t bound) { farthest = std::max(farthest, std::abs(bound)); };
  for (VariableId variable = 0; variable < network.CountVariables(); ++variable) {
    const KivOmbiDomainSummary& summary = network.GetSummary(variable);
    if (HasLower(summary)) note(summary.lower);
    if (HasUpper(summary)) note(summary.upper);
  }
  return static_cast<std::int32_t>(std::min(std::max(kUsualBound, 2 * farthest), kGreatestBound));
}

// A bound that became known only since `bound` was chosen may lie beyond it.
AssumedBounds Assume(KivOmbNetwork& network, VariableId variable, std::int64_t bound) {
  const KivOmbiDomainSummary before = network.GetSummary(variable);
  AssumedBounds assumed{variable, !HasLower(before), !HasUpper(before), before.lower, before.upper};
  if (!assumed.below) bound = std::max(bound, 2 * std::abs(std::int64_t{before.lower}));
  if (!assumed.above) bound = std::max(bound, 2 * std::abs(std::int64_t{before.upper}));
  const auto limit = static_cast<std::int32_t>(std::min(bound, kGreatestBound));
  if (assumed.below) Impose(network, Literal::AtLeast(variable, assumed.lower = -limit));
  if (assumed.above) Impose(network, Literal::AtMost(variable, assumed.upper = limit));
  return assumed;
}

}  // namespace

std::vector<AssumedBounds> AssumeBounds(KivOmbNetwork& network,
                                        std::span<const VariableId> preferred) {
  std::vector<AssumedBounds> assumptions;
  std::int32_t bound = 0;  // chosen when it is needed
  const auto assume_where_needed = [&](VariableId variable) {
    if (!IsUnbounded(network.GetSummary(variable))) return true;
    if (bound == 0) bound = ChooseBound(network);
    assumptions.push_back(Assume(network, variable, bound));
    return network.Propagate() == KivOmbNetwork::Outcome::kFixpoint;
  };
  if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) return assumptions;
  if (!std::ranges::all_of(preferred, assume_where_needed)) return assumptions;
  for (VariableId variable = 0; variable < network.CountVariables(); ++variable) {
    if (!assume_where_needed(variable)) break;
  }
  return assumptions;
}

}  // namespace kiv::flatzinc
