#include "solver/constraints/global_cardinality.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "tests/solver/constraints/random_case.h"
#include "tests/support/modules.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Cover = GlobalCardinality::Cover;
using Limits = GlobalCardinality::Limits;
using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

// Different values in any order.
Values RandomCover(Generator& random) {
  Values cover = Range(-1, 3);
  std::ranges::shuffle(cover, random);
  cover.resize(static_cast<std::size_t>(Pick(random, 0, 3)));
  return cover;
}

bool IsCovered(std::span<const std::int64_t> terms, const Values& cover) {
  return std::ranges::all_of(
      terms, [&](std::int64_t term) { return std::ranges::find(cover, term) != cover.end(); });
}

TEST(GlobalCardinality, StandsUnderBruteForceWithCounts) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1500); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    const Values cover = RandomCover(random);
    const int terms = Pick(random, 0, 4);
    for (int i = 0; i < terms; ++i) chosen.AddTerm(Range(-2, 4), 4, 12);
    for (std::size_t k = 0; k < cover.size(); ++k) chosen.AddTerm(Range(-1, 4), 3, 12);
    const Cover closed = OneIn(random, 2) ? Cover::kClosed : Cover::kOpen;
    CheckConstraint(chosen.Finish(
                        "global cardinality", Strength::kWeaker,
                        [&](KivOmbNetwork& network, auto arguments) {
                          network.Emplace<GlobalCardinality>(arguments, cover, closed);
                        },
                        [&](const Assignment& values) {
                          const auto taken =
                              std::span(values).first(static_cast<std::size_t>(terms));
                          for (std::size_t k = 0; k < cover.size(); ++k) {
                            const auto times = std::ranges::count(taken, std::int64_t{cover[k]});
                            if (times != values[taken.size() + k]) return false;
                          }
                          return closed == Cover::kOpen || IsCovered(taken, cover);
                        }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(GlobalCardinality, StandsUnderBruteForceWithLimits) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1500); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    const Values cover = RandomCover(random);
    std::vector<Limits> limits;
    for (std::size_t k = 0; k < cover.size(); ++k) {
      const int least = Pick(random, -1, 2);
      limits.push_back({least, least + Pick(random, OneIn(random, 9) ? -1 : 0, 3)});
    }
    for (int count = Pick(random, 0, 5); count > 0; --count) chosen.AddTerm(Range(-2, 4), 4, 12);
    const Cover closed = OneIn(random, 2) ? Cover::kClosed : Cover::kOpen;
    CheckConstraint(chosen.Finish(
                        "global cardinality within limits", Strength::kWeaker,
                        [&](KivOmbNetwork& network, auto arguments) {
                          network.Emplace<GlobalCardinality>(arguments, cover, limits, closed);
                        },
                        [&](const Assignment& values) {
                          for (std::size_t k = 0; k < cover.size(); ++k) {
                            const auto times = std::ranges::count(values, std::int64_t{cover[k]});
                            if (times < limits[k].least || times > limits[k].most) return false;
                          }
                          return closed == Cover::kOpen || IsCovered(values, cover);
                        }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(GlobalCardinality, CountsAddUp) {
  KivOmbNetwork network;
  std::vector<VariableId> arguments;
  for (int i = 0; i < 5; ++i) arguments.push_back(Declare(network, {Kind("enum int"), {7, 8, 9}}));
  arguments.push_back(Declare(network, {Kind("enum int"), {0, 1}}));
  arguments.push_back(Declare(network, {Kind("enum int"), {0, 1, 2}}));
  arguments.push_back(Declare(network, {Kind("interval int"), {}}));
  network.Emplace<GlobalCardinality>(arguments, Values{9, 7, 8}, Cover::kClosed);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, arguments[7]), "[2, 5]");
  Restrict(network, arguments[7], {2});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, arguments[5]), "1");
  EXPECT_EQ(Text(network, arguments[6]), "2");
}

TEST(GlobalCardinality, UnknownTermsTakeTheClosedValues) {
  KivOmbNetwork network;
  const std::array arguments{Declare(network, {Kind("enum int"), {}}),
                             Declare(network, {Kind("interval int"), {}})};
  network.Emplace<GlobalCardinality>(arguments, Values{4, -1}, std::vector<Limits>{{0, 1}, {0, 1}},
                                     Cover::kClosed);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, arguments[0]), "{ -1, 4 }");
  EXPECT_EQ(Text(network, arguments[1]), "[-1, 4]");
  Restrict(network, arguments[0], {4});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, arguments[1]), "-1");
}

TEST(GlobalCardinality, AValueIsGivenOnceAndHasLimits) {
  EXPECT_THROW(GlobalCardinality({1, 2, 1}, Cover::kOpen), std::invalid_argument);
  EXPECT_THROW(GlobalCardinality({1, 2147483647}, Cover::kOpen), std::invalid_argument);
  EXPECT_THROW(GlobalCardinality({1, 2}, {{0, 1}}, Cover::kOpen), std::invalid_argument);
}

TEST(GlobalCardinality, TellsItsGroundTruthBeyond32Bits) {
  const GlobalCardinality counted({5, 3}, Cover::kOpen);
  EXPECT_TRUE(counted.Holds(std::array<std::int64_t, 5>{3, 4294967301, 3, 0, 2}));
  EXPECT_FALSE(counted.Holds(std::array<std::int64_t, 5>{3, 4294967301, 3, 1, 2}));
  const GlobalCardinality limited({5, 3}, {{0, 1}, {1, 2}}, Cover::kClosed);
  EXPECT_TRUE(limited.Holds(std::array<std::int64_t, 2>{3, 5}));
  EXPECT_FALSE(limited.Holds(std::array<std::int64_t, 2>{5, 5}));
  EXPECT_FALSE(limited.Holds(std::array<std::int64_t, 2>{3, 4}));
}

}  // namespace
}  // namespace kiv::test
