#include "solver/constraints/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;
using Tuples = std::vector<Values>;

void PostTable(KivOmbNetwork& network, std::span<const VariableId> arguments,
               const Tuples& tuples) {
  Values cells;
  for (const Values& tuple : tuples) cells.insert(cells.end(), tuple.begin(), tuple.end());
  network.Emplace<Table>(arguments, static_cast<unsigned>(arguments.size()), tuples.size(), cells);
}

ConstraintCase TableCase(RandomCase& random_case, const Tuples& tuples) {
  return random_case.Finish(
      "table", Strength::kDomain,
      [=](KivOmbNetwork& network, auto arguments) { PostTable(network, arguments, tuples); },
      [=](const Assignment& values) {
        return std::ranges::any_of(
            tuples, [&](const Values& tuple) { return std::ranges::equal(tuple, values); });
      });
}

Tuples RandomTuples(Generator& random, unsigned arity, int count, const Values& pool) {
  Tuples tuples(static_cast<std::size_t>(count), Values(arity));
  for (Values& tuple : tuples) {
    for (std::int32_t& cell : tuple) cell = PickOf(random, pool);
  }
  return tuples;
}

TEST(Table, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const Values ends{-2147483646, -2147483645, 0, 2147483645, 2147483646};
    const Values pool = OneIn(random, 6) ? ends : Range(-3, 4);
    const auto arity = static_cast<unsigned>(Pick(random, 1, 4));
    const Tuples tuples = RandomTuples(random, arity, Pick(random, 0, 14), pool);
    RandomCase random_case(random);
    for (unsigned i = 0; i < arity; ++i) {
      if (OneIn(random, 15)) {
        random_case.AddUnknown(pool);
      } else {
        random_case.AddInteger(pool, 6);
      }
    }
    return TableCase(random_case, tuples);
  });
}

// So many that they fill several words, and that words become empty at different times.
TEST(Table, OfManyTuplesStandsUnderBruteForce) {
  CheckRandomCases(600, [](Generator& random) {
    const Values pool = Range(0, 9);
    const Tuples tuples = RandomTuples(random, 3, Pick(random, 100, 700), pool);
    RandomCase random_case(random);
    for (int i = 0; i < 3; ++i) random_case.AddInteger(pool, 12);
    return TableCase(random_case, tuples);
  });
}

TEST(Table, WithoutColumnsHoldsIfItHasATuple) {
  for (const std::size_t count : {0u, 1u, 3u}) {
    KivOmbNetwork network;
    network.Emplace<Table>(std::span<const VariableId>(), 0u, count, Values());
    EXPECT_EQ(network.Propagate(), count > 0 ? Outcome::kFixpoint : Outcome::kContradiction);
    EXPECT_EQ(Table(0, count, {}).Holds({}), count > 0);
  }
}

TEST(Table, WithoutTuplesIsAContradiction) {
  KivOmbNetwork network;
  const VariableId x = Declare(network, {Kind("enum int"), {1, 2}});
  PostTable(network, std::span(&x, 1), {});
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(Table, ARepeatedVariableKeepsTheTuplesThatAgree) {
  KivOmbNetwork network;
  const VariableId x = Declare(network, {Kind("enum int"), Range(0, 5)});
  const VariableId y = Declare(network, {Kind("enum int"), Range(0, 5)});
  const VariableId arguments[] = {x, y, x};
  PostTable(network, arguments, {{1, 2, 1}, {1, 3, 2}, {2, 4, 2}, {2, 5, 3}, {5, 0, 0}});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "{ 1, 2 }");
  EXPECT_EQ(Text(network, y), "{ 2, 4 }");
}

TEST(Table, AWideIntervalIsCutToTheHullOfItsColumn) {
  KivOmbNetwork network;
  const VariableId arguments[] = {
      Declare(network, {Kind("interval int"), {-1000000000, 1000000000}}),
      Declare(network, {Kind("interval int"), {}}), Declare(network, {Kind("enum int"), {}})};
  PostTable(network, arguments, {{-5, 9, 1}, {70000, 0, 2}, {-7, 3, 4}, {1999999999, 50, 3}});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "[-7, 70000]");
  EXPECT_EQ(Text(network, 1), "[0, 9]");
  EXPECT_EQ(Text(network, 2), "{ 1, 2, 4 }");
}

// 1500 values are more than an enumerated domain holds.
TEST(Table, AColumnThatAKindCannotHoldStaysUnknown) {
  Tuples tuples;
  for (int i = 0; i < 1500; ++i) tuples.push_back({i, i / 500});
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("enum int"), {}}),
                                  Declare(network, {Kind("enum int"), {0, 1, 2}})};
  PostTable(network, arguments, tuples);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "Any");
  Restrict(network, 1, {2});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network.GetSummary(0).cardinality, 500u);
  EXPECT_EQ(network.GetSummary(0).lower, 1000);
}

TEST(Table, RefusesTuplesOfAnotherLengthAndWhatNoVariableCanBe) {
  EXPECT_THROW(Table(2, 2, {1, 2, 3}), std::invalid_argument);
  EXPECT_THROW(Table(0, 1, {1}), std::invalid_argument);
  EXPECT_THROW(Table(1, 1, {2147483647}), std::invalid_argument);
  EXPECT_THROW(Table(1u << 20, std::size_t{1} << 44, {}), std::length_error);
}

TEST(Table, TellsItsGroundTruthFromAllTuples) {
  const Table table(2, 3, {5, 1, -3, 2, 5, 0});
  EXPECT_TRUE(table.Holds(std::array<std::int64_t, 2>{5, 1}));
  EXPECT_TRUE(table.Holds(std::array<std::int64_t, 2>{-3, 2}));
  EXPECT_FALSE(table.Holds(std::array<std::int64_t, 2>{5, 2}));
  EXPECT_FALSE(table.Holds(std::array<std::int64_t, 2>{5 + (std::int64_t{1} << 32), 1}));
}

}  // namespace
}  // namespace kiv::test
