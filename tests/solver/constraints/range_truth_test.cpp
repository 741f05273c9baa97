#include "solver/constraints/range_truth.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// A limit of a random range, among or next to the values, or far from all.
std::int64_t RandomLimit(Generator& random, const Declared& x) {
  if (OneIn(random, 8)) return OneIn(random, 2) ? -3000000000 : 3000000000;
  if (x.values.empty()) return Pick(random, -5, 5);
  return PickOf(random, x.values) + Pick(random, -1, 1);
}

TEST(RangeTruth, StandsUnderBruteForce) {
  CheckRandomCases(6000, [](Generator& random) {
    const Declared x = RandomVariable(random);
    std::int64_t lower = RandomLimit(random, x);
    std::int64_t upper = OneIn(random, 3) ? lower : RandomLimit(random, x);
    if (lower > upper) std::swap(lower, upper);
    const bool out_of_reach = lower > 2147483646 || upper < -2147483646;
    if (out_of_reach) lower = upper = 0;
    const auto which = OneIn(random, 2) ? RangeTruth::kInside : RangeTruth::kOutside;
    const auto reification =
        OneIn(random, 3) ? Reification::kImplication : Reification::kEquivalence;
    RandomCase random_case(random);
    random_case.Add(x);
    random_case.AddTruth();
    return random_case.Finish(
        "range truth", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<RangeTruth>(arguments, which, lower, upper, reification);
        },
        [=](const Assignment& values) {
          const bool inside = lower <= values[0] && values[0] <= upper;
          const bool holds = inside == (which == RangeTruth::kInside);
          return reification == Reification::kImplication ? values[1] == 0 || holds
                                                          : holds == (values[1] == 1);
        });
  });
}

// A value truth and its variable.
struct ValueTruth {
  explicit ValueTruth(const Values& values, const char* kind = "enum int") {
    x = Declare(network, {Kind(kind), values});
    truth = Declare(network, {Kind("interval int"), {0, 1}});
    const VariableId arguments[] = {x, truth};
    network.Emplace<RangeTruth>(arguments, RangeTruth::kInside, 3, 3, Reification::kEquivalence);
    network.Propagate();
  }

  KivOmbNetwork network;
  VariableId x;
  VariableId truth;
};

TEST(RangeTruth, IsKnownOnceTheValueIsLost) {
  ValueTruth value({1, 3, 5});
  EXPECT_EQ(Text(value.network, value.truth), "[0, 1]");
  Restrict(value.network, value.x, {1, 5});
  value.network.Propagate();
  EXPECT_EQ(Text(value.network, value.truth), "0");
}

TEST(RangeTruth, TakesAnInnerValueFromAnIntervalWhenABoundReachesIt) {
  ValueTruth value({1, 5}, "interval int");
  Restrict(value.network, value.truth, {0});
  value.network.Propagate();
  EXPECT_EQ(Text(value.network, value.x), "[1, 5]");
  Restrict(value.network, value.x, {3, 5});
  value.network.Propagate();
  EXPECT_EQ(Text(value.network, value.x), "[4, 5]");
}

TEST(RangeTruth, OfABoundSleepsWhileInnerValuesAreLost) {
  KivOmbNetwork network;
  const VariableId x = Declare(network, {Kind("enum int"), Range(0, 9)});
  const VariableId arguments[] = {x, Declare(network, {Kind("bool"), {0, 1}})};
  network.Emplace<RangeTruth>(arguments, RangeTruth::kInside, -1000000000000, 4,
                              Reification::kEquivalence);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  Restrict(network, x, {0, 5, 9});
  network.Propagate();
  EXPECT_EQ(network.GetStatistics().runs, runs);
  Restrict(network, x, {5, 9});
  network.Propagate();
  EXPECT_EQ(Text(network, arguments[1]), "false");
}

}  // namespace
}  // namespace kiv::test
