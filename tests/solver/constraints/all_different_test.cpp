#include "solver/constraints/all_different.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "tests/support/constraint_case.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

const KivOmbiObjectDescriptor* Kind(const char* name) { return OpenModules().FindKind(name); }

ConstraintCase AllDifferentOver(std::vector<Declared> variables,
                                std::vector<VariableId> arguments) {
  return {.name = "all different",
          .variables = std::move(variables),
          .arguments = std::move(arguments),
          .post = [](KivOmbNetwork& network,
                     auto posted_over) { network.Emplace<AllDifferent>(posted_over); },
          .holds =
              [](const Assignment& values) {
                return std::set(values.begin(), values.end()).size() == values.size();
              }};
}

TEST(AllDifferent, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  std::size_t with_repetition = 0;
  for (std::uint64_t seed = first; seed < first + Times(1500); ++seed) {
    Generator random(seed);
    const Flavour flavour = RandomFlavour(random);
    std::vector<Declared> variables;
    std::vector<VariableId> arguments;
    for (int count = Pick(random, 0, 5); count > 0; --count) {
      arguments.push_back(static_cast<VariableId>(variables.size()));
      variables.push_back(RandomVariable(random, flavour));
    }
    if (!arguments.empty() && OneIn(random, 5)) {
      arguments.push_back(arguments[0]);
      ++with_repetition;
    }
    CheckConstraint(AllDifferentOver(variables, arguments), seed);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(with_repetition, Times(1500) / 30);
}

TEST(AllDifferent, OfNoneOrOneHolds) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {1, 2}});
  network.Emplace<AllDifferent>(std::span<const VariableId>());
  network.Emplace<AllDifferent>(std::span(&x, 1));
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "{ 1, 2 }");
  EXPECT_EQ(SearchSolutions(network).size(), 2u);
}

TEST(AllDifferent, AFixedValueIsRemovedFromAllOthersAndSoOn) {
  KivOmbNetwork network;
  std::vector<VariableId> variables;
  for (int i = 0; i < 60; ++i) {
    variables.push_back(Declare(network, {Kind("enum int"), Range(0, i)}));
  }
  // The last first, so that each value found concerns variables on both sides.
  const std::vector<VariableId> arguments(variables.rbegin(), variables.rend());
  network.Emplace<AllDifferent>(arguments);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  for (int i = 0; i < 60; ++i) {
    EXPECT_EQ(Text(network, variables[static_cast<std::size_t>(i)]), std::to_string(i));
  }
}

// The value 1 leaves before 2 can leave, since an interval loses no inner value.
TEST(AllDifferent, AnIntervalLosesAllFixedValuesAtItsBounds) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("interval int"), Range(1, 9)});
  const auto two = Declare(network, {Kind("int"), {2}});
  const auto one = Declare(network, {Kind("enum int"), {1}});
  const auto three = Declare(network, {Kind("interval int"), {3}});
  const VariableId arguments[] = {three, x, two, one};
  network.Emplace<AllDifferent>(arguments);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "[4, 9]");
}

TEST(AllDifferent, EqualConstantsContradict) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("int"), {4}}),
                                  Declare(network, {Kind("enum int"), {1, 2}}),
                                  Declare(network, {Kind("interval int"), {4}})};
  network.Emplace<AllDifferent>(arguments);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(AllDifferent, AnUnknownVariableHindersNothing) {
  KivOmbNetwork network;
  const auto unknown = Declare(network, {Kind("enum int"), {}});
  const auto x = Declare(network, {Kind("enum int"), {1, 2}});
  const auto one = Declare(network, {Kind("int"), {1}});
  const VariableId arguments[] = {unknown, x, one};
  network.Emplace<AllDifferent>(arguments);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, unknown) + " " + Text(network, x), "Any 2");
  Restrict(network, unknown, {2});
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(AllDifferent, SleepsThroughTheLossOfAnInnerValue) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {1, 2, 3, 4}});
  const auto y = Declare(network, {Kind("enum int"), {1, 5}});
  const VariableId arguments[] = {x, y};
  network.Emplace<AllDifferent>(arguments);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  Restrict(network, x, {1, 3, 4});
  network.Propagate();
  EXPECT_EQ(network.GetStatistics().runs, runs);
  network.PushLevel();
  Restrict(network, x, {1});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, y), "5");
  network.PopLevel();
  Restrict(network, y, {1});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "{ 3, 4 }");
}

TEST(AllDifferent, TellsItsGroundTruth) {
  const AllDifferent all_different;
  EXPECT_TRUE(all_different.Holds(std::array<std::int64_t, 3>{3, -1, 2}));
  EXPECT_FALSE(all_different.Holds(std::array<std::int64_t, 3>{3, -1, 3}));
  EXPECT_TRUE(all_different.Holds({}));
}

}  // namespace
}  // namespace kiv::test
