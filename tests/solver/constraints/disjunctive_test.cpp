#include "solver/constraints/disjunctive.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

// By looking at every point of time.
bool RunsOneAtATime(const Assignment& values) {
  const std::size_t tasks = values.size() / 2;
  std::int64_t first = 0;
  std::int64_t last = 0;
  for (std::size_t i = 0; i < tasks; ++i) {
    if (values[tasks + i] < 0) return false;
    first = std::min(first, values[i]);
    last = std::max(last, values[i] + values[tasks + i]);
  }
  for (std::int64_t time = first; time < last; ++time) {
    int running = 0;
    for (std::size_t i = 0; i < tasks; ++i) {
      if (values[i] <= time && time < values[i] + values[tasks + i]) ++running;
    }
    if (running > 1) return false;
  }
  return true;
}

ConstraintCase DisjunctiveCase(RandomCase& chosen, unsigned tasks) {
  return chosen.Finish(
      "disjunctive", Strength::kWeaker,
      [=](KivOmbNetwork& network, auto arguments) {
        network.Emplace<Disjunctive>(arguments, tasks);
      },
      RunsOneAtATime);
}

TEST(Disjunctive, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto tasks = static_cast<unsigned>(Pick(random, 0, 3));
    RandomCase chosen(random);
    for (unsigned i = 0; i < tasks; ++i) chosen.AddInteger(Range(-2, 5), 5, 20);
    for (unsigned i = 0; i < tasks; ++i) chosen.AddInteger(Range(-1, 4), 3, 20);
    return DisjunctiveCase(chosen, tasks);
  });
}

// All durations fixed, as most models have it.
TEST(Disjunctive, OfFixedDurationsStandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto tasks = static_cast<unsigned>(Pick(random, 2, 5));
    RandomCase chosen(random);
    const std::size_t most = tasks < 5 ? 7 : 5;
    for (unsigned i = 0; i < tasks; ++i) chosen.AddInteger(Range(0, 11), most, 20);
    for (unsigned i = 0; i < tasks; ++i) chosen.Add({Kind("int"), {Pick(random, 0, 4)}});
    return DisjunctiveCase(chosen, tasks);
  });
}

struct Task {
  Values start;
  Values duration;
};

Outcome PostTasks(KivOmbNetwork& network, const std::vector<Task>& tasks) {
  std::vector<VariableId> arguments;
  for (const auto part : {&Task::start, &Task::duration}) {
    for (const Task& task : tasks) {
      arguments.push_back(Declare(network, {Kind("interval int"), task.*part}));
    }
  }
  network.Emplace<Disjunctive>(arguments, static_cast<unsigned>(tasks.size()));
  return network.Propagate();
}

// Neither of the two surely runs at any time.
TEST(Disjunctive, ATaskThatCannotComeBeforeAnotherComesAfter) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{0, 7}, {4}}, {{5, 20}, {3}}}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 1), "[5, 20]");
  KivOmbNetwork late;
  ASSERT_EQ(PostTasks(late, {{{4, 7}, {4}}, {{5, 20}, {3}}}), Outcome::kFixpoint);
  EXPECT_EQ(Text(late, 1), "[8, 20]");
}

TEST(Disjunctive, TooManyTasksDoNotFitIn) {
  KivOmbNetwork network;
  EXPECT_EQ(PostTasks(network, {{{0, 3}, {2}}, {{0, 3}, {2}}, {{0, 3}, {2}}}),
            Outcome::kContradiction);
}

// The two short tasks fill what is before 6 so far that the long one, which could start before
// either of them, must follow both.
TEST(Disjunctive, ATaskThatWouldDelayOthersTooMuchComesLast) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{0, 3}, {3}}, {{1, 3}, {3}}, {{0, 20}, {2}}}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 2), "[6, 20]");
}

// Behind both others the last one would start at 10; the first of those starts at 12 the latest.
TEST(Disjunctive, ATaskThatCannotBeLastEndsBeforeAnotherStarts) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{0, 12}, {5}}, {{0, 11}, {5}}, {{0, 9}, {4}}}),
            Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 2), "[0, 8]");
}

TEST(Disjunctive, ADurationEndsBeforeATaskThatItCannotFollow) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{2, 4}, {0, 100}}, {{4, 10}, {5}}}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 2), "[0, 8]");
}

TEST(Disjunctive, ATaskWithoutDurationStandsAnywhere) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{0}, {5}}, {{3}, {0}}, {{2}, {0, 4}}}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 5), "0");
}

TEST(Disjunctive, UnknownArgumentsHinderNothing) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{}, {}}, {{0}, {5}}, {{2, 8}, {2}}}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "Any");
  EXPECT_EQ(Text(network, 3), "[0, Max]");
  EXPECT_EQ(Text(network, 2), "[5, 8]");
}

TEST(Disjunctive, TimesBeyond32BitsAreCompared) {
  KivOmbNetwork network;
  EXPECT_EQ(PostTasks(network, std::vector<Task>(3, {{-kMost, kMost}, {kMost}})),
            Outcome::kFixpoint);
  KivOmbNetwork overloaded;
  EXPECT_EQ(PostTasks(overloaded, std::vector<Task>(4, {{-kMost, kMost}, {kMost}})),
            Outcome::kContradiction);
}

TEST(Disjunctive, TellsItsGroundTruthBeyond32Bits) {
  const Disjunctive disjunctive(2);
  EXPECT_FALSE(disjunctive.Holds(std::array<std::int64_t, 4>{kMost, kMost - 1, kMost, kMost}));
  EXPECT_TRUE(disjunctive.Holds(std::array<std::int64_t, 4>{0, kMost, kMost, kMost}));
  EXPECT_TRUE(disjunctive.Holds(std::array<std::int64_t, 4>{3, 0, 0, 9}));
  EXPECT_FALSE(disjunctive.Holds(std::array<std::int64_t, 4>{3, 0, -1, 9}));
}

}  // namespace
}  // namespace kiv::test
