#include "solver/constraints/equal_truth.h"

#include <gtest/gtest.h>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

TEST(EqualTruth, StandsUnderBruteForce) {
  CheckRandomCases(6000, [](Generator& random) {
    const auto which = OneIn(random, 2) ? EqualTruth::kEqual : EqualTruth::kUnequal;
    const auto reification =
        OneIn(random, 3) ? Reification::kImplication : Reification::kEquivalence;
    const Values pool = OneIn(random, 6) ? Range(2147483640, 2147483646) : Range(-4, 5);
    RandomCase random_case(random);
    random_case.AddTerm(pool, 5, 0);
    random_case.AddTerm(pool, 5, 12);
    random_case.AddTruth();
    const bool exact = random_case.AreSets() && !random_case.Repeats();
    return random_case.Finish(
        "equal truth", exact ? Strength::kDomain : Strength::kWeaker,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<EqualTruth>(arguments, which, reification);
        },
        [=](const Assignment& values) {
          const bool holds = (values[0] == values[1]) == (which == EqualTruth::kEqual);
          return reification == Reification::kImplication ? values[2] == 0 || holds
                                                          : holds == (values[2] == 1);
        });
  });
}

TEST(EqualTruth, IsFalseOnceNoValueIsCommon) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("enum int"), {1, 3, 5}}),
                                  Declare(network, {Kind("enum int"), {2, 3, 4}}),
                                  Declare(network, {Kind("bool"), {0, 1}})};
  network.Emplace<EqualTruth>(arguments, EqualTruth::kEqual, Reification::kEquivalence);
  network.Propagate();
  EXPECT_EQ(Text(network, arguments[2]), "Any");
  Restrict(network, arguments[0], {1, 5});
  network.Propagate();
  EXPECT_EQ(Text(network, arguments[2]), "false");
}

TEST(EqualTruth, OfOneVariableIsTrue) {
  KivOmbNetwork network;
  const VariableId x = Declare(network, {Kind("enum int"), {1, 3, 5}});
  const VariableId arguments[] = {x, x, Declare(network, {Kind("bool"), {0, 1}})};
  network.Emplace<EqualTruth>(arguments, EqualTruth::kEqual, Reification::kEquivalence);
  network.Propagate();
  EXPECT_EQ(Text(network, arguments[2]), "true");
}

}  // namespace
}  // namespace kiv::test
