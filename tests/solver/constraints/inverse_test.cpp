#include "solver/constraints/inverse.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/solver/constraints/random_case.h"
#include "tests/support/modules.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

// f[i] = j if and only if g[j] = i, said for each pair of places.
bool AreInverse(const Assignment& values, std::size_t f_places, std::int64_t f_index,
                std::int64_t g_index) {
  const auto f = std::span(values).first(f_places);
  const auto g = std::span(values).subspan(f_places);
  const auto lies_in = [](std::int64_t value, std::int64_t index, std::size_t places) {
    return value >= index && value < index + static_cast<std::int64_t>(places);
  };
  for (std::size_t i = 0; i < f.size(); ++i) {
    if (!lies_in(f[i], g_index, g.size())) return false;
    for (std::size_t j = 0; j < g.size(); ++j) {
      if (!lies_in(g[j], f_index, f.size())) return false;
      const bool there = f[i] == g_index + static_cast<std::int64_t>(j);
      const bool back = g[j] == f_index + static_cast<std::int64_t>(i);
      if (there != back) return false;
    }
  }
  return f.size() == g.size();
}

struct Posting {
  const char* name;
  bool with_all_different;
};

class InverseSequences : public testing::TestWithParam<Posting> {};

TEST_P(InverseSequences, StandUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1000); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    const int places = Pick(random, 0, 4);
    const int others = OneIn(random, 12) ? Pick(random, 0, 3) : places;
    const std::int32_t f_index = Pick(random, -2, 2);
    const std::int32_t g_index = Pick(random, -2, 2);
    const int repeated = OneIn(random, 4) ? 5 : 0;
    for (int i = 0; i < places; ++i) {
      chosen.AddTerm(Range(g_index - 1, g_index + places), 5, repeated);
    }
    for (int i = 0; i < others; ++i) {
      chosen.AddTerm(Range(f_index - 1, f_index + places), 5, repeated);
    }
    const auto f_places = static_cast<std::size_t>(places);
    const bool exact = GetParam().with_all_different && chosen.AreSets() && !chosen.Repeats();
    CheckConstraint(chosen.Finish(
                        GetParam().name, exact ? Strength::kDomain : Strength::kWeaker,
                        [&](KivOmbNetwork& network, auto arguments) {
                          if (GetParam().with_all_different) {
                            PostInverse(network, arguments.first(f_places),
                                        arguments.subspan(f_places), f_index, g_index);
                          } else {
                            network.Emplace<Inverse>(arguments, static_cast<unsigned>(f_places),
                                                     f_index, g_index);
                          }
                        },
                        [&](const Assignment& values) {
                          return AreInverse(values, f_places, f_index, g_index);
                        }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Postings, InverseSequences,
                         testing::Values(Posting{"Alone", false},
                                         Posting{"WithAllDifferent", true}),
                         [](const auto& posting) { return std::string(posting.param.name); });

TEST(Inverse, UnknownSequencesTakeTheirPlaces) {
  KivOmbNetwork network;
  const std::array f{Declare(network, {Kind("enum int"), {}}),
                     Declare(network, {Kind("enum int"), {}})};
  const std::array g{Declare(network, {Kind("enum int"), {}}), Declare(network, {Kind("int"), {}})};
  PostInverse(network, f, g, 1, 5);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, f[0]), "{ 5, 6 }");
  EXPECT_EQ(Text(network, g[0]), "{ 1, 2 }");
  EXPECT_EQ(Text(network, g[1]), "Any");
  Restrict(network, f[1], {5});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "6; 5; 2; 1");
}

TEST(Inverse, PlacesBeyondTheIntegersAreNobodys) {
  KivOmbNetwork network;
  const std::array f{Declare(network, {Kind("enum int"), {kMost, kMost - 1}}),
                     Declare(network, {Kind("enum int"), {kMost, kMost - 1}})};
  const std::array g{Declare(network, {Kind("enum int"), {0, 1}}),
                     Declare(network, {Kind("enum int"), {0, 1}})};
  PostInverse(network, f, g, 0, kMost - 1);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  PostInverse(network, f, g, 0, kMost);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(Inverse, SequencesOfDifferentLengthContradict) {
  KivOmbNetwork network;
  const std::array f{Declare(network, {Kind("enum int"), {0}})};
  PostInverse(network, f, {}, 0, 0);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(Inverse, EmptySequencesAreInverse) {
  KivOmbNetwork network;
  PostInverse(network, {}, {}, 3, kMost);
  EXPECT_EQ(network.Propagate(), Outcome::kFixpoint);
}

TEST(Inverse, TellsItsGroundTruthBeyond32Bits) {
  const Inverse inverse(2, 1, 0);
  EXPECT_TRUE(inverse.Holds(std::array<std::int64_t, 4>{1, 0, 2, 1}));
  EXPECT_FALSE(inverse.Holds(std::array<std::int64_t, 4>{1, 4294967296, 2, 1}));
  EXPECT_FALSE(inverse.Holds(std::array<std::int64_t, 4>{1, 0, 1, 2}));
}

}  // namespace
}  // namespace kiv::test
