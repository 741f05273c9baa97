#pragma once

#include <vector>

#include "framework/networks/network.h"
#include "solver/search/value_choice.h"
#include "solver/search/variable_choice.h"

namespace kiv {

// Variables that are split while any of them can be, and how.
struct StrategyBlock {
  std::vector<KivOmbNetwork::VariableId> variables;
  VariableChoice variable_choice = VariableChoice::kInputOrder;
  ValueChoice value_choice = ValueChoice::kSmallest;
};

// The blocks one after the other. A search adds to them what they leave out.
using Strategy = std::vector<StrategyBlock>;

// The smallest of the domains of `decisions` is bisected, its lower half first.
KIV_EXPORT Strategy BisectionStrategy(std::vector<KivOmbNetwork::VariableId> decisions);

// `strategy` and behind it a block that bisects the variables of the network that it does not name,
// so that a search can come to leaves at which nothing is open.
KIV_EXPORT Strategy Completed(Strategy strategy, const KivOmbNetwork& network);

}  // namespace kiv
