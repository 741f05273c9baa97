#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "framework/networks/network.h"
#include "solver/search/search_options.h"
#include "tests/support/enumeration.h"

namespace kiv::test {

// A small random network of integers of all kinds and booleans under random constraints, and what
// brute force finds in it. Some variables may start Any; the others fix them.
struct RandomModel {
  explicit RandomModel(std::uint64_t seed);

  // Builds the network anew; its variables are numbered from 0.
  void Build(KivOmbNetwork& network) const;
  // Sorted.
  std::vector<Assignment> Solve() const;

  std::vector<Declared> variables;
  std::vector<Values> domains;  // of the variables; for one that starts Any, those worth trying
  std::vector<std::function<void(KivOmbNetwork&)>> posts;
  std::vector<std::function<bool(const Assignment&)>> meanings;
};

inline constexpr VariableChoice kVariableChoices[] = {
    VariableChoice::kInputOrder, VariableChoice::kFirstFail, VariableChoice::kAntiFirstFail,
    VariableChoice::kSmallest,   VariableChoice::kLargest,   VariableChoice::kMostConstrained,
    VariableChoice::kOccurrence, VariableChoice::kMaxRegret, VariableChoice::kDomWDeg,
    VariableChoice::kActivity};
inline constexpr ValueChoice kValueChoices[] = {
    ValueChoice::kSmallest,    ValueChoice::kGreatest,     ValueChoice::kButSmallest,
    ValueChoice::kButGreatest, ValueChoice::kLowerHalf,    ValueChoice::kUpperHalf,
    ValueChoice::kUpToMiddle,  ValueChoice::kBeyondMiddle, ValueChoice::kUpToFirstGap,
    ValueChoice::kMiddle,      ValueChoice::kMedian,       ValueChoice::kRandom,
    ValueChoice::kFromBelow};
inline constexpr RestartPolicy kRestartPolicies[] = {{RestartPolicy::Kind::kNone, 1, 1},
                                                     {RestartPolicy::Kind::kConstant, 1, 1},
                                                     {RestartPolicy::Kind::kLinear, 1, 1},
                                                     {RestartPolicy::Kind::kGeometric, 1, 1.5},
                                                     {RestartPolicy::Kind::kLuby, 1, 1}};

// Calls `check(options)` for every variable choice, value choice and restart policy, and traces
// which they are. `decisions` are in the one block of the strategy.
void ForEachSearch(const std::vector<KivOmbNetwork::VariableId>& decisions,
                   const std::function<void(const SearchOptions&)>& check);

// The values of all variables as the network holds them now; of one that is not fixed the lower
// bound.
Assignment ValuesNow(const KivOmbNetwork& network);

}  // namespace kiv::test
