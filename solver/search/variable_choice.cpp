#include "solver/search/variable_choice.h"

#include <limits>

#include "framework/abstract_types/integer.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

using VariableId = KivOmbNetwork::VariableId;

// No open variable has a lesser rank; once it is found the others need no look.
VariableRank LeastRank(VariableChoice choice) {
  if (choice == VariableChoice::kInputOrder) return {0, 0};
  // Nothing that is open has fewer than two values.
  if (choice == VariableChoice::kFirstFail) return {2, 0};
  return {-std::numeric_limits<double>::infinity(), 0};
}

double RegretOf(const KivOmbNetwork& network, VariableId variable,
                const KivOmbiDomainSummary& summary) {
  if (summary.cardinality == 2) return static_cast<double>(summary.upper) - summary.lower;
  const auto& domain = static_cast<const KivOmbiInteger&>(network.GetDomain(variable));
  return static_cast<double>(domain.GetNextExactValue(summary.lower)) - summary.lower;
}

}  // namespace

bool IsSplittable(const KivOmbiDomainSummary& summary) {
  return summary.state == KivOmbiDomainSummary::kValues && summary.cardinality > 1 &&
         summary.lower > SubIntBase::kMin && summary.upper < SubIntBase::kMax;
}

VariableRank RankOf(const KivOmbNetwork& network, VariableId variable, VariableChoice choice,
                    const VariableWeights& weights, const VariableActivity& activity) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  const auto size = static_cast<double>(summary.cardinality);
  switch (choice) {
    case VariableChoice::kInputOrder:
      return {0, 0};
    case VariableChoice::kFirstFail:
      return {size, 0};
    case VariableChoice::kAntiFirstFail:
      return {-size, 0};
    case VariableChoice::kSmallest:
      return {static_cast<double>(summary.lower), 0};
    case VariableChoice::kLargest:
      return {-static_cast<double>(summary.upper), 0};
    case VariableChoice::kOccurrence:
      return {-static_cast<double>(weights.GetDegree(variable)), 0};
    case VariableChoice::kMostConstrained:
      return {size, -static_cast<double>(weights.GetDegree(variable))};
    case VariableChoice::kMaxRegret:
      return {-RegretOf(network, variable, summary), 0};
    case VariableChoice::kDomWDeg:
      // A variable without constraints comes last.
      return {size / static_cast<double>(weights.GetWeight(variable)), size};
    case VariableChoice::kActivity:
      break;
  }
  return {-activity.Get(variable) / size, size};
}

std::optional<VariableId> ChooseVariable(const KivOmbNetwork& network,
                                         std::span<const VariableId> candidates,
                                         VariableChoice choice, const VariableWeights& weights,
                                         const VariableActivity& activity) {
  const VariableRank least_possible = LeastRank(choice);
  std::optional<VariableId> chosen;
  VariableRank least{};
  for (const VariableId variable : candidates) {
    if (!IsSplittable(network.GetSummary(variable))) continue;
    const VariableRank rank = RankOf(network, variable, choice, weights, activity);
    if (chosen && rank >= least) continue;
    chosen = variable;
    least = rank;
    if (least <= least_possible) break;
  }
  return chosen;
}

}  // namespace kiv
