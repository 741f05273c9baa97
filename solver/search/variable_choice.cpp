#include "solver/search/variable_choice.h"

#include <limits>

#include "framework/abstract_types/integer.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

using VariableId = KivOmbNetwork::VariableId;

// The lesser comes first: `first` decides, then `second`.
struct Rank {
  double first;
  double second;

  friend auto operator<=>(const Rank&, const Rank&) = default;
};

// No rank is less; once it is found the others need no look.
constexpr Rank kNoLimit{-std::numeric_limits<double>::infinity(), 0};

template <class RankOf>
std::optional<VariableId> ChooseLeast(const KivOmbNetwork& network,
                                      std::span<const VariableId> candidates, Rank least_possible,
                                      RankOf&& rank_of) {
  std::optional<VariableId> chosen;
  Rank least{};
  for (const VariableId variable : candidates) {
    const KivOmbiDomainSummary& summary = network.GetSummary(variable);
    if (!IsSplittable(summary)) continue;
    const Rank rank = rank_of(variable, summary);
    if (chosen && rank >= least) continue;
    chosen = variable;
    least = rank;
    if (least <= least_possible) break;
  }
  return chosen;
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

std::optional<VariableId> ChooseVariable(const KivOmbNetwork& network,
                                         std::span<const VariableId> candidates,
                                         VariableChoice choice, const VariableWeights& weights,
                                         const VariableActivity& activity) {
  using Summary = KivOmbiDomainSummary;
  const auto least = [&](Rank least_possible, auto&& rank_of) {
    return ChooseLeast(network, candidates, least_possible, rank_of);
  };
  const auto size_of = [](const Summary& summary) {
    return static_cast<double>(summary.cardinality);
  };
  switch (choice) {
    case VariableChoice::kInputOrder:
      return least({0, 0}, [](VariableId, const Summary&) { return Rank{0, 0}; });
    case VariableChoice::kFirstFail:
      // Nothing that is open has fewer than two values.
      return least({2, 0}, [&](VariableId, const Summary& summary) {
        return Rank{size_of(summary), 0};
      });
    case VariableChoice::kAntiFirstFail:
      return least(kNoLimit, [&](VariableId, const Summary& summary) {
        return Rank{-size_of(summary), 0};
      });
    case VariableChoice::kSmallest:
      return least(kNoLimit, [](VariableId, const Summary& summary) {
        return Rank{static_cast<double>(summary.lower), 0};
      });
    case VariableChoice::kLargest:
      return least(kNoLimit, [](VariableId, const Summary& summary) {
        return Rank{-static_cast<double>(summary.upper), 0};
      });
    case VariableChoice::kOccurrence:
      return least(kNoLimit, [&](VariableId id, const Summary&) {
        return Rank{-static_cast<double>(weights.GetDegree(id)), 0};
      });
    case VariableChoice::kMostConstrained:
      return least(kNoLimit, [&](VariableId id, const Summary& summary) {
        return Rank{size_of(summary), -static_cast<double>(weights.GetDegree(id))};
      });
    case VariableChoice::kMaxRegret:
      return least(kNoLimit, [&](VariableId id, const Summary& summary) {
        return Rank{-RegretOf(network, id, summary), 0};
      });
    case VariableChoice::kDomWDeg:
      // A variable without constraints comes last.
      return least(kNoLimit, [&](VariableId id, const Summary& summary) {
        return Rank{size_of(summary) / static_cast<double>(weights.GetWeight(id)),
                    size_of(summary)};
      });
    case VariableChoice::kActivity:
      break;
  }
  return least(kNoLimit, [&](VariableId id, const Summary& summary) {
    return Rank{-activity.Get(id) / size_of(summary), size_of(summary)};
  });
}

}  // namespace kiv
