#include "solver/search/brancher.h"

#include <algorithm>
#include <span>
#include <stdexcept>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"

namespace kiv {

Brancher::Brancher(const KivOmbNetwork& network, const Strategy& strategy, std::uint64_t seed)
    : weights_(network), activity_(network), random_(seed) {
  for (const StrategyBlock& block : Completed(strategy, network)) {
    const std::size_t begin = order_.size();
    order_.insert(order_.end(), block.variables.begin(), block.variables.end());
    blocks_.push_back({begin, order_.size(), block.variable_choice, block.value_choice});
    uses_activity_ |= block.variable_choice == VariableChoice::kActivity;
  }
  for (const VariableId variable : order_) {
    const KivOmbiAny& domain = network.GetDomain(variable);
    if (KivCast<KivOmbiInteger>(&domain) == nullptr &&
        KivCast<KivOmbiBoolean>(&domain) == nullptr) {
      throw std::invalid_argument("a variable that is no integer and no boolean");
    }
  }
}

std::optional<Literal> Brancher::Decide(KivOmbNetwork& network, std::size_t& first_open) {
  while (!IsEnd(first_open) && network.GetSummary(order_[first_open]).IsFixed()) ++first_open;
  for (const Block& block : blocks_) {
    if (block.end <= first_open) continue;
    const std::size_t begin = std::max(first_open, block.begin);
    const auto open = std::span(order_).subspan(begin, block.end - begin);
    const auto variable = ChooseVariable(network, open, block.variable_choice, weights_, activity_);
    if (variable) return ChooseValue(network, *variable, block.value_choice, random_);
  }
  return std::nullopt;
}

void Brancher::Learn(const KivOmbNetwork& network, KivOmbNetwork::Outcome outcome) {
  if (uses_activity_) activity_.NoteChanges(network);
  const auto culprit = network.GetCulprit();
  if (outcome == KivOmbNetwork::Outcome::kContradiction && culprit) {
    weights_.Blame(network, *culprit);
  }
}

}  // namespace kiv
