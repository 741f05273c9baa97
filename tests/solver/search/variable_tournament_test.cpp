#include "solver/search/variable_tournament.h"

#include "solver/constraints/all_different.h"
#include "solver/search/brancher.h"
#include "tests/solver/search/searched_network.h"
#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

constexpr VariableChoice kChoices[] = {
    VariableChoice::kFirstFail, VariableChoice::kAntiFirstFail,   VariableChoice::kSmallest,
    VariableChoice::kLargest,   VariableChoice::kMostConstrained, VariableChoice::kOccurrence,
    VariableChoice::kMaxRegret, VariableChoice::kDomWDeg};

VariableId AddVariable(KivOmbNetwork& network, Generator& random) {
  Values values;
  for (std::int32_t value = 0; value < 12; ++value) {
    if (OneIn(random, 2)) values.push_back(value);
  }
  if (OneIn(random, 20)) values.clear();  // unknown
  return Declare(network, {OpenModulesAndForeign().FindKind("enum int"), values});
}

// Walks down and up a search tree over more variables than are looked at one by one, each decision
// compared with that of a look at all.
void Walk(VariableChoice choice, std::uint64_t seed) {
  Generator random(seed);
  KivOmbNetwork network;
  std::vector<VariableId> variables;
  for (int i = 0; i < 300; ++i) variables.push_back(AddVariable(network, random));
  for (int i = 0; i < 150; ++i) {
    const std::vector<VariableId> pair{PickOf(random, variables), PickOf(random, variables)};
    if (pair[0] != pair[1]) network.Emplace<AllDifferent>(pair);
  }
  if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) return;
  network.PushLevel();
  const std::size_t root = network.GetLevel();
  std::vector<VariableId> candidates = variables;
  candidates.push_back(variables.front());
  Brancher brancher(network, {{candidates, choice, ValueChoice::kSmallest}}, 1);
  VariableWeights weights(network);
  const VariableActivity activity(network);
  for (int step = 0; step < 120; ++step) {
    std::size_t first_open = 0;
    const auto expected = ChooseVariable(network, candidates, choice, weights, activity);
    const auto decision = brancher.Decide(network, first_open);
    ASSERT_EQ(decision.has_value(), expected.has_value()) << Replay(seed);
    if (decision) {
      ASSERT_EQ(decision->variable, *expected) << Replay(seed);
    }
    while (network.GetLevel() > root && OneIn(random, 3)) network.PopLevel();
    network.PushLevel();
    for (int changes = Pick(random, 0, 3); changes > 0; --changes) {
      const VariableId variable = PickOf(random, variables);
      if (!IsSplittable(network.GetSummary(variable))) continue;
      network.Update(variable, [&](KivOmbiAny& domain) {
        auto& integer = static_cast<KivOmbiInteger&>(domain);
        if (OneIn(random, 3)) {
          integer.SetExactValue(integer.GetUpperBound());
        } else {
          integer.RemoveExactValue(integer.GetLowerBound());
        }
      });
    }
    const auto outcome = network.Propagate();
    brancher.Learn(network, outcome);
    if (outcome == KivOmbNetwork::Outcome::kFixpoint) continue;
    ASSERT_EQ(outcome, KivOmbNetwork::Outcome::kContradiction);
    if (const auto culprit = network.GetCulprit()) weights.Blame(network, *culprit);
    network.PopLevel();
    network.PushLevel();
  }
}

TEST(VariableTournament, ChoosesWhatALookAtAllVariablesChooses) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(40); ++seed) {
    for (const VariableChoice choice : kChoices) {
      ASSERT_TRUE(VariableTournament::Suits(300, choice));
      Walk(choice, seed);
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace kiv::test
