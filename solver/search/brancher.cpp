#include "solver/search/brancher.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"

namespace kiv {

namespace {

// Whether the kind of a variable lets it lose this value.
bool CanLose(KivOmbNetwork& network, KivOmbNetwork::VariableId variable, std::int32_t value) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  if (value == summary.lower || value == summary.upper) return true;
  if (network.GetKind(variable).HoldsGaps()) return true;
  auto& copy = static_cast<KivOmbiInteger&>(network.Scratch(network.GetKind(variable), 0));
  copy.Assign(network.GetDomain(variable));
  return copy.RemoveExactValue(value) != 0;
}

}  // namespace

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
  const auto second_cut = std::exchange(second_cut_, std::nullopt);
  const bool is_open =
      second_cut && !IsEntailed(network, *second_cut) && !IsImpossible(network, *second_cut);
  if (is_open) return second_cut;
  while (!IsEnd(first_open) && network.GetSummary(order_[first_open]).IsFixed()) ++first_open;
  for (const Block& block : blocks_) {
    if (block.end <= first_open) continue;
    const std::size_t begin = std::max(first_open, block.begin);
    const auto open = std::span(order_).subspan(begin, block.end - begin);
    const auto variable = ChooseVariable(network, open, block.variable_choice, weights_, activity_);
    if (!variable) continue;
    return Refutable(network, ChooseValue(network, *variable, block.value_choice, random_));
  }
  return std::nullopt;
}

Literal Brancher::Refutable(KivOmbNetwork& network, const Literal& decision) {
  const auto [variable, relation, value] = decision;
  if (relation != Literal::Relation::kEqual || CanLose(network, variable, value)) return decision;
  second_cut_ = Literal::AtLeast(variable, value);
  return Literal::AtMost(variable, value);
}

void Brancher::Learn(const KivOmbNetwork& network, KivOmbNetwork::Outcome outcome) {
  if (uses_activity_) activity_.NoteChanges(network);
  if (outcome != KivOmbNetwork::Outcome::kContradiction) return;
  second_cut_.reset();
  if (const auto culprit = network.GetCulprit()) weights_.Blame(network, *culprit);
}

}  // namespace kiv
