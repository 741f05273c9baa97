#include "solver/constraints/cumulative.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

// By looking at every point of time.
bool IsFeasible(const Assignment& values) {
  const std::size_t tasks = values.size() / 3;
  std::int64_t first = 0;
  std::int64_t last = 0;
  for (std::size_t i = 0; i < tasks; ++i) {
    const std::int64_t duration = values[tasks + i];
    if (duration < 0 || values[2 * tasks + i] < 0) return false;
    first = std::min(first, values[i]);
    last = std::max(last, values[i] + duration);
  }
  for (std::int64_t time = first; time <= last; ++time) {
    std::int64_t in_use = 0;
    for (std::size_t i = 0; i < tasks; ++i) {
      if (values[i] <= time && time < values[i] + values[tasks + i])
        in_use += values[2 * tasks + i];
    }
    if (in_use > values.back()) return false;
  }
  return true;
}

ConstraintCase CumulativeCase(RandomCase& random_case, unsigned tasks) {
  return random_case.Finish(
      "cumulative", Strength::kWeaker,
      [=](KivOmbNetwork& network, auto arguments) {
        network.Emplace<Cumulative>(arguments, tasks);
      },
      IsFeasible);
}

TEST(Cumulative, StandsUnderBruteForce) {
  CheckRandomCases(3000, [](Generator& random) {
    const auto tasks = static_cast<unsigned>(Pick(random, 0, 3));
    const std::size_t most = tasks < 3 ? 4 : 2;
    RandomCase random_case(random);
    for (unsigned i = 0; i < tasks; ++i) random_case.AddInteger(Range(-2, 5), most + 1, 20);
    for (unsigned i = 0; i < tasks; ++i) random_case.AddInteger(Range(-1, 4), most, 20);
    for (unsigned i = 0; i < tasks; ++i) random_case.AddInteger(Range(-1, 3), most, 20);
    if (OneIn(random, 12)) {
      random_case.AddUnknown(Range(-1, 8));
    } else {
      random_case.AddInteger(Range(-1, 5), most, 20);
    }
    return CumulativeCase(random_case, tasks);
  });
}

// All amounts fixed, as most models have it.
TEST(Cumulative, OfFixedTasksStandsUnderBruteForce) {
  CheckRandomCases(2000, [](Generator& random) {
    const auto tasks = static_cast<unsigned>(Pick(random, 2, 4));
    RandomCase random_case(random);
    for (unsigned i = 0; i < tasks; ++i) random_case.AddInteger(Range(0, 9), 7, 20);
    for (unsigned i = 0; i < tasks; ++i) random_case.Add({Kind("int"), {Pick(random, 0, 4)}});
    for (unsigned i = 0; i < tasks; ++i) random_case.Add({Kind("int"), {Pick(random, 0, 2)}});
    random_case.Add({Kind("int"), {Pick(random, 1, 3)}});
    return CumulativeCase(random_case, tasks);
  });
}

struct Task {
  Values start;
  Values duration;
  Values demand;
};

Outcome PostTasks(KivOmbNetwork& network, const std::vector<Task>& tasks, const Values& capacity) {
  std::vector<VariableId> arguments;
  for (const auto part : {&Task::start, &Task::duration, &Task::demand}) {
    for (const Task& task : tasks) {
      arguments.push_back(Declare(network, {Kind("interval int"), task.*part}));
    }
  }
  arguments.push_back(Declare(network, {Kind("interval int"), capacity}));
  network.Emplace<Cumulative>(arguments, static_cast<unsigned>(tasks.size()));
  return network.Propagate();
}

// The first surely runs from 4 to 6, the second must end before or start after.
TEST(Cumulative, AStartIsPushedOverWhatIsSurelyInUse) {
  KivOmbNetwork network;
  const std::vector<Task> tasks{{{2, 4}, {4}, {2}}, {{3, 9}, {3}, {2}}, {{0, 5}, {3}, {2}}};
  ASSERT_EQ(PostTasks(network, tasks, {3}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "[3, 4]");
  EXPECT_EQ(Text(network, 1), "[7, 9]");
  EXPECT_EQ(Text(network, 2), "[0, 1]");
}

TEST(Cumulative, TheCapacityIsAtLeastThePeak) {
  KivOmbNetwork network;
  const std::vector<Task> tasks{{{0}, {5}, {2}}, {{3}, {5}, {3, 9}}, {{4, 100}, {0}, {50}}};
  ASSERT_EQ(PostTasks(network, tasks, {-5, 7}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 9), "[5, 7]");
  EXPECT_EQ(Text(network, 7), "[3, 5]");
}

TEST(Cumulative, ADurationEndsBeforeTheNextConflict) {
  KivOmbNetwork network;
  const std::vector<Task> tasks{
      {{2, 4}, {0, 100}, {1}}, {{0}, {1}, {1}}, {{10}, {5}, {1}}, {{50}, {5}, {1}}};
  ASSERT_EQ(PostTasks(network, tasks, {1}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 4), "[0, 8]");
}

TEST(Cumulative, ATaskThatNeedsMoreThanThereIsDoesNotRun) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {{{0, 9}, {0, 4}, {3}}}, {0, 2}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 1), "0");
  KivOmbNetwork must_run;
  EXPECT_EQ(PostTasks(must_run, {{{0, 9}, {1, 4}, {3}}}, {0, 2}), Outcome::kContradiction);
}

// Nothing runs surely at any time, but three tasks of two units do not fit into five.
TEST(Cumulative, AnOverloadIsFoundByEnergy) {
  const std::vector<Task> tasks(3, {{0, 3}, {2}, {1}});
  KivOmbNetwork overloaded;
  EXPECT_EQ(PostTasks(overloaded, tasks, {1}), Outcome::kContradiction);
  KivOmbNetwork fits;
  EXPECT_EQ(PostTasks(fits, tasks, {2}), Outcome::kFixpoint);
}

TEST(Cumulative, EnergiesBeyond64BitsAreCompared) {
  const std::vector<Task> tasks(9, {{-2000000000, 0}, {2000000000}, {2000000000}});
  KivOmbNetwork network;
  EXPECT_EQ(PostTasks(network, tasks, {2147483646}), Outcome::kContradiction);
}

TEST(Cumulative, UnknownArgumentsHinderNothing) {
  KivOmbNetwork network;
  const std::vector<Task> tasks{{{}, {}, {}}, {{0}, {5}, {1}}, {{2, 8}, {2}, {1}}};
  ASSERT_EQ(PostTasks(network, tasks, {1}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "Any");
  EXPECT_EQ(Text(network, 3), "[0, Max]");
  EXPECT_EQ(Text(network, 2), "[5, 8]");
  KivOmbNetwork open;
  ASSERT_EQ(PostTasks(open, tasks, {}), Outcome::kFixpoint);
  EXPECT_EQ(Text(open, 9), "[1, Max]");
}

TEST(Cumulative, WithDemandsAndCapacityOneNoTwoTasksOverlap) {
  KivOmbNetwork network;
  std::vector<Task> tasks;
  for (const int duration : {1, 2, 3}) tasks.push_back({{0, 6 - duration}, {duration}, {1}});
  ASSERT_EQ(PostTasks(network, tasks, {1}), Outcome::kFixpoint);
  // The tasks fill the time; each order of them is a solution.
  EXPECT_EQ(SearchSolutions(network).size(), 6u);
}

TEST(Cumulative, OfNoTasksAsksForACapacityThatIsNotNegative) {
  KivOmbNetwork network;
  ASSERT_EQ(PostTasks(network, {}, {-3, 4}), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, 0), "[0, 4]");
}

TEST(Cumulative, TellsItsGroundTruthBeyond32Bits) {
  const Cumulative cumulative(2);
  const std::int64_t big = 2147483646;
  EXPECT_FALSE(cumulative.Holds(std::array<std::int64_t, 7>{0, 1, 5, 5, big, big, big}));
  EXPECT_FALSE(cumulative.Holds(std::array<std::int64_t, 7>{big, big, big, big, 1, 1, 1}));
  EXPECT_TRUE(cumulative.Holds(std::array<std::int64_t, 7>{big, 1, big, big - 1, 1, 1, 1}));
}

}  // namespace
}  // namespace kiv::test
