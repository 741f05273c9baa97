#pragma once

#include <compare>
#include <optional>
#include <span>

#include "framework/networks/network.h"
#include "solver/search/variable_activity.h"
#include "solver/search/variable_weights.h"

namespace kiv {

// Which of several open variables is split next. Among equals the first in order.
enum class VariableChoice {
  kInputOrder,       // the first
  kFirstFail,        // fewest values
  kAntiFirstFail,    // most values
  kSmallest,         // least lower bound
  kLargest,          // greatest upper bound
  kOccurrence,       // most constraints
  kMostConstrained,  // fewest values, then most constraints
  kMaxRegret,        // widest gap between its two smallest values
  kDomWDeg,          // fewest values for the weight of its constraints, then fewest values
  kActivity,         // most active for its number of values, then fewest values
};

// Only a domain of several values between finite bounds is split.
KIV_EXPORT bool IsSplittable(const KivOmbiDomainSummary& summary);

// What a choice goes by: the lesser comes first. `first` decides, then `second`.
struct VariableRank {
  double first;
  double second;

  friend auto operator<=>(const VariableRank&, const VariableRank&) = default;
};

// The rank of a variable that can be split.
KIV_EXPORT VariableRank RankOf(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable,
                               VariableChoice choice, const VariableWeights& weights,
                               const VariableActivity& activity);

// The variable among `candidates` to split next; none when none of them can be split.
KIV_EXPORT std::optional<KivOmbNetwork::VariableId> ChooseVariable(
    const KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> candidates,
    VariableChoice choice, const VariableWeights& weights, const VariableActivity& activity);

}  // namespace kiv
