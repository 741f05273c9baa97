#include "solver/constraints/unequal_difference.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;

TEST(UnequalDifference, StandsUnderBruteForce) {
  CheckRandomCases(4000, [](Generator& random) {
    const bool is_extreme = OneIn(random, 6);
    const Values pool = is_extreme ? Range(2147483640, 2147483646) : Range(-4, 5);
    const std::int64_t constant = OneIn(random, 12) ? 4294967292 : Pick(random, -9, 9);
    RandomCase random_case(random);
    random_case.AddTerm(pool, 5, 0);
    random_case.AddTerm(is_extreme && OneIn(random, 2) ? Range(-2147483646, -2147483640) : pool, 5,
                        0);
    return random_case.Finish(
        "unequal difference", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<UnequalDifference>(arguments, constant);
        },
        [=](const Assignment& values) { return values[0] - values[1] != constant; });
  });
}

TEST(UnequalDifference, RunsOnceForASet) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), Range(1, 9)});
  const auto y = Declare(network, {Kind("enum int"), Range(1, 9)});
  network.Emplace<UnequalDifference>(std::array{x, y}, 2);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  const auto runs = network.GetStatistics().runs;
  network.PushLevel();
  Restrict(network, x, {1, 2, 7, 9});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network.GetStatistics().runs, runs) << "no argument is fixed";
  Restrict(network, x, {7});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network, y), (Values{1, 2, 3, 4, 6, 7, 8, 9}));
  Restrict(network, y, {8});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network.GetStatistics().runs, runs + 1) << "entailed once the value is lost";
}

}  // namespace
}  // namespace kiv::test
