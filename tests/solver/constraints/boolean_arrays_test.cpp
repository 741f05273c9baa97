#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "solver/constraints/clause.h"
#include "solver/constraints/junction.h"
#include "solver/constraints/parity.h"
#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

std::vector<VariableId> OpenBooleans(KivOmbNetwork& network, int count) {
  std::vector<VariableId> booleans;
  for (int i = 0; i < count; ++i) booleans.push_back(Declare(network, {Kind("bool"), {0, 1}}));
  return booleans;
}

void Set(KivOmbNetwork& network, VariableId variable, int value) {
  KivOmbNetwork other;
  const auto copy = Declare(other, {Kind("bool"), {value}});
  network.Update(variable, [&](KivOmbiAny& domain) { domain.Intersect(other.GetDomain(copy)); });
}

TEST(Clause, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const int literals = Pick(random, 0, 7);
    const auto positive = static_cast<unsigned>(Pick(random, 0, literals));
    RandomCase random_case(random);
    for (int i = 0; i < literals; ++i) random_case.AddBoolean(6);
    return random_case.Finish(
        "clause", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<Clause>(arguments, positive);
        },
        [=](const Assignment& values) {
          for (std::size_t i = 0; i < values.size(); ++i) {
            if ((values[i] != 0) == (i < positive)) return true;
          }
          return false;
        });
  });
}

TEST(Clause, OfNothingIsAContradiction) {
  KivOmbNetwork network;
  network.Emplace<Clause>(std::span<const VariableId>(), 0u);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(Clause, OfALiteralAndItsNegationHolds) {
  KivOmbNetwork network;
  const VariableId x = OpenBooleans(network, 1)[0];
  const VariableId arguments[] = {x, x, x};
  network.Emplace<Clause>(arguments, 1u);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "Any");
}

TEST(Clause, OfOneLiteralTwiceMakesItTrue) {
  for (const unsigned positive : {0u, 2u}) {
    KivOmbNetwork network;
    const VariableId x = OpenBooleans(network, 1)[0];
    const VariableId arguments[] = {x, x};
    network.Emplace<Clause>(arguments, positive);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(Text(network, x), positive > 0 ? "true" : "false");
  }
}

TEST(Clause, SleepsWhileLiteralsChangeThatItDoesNotWatch) {
  KivOmbNetwork network;
  const auto booleans = OpenBooleans(network, 100);
  network.Emplace<Clause>(booleans, 100u);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  for (std::size_t i = 2; i < 99; ++i) {
    network.PushLevel();
    Set(network, booleans[i], 0);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  }
  EXPECT_EQ(network.GetStatistics().runs, runs);
  network.PushLevel();
  Set(network, booleans[0], 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network.GetStatistics().runs, runs + 1);
  EXPECT_EQ(network.GetSummary(booleans[1]).cardinality, 2u);
  Set(network, booleans[1], 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, booleans[99]), "true");
  while (network.GetLevel() > 0) network.PopLevel();
  // What it watches now are other literals than at first; they are open again.
  Set(network, booleans[1], 0);
  Set(network, booleans[99], 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  for (std::size_t i = 2; i < 99; ++i) Set(network, booleans[i], 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, booleans[0]), "true");
}

TEST(Junction, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto which = OneIn(random, 2) ? Junction::kAll : Junction::kAny;
    RandomCase random_case(random);
    for (int count = Pick(random, 0, 6); count >= 0; --count) random_case.AddBoolean(6);
    return random_case.Finish(
        which == Junction::kAll ? "all" : "any", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<Junction>(arguments, which);
        },
        [=](const Assignment& values) {
          const auto true_ones = std::accumulate(values.begin() + 1, values.end(), std::int64_t{0});
          const auto all = static_cast<std::int64_t>(values.size()) - 1;
          const bool truth = which == Junction::kAll ? true_ones == all : true_ones > 0;
          return (values[0] == 1) == truth;
        });
  });
}

TEST(Junction, StandsUnderBruteForceWithNegations) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto which = OneIn(random, 2) ? Junction::kAll : Junction::kAny;
    const int count = Pick(random, 0, 5);
    const auto positive = static_cast<unsigned>(Pick(random, 0, count));
    RandomCase random_case(random);
    for (int i = 0; i <= count; ++i) random_case.AddTruth();
    return random_case.Finish(
        which == Junction::kAll ? "all literals" : "any literal",
        random_case.Repeats() ? Strength::kWeaker : Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<Junction>(arguments, which, positive);
        },
        [=](const Assignment& values) {
          bool all = true;
          bool any = false;
          for (std::size_t i = 1; i < values.size(); ++i) {
            const bool literal = (values[i] == 1) == (i <= positive);
            all &= literal;
            any |= literal;
          }
          return (values[0] == 1) == (which == Junction::kAll ? all : any);
        });
  });
}

TEST(Junction, OfNothingAllAreTrueAndNotAny) {
  KivOmbNetwork network;
  const auto truths = OpenBooleans(network, 2);
  network.Emplace<Junction>(std::span(truths).first(1), Junction::kAll);
  network.Emplace<Junction>(std::span(truths).last(1), Junction::kAny);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, truths[0]), "true");
  EXPECT_EQ(Text(network, truths[1]), "false");
}

TEST(Parity, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto which = OneIn(random, 2) ? Parity::kOdd : Parity::kEven;
    RandomCase random_case(random);
    for (int count = Pick(random, 0, 7); count > 0; --count) random_case.AddBoolean();
    return random_case.Finish(
        which == Parity::kOdd ? "odd" : "even", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) { network.Emplace<Parity>(arguments, which); },
        [=](const Assignment& values) {
          const auto true_ones = std::accumulate(values.begin(), values.end(), std::int64_t{0});
          return true_ones % 2 == (which == Parity::kOdd ? 1 : 0);
        });
  });
}

TEST(Parity, OfNothingIsEven) {
  KivOmbNetwork network;
  network.Emplace<Parity>(std::span<const VariableId>(), Parity::kEven);
  EXPECT_EQ(network.Propagate(), Outcome::kFixpoint);
  network.Emplace<Parity>(std::span<const VariableId>(), Parity::kOdd);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(Parity, SleepsWhileTwoThatItWatchesAreOpen) {
  KivOmbNetwork network;
  const auto booleans = OpenBooleans(network, 50);
  network.Emplace<Parity>(booleans, Parity::kOdd);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  for (std::size_t i = 2; i < 50; ++i) Set(network, booleans[i], 1);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network.GetStatistics().runs, runs);
  Set(network, booleans[0], 1);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, booleans[1]), "false");
}

}  // namespace
}  // namespace kiv::test
