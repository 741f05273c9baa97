#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

#include "framework/networks/network.h"
#include "solver/search/literal.h"
#include "solver/search/strategy.h"
#include "solver/search/variable_activity.h"
#include "solver/search/variable_tournament.h"
#include "solver/search/variable_weights.h"

namespace kiv {

// Takes the decisions of one search by a strategy, and learns on the way what its choices go by.
class KIV_EXPORT Brancher {
 public:
  using VariableId = KivOmbNetwork::VariableId;

  // The strategy is completed. All variables of the network must be integers or booleans; throws
  // std::invalid_argument.
  Brancher(const KivOmbNetwork& network, const Strategy& strategy, std::uint64_t seed);
  Brancher(const Brancher&) = delete;
  Brancher& operator=(const Brancher&) = delete;

  // The decision to take at a fixpoint; none at a leaf, where nothing can be split. The variables
  // before place `first_open` of the order are known to be fixed; it is moved up to the first that
  // is not.
  std::optional<Literal> Decide(KivOmbNetwork& network, std::size_t& first_open);
  // Whether this place, as Decide left it, is behind all variables: none is open or unknown.
  bool IsEnd(std::size_t first_open) const noexcept { return first_open == order_.size(); }
  // Whether all variables that the strategy names stand before this place.
  bool IsBehindStrategy(std::size_t first_open) const noexcept {
    return first_open >= blocks_.back().begin;
  }

  // To be called at each node after its propagation, with what that came to.
  void Learn(const KivOmbNetwork& network, KivOmbNetwork::Outcome outcome) {
    if (uses_activity_) activity_.NoteChanges(network);
    if (outcome == KivOmbNetwork::Outcome::kContradiction) LearnFromFailure(network);
  }
  // Whether its choices go by what changed at each node, so that every node needs a level of the
  // network, in which nothing else changed.
  bool FollowsChanges() const noexcept { return uses_activity_ || has_tournaments_; }

 private:
  struct Block {
    std::size_t begin;  // of its variables in the order
    std::size_t end;
    VariableChoice variable_choice;
    ValueChoice value_choice;
    std::optional<VariableTournament> tournament;  // of a large block
  };
  // The variables that changed at a level, up to the next one's.
  struct Changes {
    std::size_t level;
    std::size_t begin;  // in changed_
  };

  std::optional<VariableId> ChooseFrom(const KivOmbNetwork& network, Block& block,
                                       std::size_t first_open);
  void LearnFromFailure(const KivOmbNetwork& network);
  void Disturb(VariableId variable);
  void NoteChanges(const KivOmbNetwork& network);

  // The decision to fix a variable to a value as far as its kind can refute it: an interval that
  // could not lose an inner value is cut above it first, and below it by the next decision.
  Literal Refutable(KivOmbNetwork& network, const Literal& decision);

  std::vector<VariableId> order_;  // the variables of all blocks; one may stand there twice
  std::vector<Block> blocks_;
  VariableWeights weights_;
  VariableActivity activity_;
  bool uses_activity_ = false;
  bool uses_weights_ = false;
  bool has_tournaments_ = false;
  // What changed since the root of the search, for the tournaments: it is as before again once the
  // level is taken back.
  std::vector<Changes> changes_;
  std::vector<VariableId> changed_;
  std::optional<Literal> second_cut_;  // that goes with the last decision
  std::mt19937_64 random_;
};

}  // namespace kiv
