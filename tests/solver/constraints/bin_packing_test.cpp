#include "solver/constraints/bin_packing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

TEST(BinPacking, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    RandomCase chosen(random);
    const int items = Pick(random, 0, 4);
    const int bins = Pick(random, 0, items == 4 ? 2 : 3);
    const std::int32_t first = OneIn(random, 10) ? kMost - 1 : Pick(random, -1, 1);
    const std::int32_t end = first + std::min(kMost - first, bins);
    std::vector<std::int32_t> weights;
    for (int i = 0; i < items; ++i) {
      weights.push_back(Pick(random, 0, 4));
      chosen.AddTerm(Range(first - 1, end), 4, OneIn(random, 8) ? 3 : 0);
    }
    for (int i = 0; i < bins; ++i) chosen.AddTerm(Range(-1, 10), 4, OneIn(random, 8) ? 3 : 0);
    return chosen.Finish(
        "bin_packing", Strength::kWeaker,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<BinPacking>(arguments, weights, first);
        },
        [=](const Assignment& values) {
          for (int item = 0; item < items; ++item) {
            const std::int64_t bin = values[static_cast<std::size_t>(item)];
            if (bin < first || bin > std::int64_t{first} + bins - 1) return false;
          }
          for (int bin = 0; bin < bins; ++bin) {
            std::int64_t load = 0;
            for (std::size_t item = 0; item < weights.size(); ++item) {
              if (values[item] == std::int64_t{first} + bin) load += weights[item];
            }
            if (load != values[weights.size() + static_cast<std::size_t>(bin)]) return false;
          }
          return true;
        });
  });
}

std::vector<VariableId> Post(KivOmbNetwork& network, const std::vector<Values>& bins,
                             const std::vector<Values>& loads,
                             const std::vector<std::int32_t>& weights) {
  std::vector<VariableId> variables;
  for (const Values& values : bins) {
    variables.push_back(Declare(network, {Kind("enum int"), values}));
  }
  for (const Values& values : loads) {
    variables.push_back(Declare(network, {Kind("interval int"), values}));
  }
  network.Emplace<BinPacking>(variables, weights, 1);
  return variables;
}

TEST(BinPacking, AnItemTooHeavyForWhatIsLeftGoesElsewhere) {
  KivOmbNetwork network;
  Post(network, {{1}, Range(1, 3), Range(1, 3)}, {{0, 10}, {0, 10}, {0, 4}}, {6, 5, 2});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "1; 2; { 1, 2, 3 }; [6, 8]; [5, 7]; [0, 2]");
}

TEST(BinPacking, ABinGetsTheItemsThatItCannotDoWithout) {
  KivOmbNetwork network;
  Post(network, {Range(1, 2), Range(1, 2), Range(1, 2)}, {{8, 20}, {}}, {6, 5, 2});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "1; { 1, 2 }; { 1, 2 }; [8, 13]; [0, 5]");
}

TEST(BinPacking, TheLoadsAreTheWholeWeight) {
  KivOmbNetwork network;
  Post(network, {Range(1, 3), Range(1, 3), Range(1, 3)}, {{0, 4}, {0, 4}, {0, 3}}, {4, 4, 4});
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(BinPacking, AddsUpBeyond32Bits) {
  KivOmbNetwork network;
  Post(network, {Range(1, 2), Range(1, 2), Range(1, 2)}, {{0, kMost}, {0, kMost}},
       {kMost, kMost, 5});
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(BinPacking, RefusesANegativeWeight) {
  EXPECT_THROW(BinPacking({1, -1}, 0), std::invalid_argument);
}

TEST(BinPacking, TellsItsGroundTruthBeyond32Bits) {
  const BinPacking packing({kMost, kMost}, 1);
  const std::int64_t both = 2 * std::int64_t{kMost};
  EXPECT_TRUE(packing.Holds(std::array<std::int64_t, 4>{2, 2, 0, both}));
  EXPECT_FALSE(packing.Holds(std::array<std::int64_t, 4>{2, 2, 0, -4}));
  EXPECT_FALSE(packing.Holds(std::array<std::int64_t, 4>{2, 3, 0, kMost}));
}

}  // namespace
}  // namespace kiv::test
