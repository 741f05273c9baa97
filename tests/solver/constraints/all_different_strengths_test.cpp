// All-different at each of its strengths, with and without offsets, under brute force.

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "solver/constraints/all_different.h"
#include "solver/constraints/all_different_bounds.h"
#include "solver/constraints/post_all_different.h"
#include "tests/solver/constraints/random_case.h"
#include "tests/support/modules.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

bool Differ(const Assignment& values, const TermOffsets& offsets) {
  std::set<std::int64_t> terms;
  for (std::size_t i = 0; i < values.size(); ++i) {
    terms.insert(values[i] + (offsets.empty() ? 0 : offsets[i]));
  }
  return terms.size() == values.size();
}

struct Strategy {
  const char* name;
  Strength strength;
  void (*post)(KivOmbNetwork&, std::span<const VariableId>, const TermOffsets&);
};

const Strategy kStrategies[] = {
    {"Values", Strength::kWeaker,
     [](KivOmbNetwork& network, std::span<const VariableId> variables, const TermOffsets& offsets) {
       network.Emplace<AllDifferent>(variables, offsets);
     }},
    {"Bounds", Strength::kHull,
     [](KivOmbNetwork& network, std::span<const VariableId> variables, const TermOffsets& offsets) {
       network.Emplace<AllDifferentBounds>(variables, offsets);
     }},
    {"Domain", Strength::kDomain,
     [](KivOmbNetwork& network, std::span<const VariableId> variables, const TermOffsets& offsets) {
       PostAllDifferent(network, variables, AllDifferentStrength::kDomain, offsets);
     }},
    {"ValuesAndBounds", Strength::kHull,
     [](KivOmbNetwork& network, std::span<const VariableId> variables, const TermOffsets& offsets) {
       PostAllDifferent(network, variables, AllDifferentStrength::kBounds, offsets);
     }},
};

class AllDifferentStrengths : public testing::TestWithParam<Strategy> {};

TEST_P(AllDifferentStrengths, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  std::size_t with_offsets = 0;
  std::size_t repeating = 0;
  for (std::uint64_t seed = first; seed < first + Times(1200); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    const Values pool = OneIn(random, 8) ? Range(2147483640, 2147483646) : Range(-3, 4);
    for (int count = Pick(random, 0, 6); count > 0; --count) {
      chosen.AddTerm(pool, Pick(random, 1, 6), 12);
    }
    TermOffsets offsets;
    if (OneIn(random, 2)) {
      for (std::size_t i = 0; i < chosen.CountArguments(); ++i) {
        offsets.push_back(Pick(random, -3, 3));
      }
      ++with_offsets;
    }
    repeating += chosen.Repeats() ? 1 : 0;
    CheckConstraint(chosen.Finish(
                        GetParam().name, GetParam().strength,
                        [&](KivOmbNetwork& network, auto arguments) {
                          GetParam().post(network, arguments, offsets);
                        },
                        [&](const Assignment& values) { return Differ(values, offsets); }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(with_offsets, Times(1200) / 4);
  EXPECT_GT(repeating, Times(1200) / 30);
}

INSTANTIATE_TEST_SUITE_P(Strategies, AllDifferentStrengths, testing::ValuesIn(kStrategies),
                         [](const auto& strategy) { return std::string(strategy.param.name); });

std::string Propagated(const std::vector<Declared>& variables, AllDifferentStrength strength) {
  KivOmbNetwork network;
  std::vector<VariableId> ids;
  for (const Declared& variable : variables) ids.push_back(Declare(network, variable));
  PostAllDifferent(network, ids, strength);
  if (network.Propagate() != Outcome::kFixpoint) return "contradiction";
  std::string text;
  for (const VariableId id : ids) text += (text.empty() ? "" : " ") + Text(network, id);
  return text;
}

TEST(AllDifferentDomain, TwoVariablesTakeTwoValuesFromAllOthers) {
  const auto* kind = Kind("enum int");
  const std::vector<Declared> variables{{kind, {2, 7}}, {kind, {2, 7}}, {kind, {2, 5, 7}}};
  EXPECT_EQ(Propagated(variables, AllDifferentStrength::kValues), "{ 2, 7 } { 2, 7 } { 2, 5, 7 }");
  EXPECT_EQ(Propagated(variables, AllDifferentStrength::kBounds), "{ 2, 7 } { 2, 7 } { 2, 5, 7 }");
  EXPECT_EQ(Propagated(variables, AllDifferentStrength::kDomain), "{ 2, 7 } { 2, 7 } 5");
}

TEST(AllDifferentBounds, AHallIntervalCutsWideIntervals) {
  const auto* kind = Kind("interval int");
  EXPECT_EQ(Propagated({{kind, {1, 2}}, {kind, {1, 2}}, {kind, {1, 1000000000}}, {kind, {3, 4}}},
                       AllDifferentStrength::kBounds),
            "[1, 2] [1, 2] [3, 1000000000] [3, 4]");
}

// Wide domains are no part of the matching, but lose what it always takes.
TEST(AllDifferentDomain, AWideIntervalLosesTheValuesOfATightGroup) {
  const auto* kind = Kind("interval int");
  EXPECT_EQ(Propagated({{kind, {1, 2}}, {kind, {1, 2}}, {kind, {1, 1000000000}}, {kind, {}}},
                       AllDifferentStrength::kDomain),
            "[1, 2] [1, 2] [3, 1000000000] Any");
}

TEST(AllDifferentStrength, TooFewValuesContradict) {
  for (const char* name : {"enum int", "interval int", "range int"}) {
    const Declared three{Kind(name), {1, 2, 3}};
    const std::vector<Declared> four(4, three);
    EXPECT_EQ(Propagated(four, AllDifferentStrength::kBounds), "contradiction");
    EXPECT_EQ(Propagated(four, AllDifferentStrength::kDomain), "contradiction");
  }
}

TEST(AllDifferentStrength, ARepeatedVariableContradictsUnlessItsOffsetsDiffer) {
  for (const auto strength : {AllDifferentStrength::kValues, AllDifferentStrength::kBounds,
                              AllDifferentStrength::kDomain}) {
    for (const std::int32_t offset : {0, 1}) {
      KivOmbNetwork network;
      const auto x = Declare(network, {Kind("enum int"), {}});
      const std::array arguments{x, x};
      PostAllDifferent(network, arguments, strength, {0, offset});
      EXPECT_EQ(network.Propagate(), offset == 0 ? Outcome::kContradiction : Outcome::kFixpoint);
    }
  }
}

TEST(AllDifferentStrength, OffsetsAreAsManyAsVariables) {
  KivOmbNetwork network;
  const std::array arguments{Declare(network, {Kind("enum int"), {1, 2}})};
  EXPECT_THROW(PostAllDifferent(network, arguments, AllDifferentStrength::kValues, {1, 2}),
               std::invalid_argument);
}

TEST(AllDifferentStrength, IsChosenByTheNumberOfValues) {
  KivOmbNetwork network;
  const auto choice = [&](int count, const Values& ends) {
    std::vector<VariableId> variables;
    for (int i = 0; i < count; ++i) {
      variables.push_back(Declare(network, {Kind("interval int"), ends}));
    }
    return ChooseStrength(network, variables);
  };
  EXPECT_EQ(choice(2, {1, 2}), AllDifferentStrength::kValues);
  EXPECT_EQ(choice(9, {1, 9}), AllDifferentStrength::kDomain);
  EXPECT_EQ(choice(3, {1, 1024}), AllDifferentStrength::kDomain);
  EXPECT_EQ(choice(3, {1, 1025}), AllDifferentStrength::kBounds);
  EXPECT_EQ(choice(512, {1, 1024}), AllDifferentStrength::kDomain);
  EXPECT_EQ(choice(513, {1, 513}), AllDifferentStrength::kBounds);
  EXPECT_EQ(choice(3, {}), AllDifferentStrength::kBounds);
}

TEST(AllDifferentStrength, OffsetsOfExtremeValuesDoNotOverflow) {
  constexpr std::int32_t kMost = 2147483646;
  for (const auto strength : {AllDifferentStrength::kValues, AllDifferentStrength::kBounds,
                              AllDifferentStrength::kDomain}) {
    KivOmbNetwork network;
    const std::array arguments{Declare(network, {Kind("enum int"), {kMost}}),
                               Declare(network, {Kind("enum int"), {kMost - 3, kMost}}),
                               Declare(network, {Kind("enum int"), {-kMost, kMost - 1}})};
    PostAllDifferent(network, arguments, strength, {kMost - 3, kMost, kMost});
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(network.GetSummary(arguments[1]).lower, kMost);
    EXPECT_EQ(network.GetSummary(arguments[2]).cardinality, 2u);
  }
}

// The term's value for the other would be the infinity that stands for an open bound.
TEST(AllDifferentStrength, AnOpenBoundIsNoValueToLose) {
  for (const auto strength : {AllDifferentStrength::kValues, AllDifferentStrength::kBounds,
                              AllDifferentStrength::kDomain}) {
    KivOmbNetwork network;
    const std::array arguments{Declare(network, {Kind("int"), {2147483646}}),
                               Declare(network, {Kind("interval int"), {}})};
    network.Update(arguments[1], [](KivOmbiAny& domain) {
      static_cast<KivOmbiInteger&>(domain).SetLowerBound(5);
    });
    ASSERT_EQ(Text(network, arguments[1]), "[5, Max]");
    PostAllDifferent(network, arguments, strength, {1, 0});
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(Text(network, arguments[1]), "[5, Max]");
  }
}

// All that is left for the open one lies beyond the integers, as long as it is open.
TEST(AllDifferentStrength, AnOpenIntervalAtTheEndStaysUnderWatch) {
  for (const auto strength : {AllDifferentStrength::kValues, AllDifferentStrength::kBounds,
                              AllDifferentStrength::kDomain}) {
    KivOmbNetwork network;
    const std::array arguments{Declare(network, {Kind("int"), {2147483646}}),
                               Declare(network, {Kind("interval int"), {}})};
    PostAllDifferent(network, arguments, strength);
    network.Propagate();
    network.Update(arguments[1], [](KivOmbiAny& domain) {
      static_cast<KivOmbiInteger&>(domain).SetLowerBound(2147483646);
    });
    network.Propagate();
    network.Update(arguments[1], [](KivOmbiAny& domain) {
      static_cast<KivOmbiInteger&>(domain).SetUpperBound(2147483646);
    });
    EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
  }
}

TEST(AllDifferentBounds, SleepsThroughTheLossOfInnerValues) {
  KivOmbNetwork network;
  std::vector<VariableId> variables;
  for (int i = 0; i < 3; ++i) {
    variables.push_back(Declare(network, {Kind("enum int"), Range(0, 9)}));
  }
  network.Emplace<AllDifferentBounds>(variables);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  Restrict(network, variables[0], {0, 1, 7, 9});
  network.Propagate();
  EXPECT_EQ(network.GetStatistics().runs, runs);
}

TEST(AllDifferentBounds, LeavesOnceNoTwoIntervalsMeet) {
  KivOmbNetwork network;
  const std::array arguments{Declare(network, {Kind("interval int"), {5, 9}}),
                             Declare(network, {Kind("interval int"), {0, 4}})};
  network.Emplace<AllDifferentBounds>(arguments);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  Restrict(network, arguments[0], {6, 9});
  network.Propagate();
  EXPECT_EQ(network.GetStatistics().runs, runs);
}

// The value of a fixed argument lies inside an interval: only then do moving bounds concern value
// elimination.
TEST(AllDifferent, WakesByBoundsOnlyWhereAValueIsStuck) {
  KivOmbNetwork network;
  const std::array arguments{Declare(network, {Kind("interval int"), {0, 9}}),
                             Declare(network, {Kind("interval int"), {20, 29}}),
                             Declare(network, {Kind("int"), {4}})};
  network.Emplace<AllDifferent>(arguments);
  network.Propagate();
  const auto runs = network.GetStatistics().runs;
  Restrict(network, arguments[1], {21, 29});
  network.Propagate();
  EXPECT_EQ(network.GetStatistics().runs, runs);
  Restrict(network, arguments[0], {4, 9});
  network.Propagate();
  EXPECT_EQ(Text(network, arguments[0]), "[5, 9]");
}

}  // namespace
}  // namespace kiv::test
