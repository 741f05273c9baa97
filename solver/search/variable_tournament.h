#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "solver/search/variable_choice.h"

namespace kiv {

// The choice that ChooseVariable makes among many variables, without a look at each: pairs of them
// play, and then the winners of two games, up to one game that decides. A variable that may have
// changed plays again. A choice costs the changes since the last one, each times the logarithm of
// the number of variables.
class KIV_EXPORT VariableTournament {
 public:
  using VariableId = KivOmbNetwork::VariableId;

  // Whether a block of so many variables is large enough, and what the choice goes by changes with
  // the domains and the weights of the variables alone.
  static bool Suits(std::size_t variables, VariableChoice choice);

  // `candidates` must outlive the tournament. All have to play before the first choice.
  VariableTournament(const KivOmbNetwork& network, std::span<const VariableId> candidates,
                     VariableChoice choice);

  // The variable may have another rank, or be open no longer, or again.
  void Disturb(VariableId variable);
  std::optional<VariableId> Choose(const KivOmbNetwork& network, const VariableWeights& weights,
                                   const VariableActivity& activity);

 private:
  static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

  std::uint32_t Better(std::uint32_t left, std::uint32_t right) const;
  void PlayAgain(std::uint32_t place);

  std::span<const VariableId> candidates_;
  VariableChoice choice_;
  std::vector<std::uint32_t> place_of_;  // by variable: its first place among the candidates
  std::vector<VariableRank> ranks_;      // by place
  // The winner of game g is that of games 2g and 2g + 1; the places come last, in order. The winner
  // of game 1 is chosen.
  std::vector<std::uint32_t> winners_;
  std::vector<std::uint32_t> disturbed_;  // places
  std::vector<char> is_disturbed_;
};

}  // namespace kiv
