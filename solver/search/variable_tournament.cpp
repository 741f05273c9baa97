#include "solver/search/variable_tournament.h"

#include <bit>

namespace kiv {

// Activities fade, so that ranks change where no domain does.
bool VariableTournament::Suits(std::size_t variables, VariableChoice choice) {
  constexpr std::size_t kMany = 256;
  return variables >= kMany && choice != VariableChoice::kInputOrder &&
         choice != VariableChoice::kActivity;
}

VariableTournament::VariableTournament(const KivOmbNetwork& network,
                                       std::span<const VariableId> candidates,
                                       VariableChoice choice)
    : candidates_(candidates),
      choice_(choice),
      place_of_(network.CountVariables(), kNobody),
      ranks_(candidates.size()),
      winners_(2 * std::bit_ceil(candidates.size()), kNobody),
      is_disturbed_(candidates.size(), 0) {
  for (std::uint32_t place = 0; place < candidates.size(); ++place) {
    const VariableId variable = candidates[place];
    if (place_of_[variable] == kNobody) place_of_[variable] = place;
    Disturb(variable);
  }
}

void VariableTournament::Disturb(VariableId variable) {
  const std::uint32_t place = place_of_[variable];
  if (place == kNobody || is_disturbed_[place] != 0) return;
  is_disturbed_[place] = 1;
  disturbed_.push_back(place);
}

std::optional<KivOmbNetwork::VariableId> VariableTournament::Choose(
    const KivOmbNetwork& network, const VariableWeights& weights,
    const VariableActivity& activity) {
  const std::size_t first_place = winners_.size() / 2;
  for (const std::uint32_t place : disturbed_) {
    is_disturbed_[place] = 0;
    const VariableId variable = candidates_[place];
    const bool is_open = IsSplittable(network.GetSummary(variable));
    if (is_open) ranks_[place] = RankOf(network, variable, choice_, weights, activity);
    winners_[first_place + place] = is_open ? place : kNobody;
    PlayAgain(place);
  }
  disturbed_.clear();
  const std::uint32_t winner = winners_[1];
  return winner == kNobody ? std::nullopt : std::optional(candidates_[winner]);
}

// Among equals the first in order, which is on the left.
std::uint32_t VariableTournament::Better(std::uint32_t left, std::uint32_t right) const {
  if (left == kNobody) return right;
  if (right == kNobody) return left;
  return ranks_[right] < ranks_[left] ? right : left;
}

void VariableTournament::PlayAgain(std::uint32_t place) {
  for (std::size_t game = (winners_.size() / 2 + place) / 2; game > 0; game /= 2) {
    const std::uint32_t winner = Better(winners_[2 * game], winners_[2 * game + 1]);
    // Who won before wins again and is as good as before, so that the games above end as before.
    if (winner == winners_[game] && winner != place) return;
    winners_[game] = winner;
  }
}

}  // namespace kiv
