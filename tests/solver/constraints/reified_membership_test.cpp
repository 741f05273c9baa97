#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "solver/constraints/membership.h"
#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;
using Texts = std::pair<std::string, std::string>;

TEST(ReifiedMembership, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const Flavour flavour = RandomFlavour(random);
    const Values values =
        OneIn(random, 8) ? Values{} : RandomValues(random, *Kind("enum int"), flavour);
    RandomCase random_case(random);
    random_case.Add(RandomVariable(random, flavour));
    random_case.AddBoolean();
    return random_case.Finish(
        "reified membership", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<ReifiedMembership>(arguments, values);
        },
        [=](const Assignment& arguments) {
          return (std::ranges::find(values, arguments[0]) != values.end()) == (arguments[1] == 1);
        });
  });
}

// The text of the truth, and that of x once the truth is `set_to`.
Texts Decide(const char* kind, const Values& domain, const Values& values, int set_to) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind(kind), domain}),
                                  Declare(network, {Kind("bool"), {}})};
  network.Emplace<ReifiedMembership>(arguments, values);
  network.Propagate();
  const std::string truth = Text(network, arguments[1]);
  network.Update(arguments[1], [&](KivOmbiAny& domain_of_truth) {
    static_cast<KivOmbiBoolean&>(domain_of_truth).CalcTruthValue(set_to != 0);
  });
  network.Propagate();
  return {truth, Text(network, arguments[0])};
}

TEST(ReifiedMembership, TheTruthIsKnownOnceAllValuesAreOnOneSide) {
  EXPECT_EQ(Decide("enum int", {1, 4}, {0, 1, 4, 9}, 1), (Texts{"true", "{ 1, 4 }"}));
  EXPECT_EQ(Decide("enum int", {2, 3}, {0, 1, 4, 9}, 0), (Texts{"false", "{ 2, 3 }"}));
  EXPECT_EQ(Decide("interval int", {-1000000000, -7}, {-6}, 0),
            (Texts{"false", "[-1000000000, -7]"}));
  EXPECT_EQ(Decide("enum int", {}, {}, 0), (Texts{"false", "Any"}));
}

TEST(ReifiedMembership, TheTruthRemovesOneSide) {
  EXPECT_EQ(Decide("enum int", {1, 2, 3}, {2, 3, 8}, 1), (Texts{"Any", "{ 2, 3 }"}));
  EXPECT_EQ(Decide("enum int", {1, 2, 3}, {2, 8}, 0), (Texts{"Any", "{ 1, 3 }"}));
  EXPECT_EQ(Decide("interval int", Range(1, 9), {1, 2, 5, 8, 9}, 0), (Texts{"Any", "[3, 7]"}));
  EXPECT_EQ(Decide("interval int", {}, {3, 8}, 1), (Texts{"Any", "[3, 8]"}));
  EXPECT_EQ(Decide("interval int", {}, {3, 8}, 0), (Texts{"Any", "Any"}));
}

}  // namespace
}  // namespace kiv::test
