#include "solver/constraints/lexicographic_order.h"

#include <gtest/gtest.h>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

bool IsOrdered(const Assignment& values, std::size_t length, bool or_equal) {
  const std::size_t other = values.size() - length;
  for (std::size_t i = 0; i < length && i < other; ++i) {
    if (values[i] != values[length + i]) return values[i] < values[length + i];
  }
  return length < other || (length == other && or_equal);
}

TEST(LexicographicOrder, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const Values ends{-2147483646, 0, 2147483646};
    const Values pool = OneIn(random, 6) ? ends : Range(-1, 2);
    const bool or_equal = OneIn(random, 2);
    const auto length = static_cast<unsigned>(Pick(random, 0, 3));
    const auto other = OneIn(random, 3) ? static_cast<unsigned>(Pick(random, 0, 3)) : length;
    RandomCase random_case(random);
    for (unsigned i = 0; i < length + other; ++i) {
      if (OneIn(random, 20)) {
        random_case.AddUnknown(pool);
      } else {
        random_case.AddInteger(pool, 3);
      }
    }
    return random_case.Finish(
        or_equal ? "in order or equal" : "in order", Strength::kDomain,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<LexicographicOrder>(
              arguments, length,
              or_equal ? LexicographicOrder::kAllowed : LexicographicOrder::kExcluded);
        },
        [=](const Assignment& values) { return IsOrdered(values, length, or_equal); });
  });
}

KivOmbNetwork::Outcome Compare(KivOmbNetwork& network, const std::vector<Values>& x,
                               const std::vector<Values>& y,
                               LexicographicOrder::Equality equality) {
  std::vector<VariableId> arguments;
  for (const auto& vector : {x, y}) {
    for (const Values& values : vector) {
      arguments.push_back(Declare(network, {Kind("enum int"), values}));
    }
  }
  network.Emplace<LexicographicOrder>(arguments, static_cast<unsigned>(x.size()), equality);
  return network.Propagate();
}

TEST(LexicographicOrder, APrefixStandsBeforeTheWhole) {
  for (const auto equality : {LexicographicOrder::kAllowed, LexicographicOrder::kExcluded}) {
    KivOmbNetwork shorter;
    EXPECT_EQ(Compare(shorter, {{1}}, {{1}, {0}}, equality), Outcome::kFixpoint);
    KivOmbNetwork longer;
    EXPECT_EQ(Compare(longer, {{1}, {0}}, {{1}}, equality), Outcome::kContradiction);
    KivOmbNetwork empty;
    EXPECT_EQ(Compare(empty, {}, {}, equality), equality == LexicographicOrder::kAllowed
                                                    ? Outcome::kFixpoint
                                                    : Outcome::kContradiction);
  }
}

// The last pair would contradict, so that the first can no longer be equal.
TEST(LexicographicOrder, WhatFollowsMakesTheFirstOpenPairStrict) {
  KivOmbNetwork network;
  ASSERT_EQ(Compare(network, {{0}, {1, 2, 3}, {5}, {7, 8}}, {{0}, {1, 2, 3}, {5}, {4, 6}},
                    LexicographicOrder::kAllowed),
            Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 1), "{ 1, 2 }");
  EXPECT_EQ(Text(network, 5), "{ 2, 3 }");
  EXPECT_EQ(Text(network, 3), "{ 7, 8 }");
}

TEST(LexicographicOrder, AVectorDoesNotStandBeforeItself) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {1, 2}});
  const VariableId arguments[] = {x, x, x, x};
  network.Emplace<LexicographicOrder>(arguments, 2u, LexicographicOrder::kAllowed);
  EXPECT_EQ(network.Propagate(), Outcome::kFixpoint);
  network.Emplace<LexicographicOrder>(arguments, 2u, LexicographicOrder::kExcluded);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

}  // namespace
}  // namespace kiv::test
