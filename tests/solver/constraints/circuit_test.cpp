#include "solver/constraints/circuit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "solver/constraints/subcircuit.h"
#include "tests/solver/constraints/random_case.h"
#include "tests/support/modules.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

// The places reached from `start`, in order, until one comes again; empty when a step leaves the
// places or comes back elsewhere than to the start.
std::vector<std::int64_t> CircleFrom(const Assignment& successors, std::int64_t start,
                                     std::int64_t first) {
  std::vector<std::int64_t> circle;
  std::int64_t place = start;
  do {
    if (place < 0 || place >= static_cast<std::int64_t>(successors.size())) return {};
    if (std::ranges::find(circle, place) != circle.end()) return {};
    circle.push_back(place);
    place = successors[static_cast<std::size_t>(place)] - first;
  } while (place != start);
  return circle;
}

bool IsCircuit(const Assignment& successors, std::int64_t first) {
  return successors.empty() || CircleFrom(successors, 0, first).size() == successors.size();
}

// Every place is on a circle, and at most one circle has more than one place.
bool IsSubcircuit(const Assignment& successors, std::int64_t first) {
  std::set<std::set<std::int64_t>> circles;
  for (std::size_t i = 0; i < successors.size(); ++i) {
    const auto circle = CircleFrom(successors, static_cast<std::int64_t>(i), first);
    if (circle.empty()) return false;
    if (circle.size() > 1) circles.emplace(circle.begin(), circle.end());
  }
  return circles.size() <= 1;
}

struct Shape {
  const char* name;
  void (*post)(KivOmbNetwork&, std::span<const VariableId>, std::int32_t first);
  bool (*holds)(const Assignment& successors, std::int64_t first);
};

const Shape kShapes[] = {
    {"Circuit",
     [](KivOmbNetwork& network, std::span<const VariableId> successors, std::int32_t first) {
       PostCircuit(network, successors, first);
     },
     IsCircuit},
    {"CircuitAlone",
     [](KivOmbNetwork& network, std::span<const VariableId> successors, std::int32_t first) {
       network.Emplace<Circuit>(successors, first);
     },
     IsCircuit},
    {"Subcircuit",
     [](KivOmbNetwork& network, std::span<const VariableId> successors, std::int32_t first) {
       PostSubcircuit(network, successors, first);
     },
     IsSubcircuit},
    {"SubcircuitAlone",
     [](KivOmbNetwork& network, std::span<const VariableId> successors, std::int32_t first) {
       network.Emplace<Subcircuit>(successors, first);
     },
     IsSubcircuit},
};

class Circuits : public testing::TestWithParam<Shape> {};

TEST_P(Circuits, StandUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1000); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    const int places = Pick(random, 0, 5);
    const std::int32_t index = OneIn(random, 8) ? kMost - places + 1 : Pick(random, -2, 2);
    const Values pool = Range(index - 1, std::min(index, kMost - places) + places);
    for (int i = 0; i < places; ++i) chosen.AddTerm(pool, 5, OneIn(random, 8) ? 3 : 0);
    CheckConstraint(chosen.Finish(
                        GetParam().name, Strength::kWeaker,
                        [&](KivOmbNetwork& network, auto arguments) {
                          GetParam().post(network, arguments, index);
                        },
                        [&](const Assignment& values) { return GetParam().holds(values, index); }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, Circuits, testing::ValuesIn(kShapes),
                         [](const auto& shape) { return std::string(shape.param.name); });

std::vector<VariableId> DeclareAll(KivOmbNetwork& network, const std::vector<Values>& domains) {
  std::vector<VariableId> variables;
  for (const Values& values : domains) {
    variables.push_back(Declare(network, {Kind("enum int"), values}));
  }
  return variables;
}

TEST(Circuit, AChainDoesNotLeadBackBeforeItPassedAllPlaces) {
  KivOmbNetwork network;
  const auto x = DeclareAll(network, {{1}, {2}, Range(0, 4), Range(0, 4), Range(0, 4)});
  PostCircuit(network, x, 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x[2]), "{ 3, 4 }");
  EXPECT_EQ(Text(network, x[3]), "{ 0, 4 }");
  Restrict(network, x[2], {4});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "1; 2; 4; 0; 3");
}

TEST(Circuit, OnePlaceLeadsToItself) {
  for (const bool all : {true, false}) {
    KivOmbNetwork network;
    const auto x = DeclareAll(network, {{}});
    all ? PostCircuit(network, x, 7) : PostSubcircuit(network, x, 7);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(Text(network), "7");
  }
}

TEST(Circuit, NoPlaceIsACircuit) {
  KivOmbNetwork network;
  PostCircuit(network, {}, kMost);
  PostSubcircuit(network, {}, kMost);
  EXPECT_EQ(network.Propagate(), Outcome::kFixpoint);
}

TEST(Circuit, APlaceBeyondTheIntegersLeadsNowhere) {
  for (const bool all : {true, false}) {
    KivOmbNetwork network;
    const auto x = DeclareAll(network, {{}, {}});
    all ? PostCircuit(network, x, kMost) : PostSubcircuit(network, x, kMost);
    EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
  }
}

TEST(Subcircuit, AClosedChainLeavesOutTheOthers) {
  KivOmbNetwork network;
  const auto x = DeclareAll(network, {{1}, {0}, Range(0, 3), Range(0, 3)});
  PostSubcircuit(network, x, 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "1; 0; 2; 3");
}

TEST(Subcircuit, AChainPassesThePlacesThatCannotBeLeftOut) {
  KivOmbNetwork network;
  const auto x = DeclareAll(network, {{1}, Range(0, 3), Range(0, 3), {0, 1, 2}});
  PostSubcircuit(network, x, 0);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x[1]), "{ 2, 3 }");
  Restrict(network, x[2], {2});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network), "1; 3; 2; 0");
}

TEST(Circuit, TellsItsGroundTruthBeyond32Bits) {
  const Circuit circuit(1);
  EXPECT_TRUE(circuit.Holds(std::array<std::int64_t, 3>{2, 3, 1}));
  EXPECT_FALSE(circuit.Holds(std::array<std::int64_t, 3>{2, 1, 3}));
  EXPECT_FALSE(circuit.Holds(std::array<std::int64_t, 3>{2, 3, 4294967297}));
  EXPECT_TRUE(circuit.Holds({}));
  const Subcircuit subcircuit(1);
  EXPECT_TRUE(subcircuit.Holds(std::array<std::int64_t, 3>{2, 1, 3}));
  EXPECT_FALSE(subcircuit.Holds(std::array<std::int64_t, 4>{2, 1, 4, 3}));
  EXPECT_FALSE(subcircuit.Holds(std::array<std::int64_t, 3>{2, 4294967297, 3}));
  EXPECT_TRUE(subcircuit.Holds({}));
}

}  // namespace
}  // namespace kiv::test
