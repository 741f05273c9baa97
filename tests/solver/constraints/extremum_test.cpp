#include "solver/constraints/extremum.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

TEST(Extremum, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto which = OneIn(random, 2) ? Extremum::kLeast : Extremum::kGreatest;
    const Values ends{-2147483646, -2147483645, 0, 2147483645, 2147483646};
    const Values pool = OneIn(random, 6) ? ends : Range(-5, 6);
    RandomCase random_case(random);
    if (OneIn(random, 8)) {
      random_case.AddUnknown(pool);
    } else {
      random_case.AddInteger(pool, 7);
    }
    for (int count = Pick(random, 0, 4); count > 0; --count) {
      if (OneIn(random, 20)) {
        random_case.AddUnknown(pool);
      } else {
        random_case.AddInteger(pool, 5);
      }
    }
    return random_case.Finish(
        which == Extremum::kLeast ? "least" : "greatest", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<Extremum>(arguments, which);
        },
        [=](const Assignment& values) {
          std::vector<std::int64_t> sorted(values.begin() + 1, values.end());
          std::ranges::sort(sorted);
          if (sorted.empty()) return false;
          return values[0] == (which == Extremum::kLeast ? sorted.front() : sorted.back());
        });
  });
}

TEST(Extremum, OfOneIsThatOne) {
  for (const auto which : {Extremum::kLeast, Extremum::kGreatest}) {
    KivOmbNetwork network;
    const VariableId arguments[] = {Declare(network, {Kind("enum int"), {1, 2, 5}}),
                                    Declare(network, {Kind("enum int"), {2, 3, 5}})};
    network.Emplace<Extremum>(arguments, which);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(Text(network, 0), "{ 2, 5 }");
    EXPECT_EQ(Text(network, 1), "{ 2, 5 }");
  }
}

TEST(Extremum, OnlyOneCanReachWhatIsLeft) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("interval int"), {50, 1000000}}),
                                  Declare(network, {Kind("interval int"), {0, 70000}}),
                                  Declare(network, {Kind("interval int"), {-40, 49}})};
  network.Emplace<Extremum>(arguments, Extremum::kGreatest);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "[50, 70000]");
  EXPECT_EQ(Text(network, 1), "[50, 70000]");
  EXPECT_EQ(Text(network, 2), "[-40, 49]");
}

TEST(Extremum, AnUnknownOneLeavesTheOtherEndOpen) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("interval int"), {}}),
                                  Declare(network, {Kind("interval int"), {}}),
                                  Declare(network, {Kind("enum int"), {3, 8}})};
  network.Emplace<Extremum>(arguments, Extremum::kLeast);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "[Min, 8]");
  EXPECT_EQ(Text(network, 1), "Any");
}

}  // namespace
}  // namespace kiv::test
