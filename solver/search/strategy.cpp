#include "solver/search/strategy.h"

#include <utility>

namespace kiv {

Strategy BisectionStrategy(std::vector<KivOmbNetwork::VariableId> decisions) {
  return {{std::move(decisions), VariableChoice::kFirstFail, ValueChoice::kLowerHalf}};
}

Strategy Completed(Strategy strategy, const KivOmbNetwork& network) {
  std::vector<bool> named(network.CountVariables(), false);
  for (const StrategyBlock& block : strategy) {
    for (const auto variable : block.variables) named[variable] = true;
  }
  std::vector<KivOmbNetwork::VariableId> others;
  for (KivOmbNetwork::VariableId variable = 0; variable < named.size(); ++variable) {
    if (!named[variable]) others.push_back(variable);
  }
  strategy.push_back(BisectionStrategy(std::move(others)).front());
  return strategy;
}

}  // namespace kiv
