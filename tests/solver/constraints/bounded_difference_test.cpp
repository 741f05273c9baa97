#include "solver/constraints/bounded_difference.h"

#include <gtest/gtest.h>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// The greatest difference allowed, now and then out of the reach of all.
std::int64_t RandomMost(Generator& random) {
  if (OneIn(random, 12)) return OneIn(random, 2) ? -4294967300 : 4294967300;
  return Pick(random, -9, 9);
}

Values RandomPool(Generator& random) {
  if (OneIn(random, 6)) return Range(2147483640, 2147483646);
  if (OneIn(random, 6)) return Range(-2147483646, -2147483640);
  return Range(-4, 5);
}

TEST(BoundedDifference, StandsUnderBruteForce) {
  CheckRandomCases(4000, [](Generator& random) {
    const std::int64_t most = RandomMost(random);
    RandomCase random_case(random);
    random_case.AddTerm(RandomPool(random), 5, 0);
    random_case.AddTerm(RandomPool(random), 5, 12);
    const Strength strength = random_case.Repeats() ? Strength::kWeaker : Strength::kDomain;
    return random_case.Finish(
        "bounded difference", strength,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<BoundedDifference>(arguments, most);
        },
        [=](const Assignment& values) { return values[0] - values[1] <= most; });
  });
}

TEST(BoundedDifferenceTruth, StandsUnderBruteForce) {
  CheckRandomCases(6000, [](Generator& random) {
    const std::int64_t most = RandomMost(random);
    const auto reification =
        OneIn(random, 3) ? Reification::kImplication : Reification::kEquivalence;
    RandomCase random_case(random);
    random_case.AddTerm(RandomPool(random), 5, 0);
    random_case.AddTerm(RandomPool(random), 5, 12);
    random_case.AddTruth();
    const Strength strength = random_case.Repeats() ? Strength::kWeaker : Strength::kDomain;
    return random_case.Finish(
        "bounded difference truth", strength,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<BoundedDifferenceTruth>(arguments, most, reification);
        },
        [=](const Assignment& values) {
          const bool holds = values[0] - values[1] <= most;
          return reification == Reification::kImplication ? values[2] == 0 || holds
                                                          : holds == (values[2] == 1);
        });
  });
}

TEST(BoundedDifference, OfOneVariableIsZero) {
  for (const std::int64_t most : {-1, 0}) {
    KivOmbNetwork network;
    const VariableId x = Declare(network, {Kind("interval int"), {0, 9}});
    const VariableId arguments[] = {x, x};
    network.Emplace<BoundedDifference>(arguments, most);
    EXPECT_EQ(network.Propagate(), most < 0 ? KivOmbNetwork::Outcome::kContradiction
                                            : KivOmbNetwork::Outcome::kFixpoint);
  }
}

}  // namespace
}  // namespace kiv::test
