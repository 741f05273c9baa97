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
    blocks_.push_back(
        {begin, order_.size(), block.variable_choice, block.value_choice, std::nullopt});
    uses_activity_ |= block.variable_choice == VariableChoice::kActivity;
    uses_weights_ |= block.variable_choice == VariableChoice::kDomWDeg;
  }
  for (const VariableId variable : order_) {
    const KivOmbiAny& domain = network.GetDomain(variable);
    if (KivCast<KivOmbiInteger>(&domain) == nullptr &&
        KivCast<KivOmbiBoolean>(&domain) == nullptr) {
      throw std::invalid_argument("a variable that is no integer and no boolean");
    }
  }
  for (Block& block : blocks_) {
    const auto variables = std::span(order_).subspan(block.begin, block.end - block.begin);
    if (!VariableTournament::Suits(variables.size(), block.variable_choice)) continue;
    block.tournament.emplace(network, variables, block.variable_choice);
    has_tournaments_ = true;
  }
}

std::optional<Literal> Brancher::Decide(KivOmbNetwork& network, std::size_t& first_open) {
  if (has_tournaments_) NoteChanges(network);
  const auto second_cut = std::exchange(second_cut_, std::nullopt);
  const bool is_open =
      second_cut && !IsEntailed(network, *second_cut) && !IsImpossible(network, *second_cut);
  if (is_open) return second_cut;
  while (!IsEnd(first_open) && network.GetSummary(order_[first_open]).IsFixed()) ++first_open;
  for (Block& block : blocks_) {
    if (block.end <= first_open) continue;
    if (const auto variable = ChooseFrom(network, block, first_open)) {
      return Refutable(network, ChooseValue(network, *variable, block.value_choice, random_));
    }
  }
  return std::nullopt;
}

std::optional<KivOmbNetwork::VariableId> Brancher::ChooseFrom(const KivOmbNetwork& network,
                                                              Block& block,
                                                              std::size_t first_open) {
  if (block.tournament) return block.tournament->Choose(network, weights_, activity_);
  const std::size_t begin = std::max(first_open, block.begin);
  const auto open = std::span(order_).subspan(begin, block.end - begin);
  return ChooseVariable(network, open, block.variable_choice, weights_, activity_);
}

void Brancher::Disturb(VariableId variable) {
  for (Block& block : blocks_) {
    if (block.tournament) block.tournament->Disturb(variable);
  }
}

// Between two decisions the search takes levels back, down to that of the later one at least, and
// opens that one anew. What was noted at those changed back.
void Brancher::NoteChanges(const KivOmbNetwork& network) {
  const std::size_t level = network.GetLevel();
  for (; !changes_.empty() && changes_.back().level >= level; changes_.pop_back()) {
    for (; changed_.size() > changes_.back().begin; changed_.pop_back()) Disturb(changed_.back());
  }
  changes_.push_back({level, changed_.size()});
  network.VisitChanged([&](VariableId variable) {
    changed_.push_back(variable);
    Disturb(variable);
  });
}

Literal Brancher::Refutable(KivOmbNetwork& network, const Literal& decision) {
  const auto [variable, relation, value] = decision;
  if (relation != Literal::Relation::kEqual || CanLose(network, variable, value)) return decision;
  second_cut_ = Literal::AtLeast(variable, value);
  return Literal::AtMost(variable, value);
}

void Brancher::LearnFromFailure(const KivOmbNetwork& network) {
  second_cut_.reset();
  if (!uses_weights_) return;
  const auto culprit = network.GetCulprit();
  if (!culprit) return;
  weights_.Blame(network, *culprit);
  for (const VariableId variable : network.GetArguments(*culprit)) Disturb(variable);
}

}  // namespace kiv
