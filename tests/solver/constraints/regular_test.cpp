#include "solver/constraints/regular.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

struct Automaton {
  unsigned states;
  std::vector<Regular::Arc> arcs;
  unsigned start;
  std::vector<unsigned> accepting;
};

// By following every path.
bool Accepts(const Automaton& automaton, const Assignment& word) {
  std::vector<std::pair<std::size_t, unsigned>> open{{0, automaton.start}};
  while (!open.empty()) {
    const auto [read, state] = open.back();
    open.pop_back();
    if (read == word.size()) {
      if (std::ranges::find(automaton.accepting, state) != automaton.accepting.end()) return true;
      continue;
    }
    for (const Regular::Arc& arc : automaton.arcs) {
      if (arc.from == state && arc.symbol == word[read]) open.push_back({read + 1, arc.to});
    }
  }
  return false;
}

Automaton RandomAutomaton(Generator& random, bool large) {
  // More than 64 states need several words.
  const unsigned states = large ? 130 : static_cast<unsigned>(Pick(random, 1, 4));
  const auto state = [&] {
    return large && OneIn(random, 2) ? 127 + static_cast<unsigned>(Pick(random, 0, 2))
                                     : static_cast<unsigned>(Pick(random, 0, 3)) % states;
  };
  Automaton automaton{states, {}, state(), {}};
  const int arcs = Pick(random, 0, large ? 20 : 9);
  for (int i = 0; i < arcs; ++i) automaton.arcs.push_back({state(), Pick(random, -1, 3), state()});
  const int accepting = Pick(random, 0, 3);
  for (int i = 0; i < accepting; ++i) automaton.accepting.push_back(state());
  return automaton;
}

ConstraintCase RegularCase(RandomCase& chosen, const Automaton& automaton) {
  return chosen.Finish(
      "regular", chosen.Repeats() || !chosen.AreSets() ? Strength::kWeaker : Strength::kDomain,
      [=](KivOmbNetwork& network, auto arguments) {
        network.Emplace<Regular>(arguments, automaton.states, automaton.arcs, automaton.start,
                                 automaton.accepting);
      },
      [=](const Assignment& values) { return Accepts(automaton, values); });
}

TEST(Regular, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    RandomCase chosen(random);
    const Automaton automaton = RandomAutomaton(random, OneIn(random, 8));
    const int length = Pick(random, 0, 5);
    for (int i = 0; i < length; ++i) chosen.AddTerm(Range(-2, 4), 5, OneIn(random, 6) ? 3 : 0);
    return RegularCase(chosen, automaton);
  });
}

std::vector<VariableId> DeclareAll(KivOmbNetwork& network, const std::vector<Values>& domains) {
  std::vector<VariableId> variables;
  for (const Values& values : domains) {
    variables.push_back(Declare(network, {Kind("enum int"), values}));
  }
  return variables;
}

// Runs of at least two ones, ended by a zero or the end.
TEST(Regular, ANeighbourOfAnIsolatedSymbolFollows) {
  KivOmbNetwork network;
  const auto x = DeclareAll(network, {{0}, Range(0, 1), {1}, Range(0, 1), {0}});
  const std::vector<Regular::Arc> arcs{{0, 0, 0}, {0, 1, 1}, {1, 1, 2}, {2, 1, 2}, {2, 0, 0}};
  network.Emplace<Regular>(x, 3u, arcs, 0u, std::vector{0u, 2u});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "0; { 0, 1 }; 1; { 0, 1 }; 0");
  Restrict(network, x[3], {0});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "0; 1; 1; 0; 0");
}

TEST(Regular, TheEmptyWordEndsWhereItStarts) {
  KivOmbNetwork accepted;
  accepted.Emplace<Regular>(std::vector<VariableId>{}, 2u, std::vector<Regular::Arc>{}, 1u,
                            std::vector{1u});
  EXPECT_EQ(accepted.Propagate(), Outcome::kFixpoint);
  KivOmbNetwork refused;
  refused.Emplace<Regular>(std::vector<VariableId>{}, 2u, std::vector<Regular::Arc>{}, 1u,
                           std::vector{0u});
  EXPECT_EQ(refused.Propagate(), Outcome::kContradiction);
}

TEST(Regular, RefusesAStateThatItDoesNotHave) {
  EXPECT_THROW(Regular(2, {}, 2, {}), std::invalid_argument);
  EXPECT_THROW(Regular(2, {}, 0, {2}), std::invalid_argument);
  EXPECT_THROW(Regular(2, {{0, 5, 2}}, 0, {}), std::invalid_argument);
  EXPECT_THROW(Regular(2, {{2, 5, 0}}, 0, {}), std::invalid_argument);
}

TEST(Regular, TellsItsGroundTruthBeyond32Bits) {
  const Regular regular(1, {{0, 1, 0}}, 0, {0});
  EXPECT_TRUE(regular.Holds(std::array<std::int64_t, 2>{1, 1}));
  EXPECT_FALSE(regular.Holds(std::array<std::int64_t, 2>{1, 4294967297}));
}

}  // namespace
}  // namespace kiv::test
