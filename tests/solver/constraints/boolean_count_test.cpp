#include "solver/constraints/boolean_count.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

ConstraintCase RandomCount(Generator& random, int repeat_one_in, Strength strength) {
  const int booleans = Pick(random, 0, 6);
  RandomCase random_case(random);
  for (int i = 0; i < booleans; ++i) random_case.AddBoolean(repeat_one_in);
  const Values pool = {-1, 0, 1, 2, 3, 4, 5, 6, 7};
  if (OneIn(random, 6)) {
    random_case.AddUnknown(pool);
  } else {
    random_case.AddInteger(pool, 5, 1000);
  }
  return random_case.Finish(
      "boolean count", strength,
      [](KivOmbNetwork& network, auto arguments) { network.Emplace<BooleanCount>(arguments); },
      [](const Assignment& values) {
        return std::count(values.begin(), values.end() - 1, 1) == values.back();
      });
}

TEST(BooleanCount, StandsUnderBruteForce) {
  CheckRandomCases(
      3000, [](Generator& random) { return RandomCount(random, 1'000'000, Strength::kDomain); });
}

TEST(BooleanCount, CountsRepeatedBooleansEachTime) {
  CheckRandomCases(1000,
                   [](Generator& random) { return RandomCount(random, 3, Strength::kWeaker); });
}

TEST(BooleanCount, OfNothingIsZero) {
  KivOmbNetwork network;
  const VariableId count = Declare(network, {Kind("enum int"), {0, 1, 2}});
  const VariableId arguments[] = {count};
  network.Emplace<BooleanCount>(arguments);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, count), "0");
}

TEST(BooleanCount, KnowsTheBooleansOnceTheCountAllowsNoOthers) {
  for (const int value : {0, 3}) {
    KivOmbNetwork network;
    std::vector<VariableId> arguments;
    for (int i = 0; i < 3; ++i) arguments.push_back(Declare(network, {Kind("bool"), {0, 1}}));
    arguments.push_back(Declare(network, {Kind("int"), {value}}));
    network.Emplace<BooleanCount>(arguments);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(Text(network, arguments[static_cast<std::size_t>(i)]),
                value == 0 ? "false" : "true");
    }
  }
}

}  // namespace
}  // namespace kiv::test
