#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/tools/models.h"
#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

constexpr const char* kQueens =
    "param n : int = 8; q[n] : enum int = [1, n]; all_different(q);\n"
    "for i in 1..n, j in i+1..n { q[i] + (j - i) <> q[j]; q[i] - (j - i) <> q[j]; }\n"
    "solve;";

// The solutions of an output, sorted.
std::vector<std::string> SolutionsIn(const std::string& output) {
  std::vector<std::string> solutions;
  for (const std::string& line : Lines(output)) {
    if (line != "----------") solutions.push_back(line);
  }
  std::ranges::sort(solutions);
  return solutions;
}

TEST(Limits, EndASearchThatFoundNothingAsUnknown) {
  const auto expect = [](const std::vector<std::string>& arguments, const std::string& reason) {
    const CommandResult result = RunKivOn(kEndless, arguments);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, reason + " limit reached; 0 solutions so far\n");
    EXPECT_EQ(result.exit_code, 3);
  };
  expect({"solve", "--time-limit", "50ms"}, "time");
  expect({"solve", "--node-limit", "1000"}, "node");
  expect({"solve", "--failure-limit", "100"}, "failure");
}

TEST(Limits, KeepWhatWasFound) {
  const CommandResult all = RunKivOn(kQueens, {"solve", "-a", "--node-limit", "100"});
  EXPECT_FALSE(all.output.empty());
  EXPECT_EQ(all.errors.rfind("node limit reached; ", 0), 0u) << all.errors;
  EXPECT_EQ(all.exit_code, 3);

  const CommandResult best = RunKivOn(kEndlessOptimisation, {"solve", "--failure-limit", "1000"});
  EXPECT_NE(best.output.find("e = 1\n"), std::string::npos) << best.output;
  EXPECT_EQ(best.errors, "failure limit reached; 1 solution so far\nbest so far: objective = 1\n");
  EXPECT_EQ(best.exit_code, 3);
}

TEST(Limits, DoNotMatterOnceEverythingWasSearched) {
  const CommandResult result =
      RunKivOn("x : enum int = [1, 3]; solve all;",
               {"solve", "--time-limit", "1h", "--node-limit", "1000", "--failure-limit", "1000"});
  EXPECT_EQ(result.errors, "3 solutions\n");
  EXPECT_EQ(result.exit_code, 0);
}

TEST(Strategies, FindTheSameSolutionsInTheirOrder) {
  const std::vector<std::string> expected =
      SolutionsIn(RunKivOn(kQueens, {"solve", "-a", "-D", "n=6"}).output);
  EXPECT_EQ(expected.size(), 4u);
  for (const char* strategy : {"default", "first_fail", "dom_w_deg,upper_half", "activity,random",
                               "input_order,greatest", "max_regret,middle"}) {
    for (const char* restarts : {"none", "constant:2", "linear:2", "geometric:2:1.5", "luby:1"}) {
      const CommandResult result = RunKivOn(
          kQueens, {"solve", "-a", "-D", "n=6", "--strategy", strategy, "--restarts", restarts});
      EXPECT_EQ(SolutionsIn(result.output), expected) << strategy << ' ' << restarts;
      EXPECT_EQ(result.exit_code, 0);
    }
  }
}

TEST(Strategies, DecideWhichSolutionIsFirst) {
  const std::string model = "x, y : enum int = [1, 9]; x + y = 10; solve;";
  const auto first = [&](const char* strategy) {
    return RunKivOn(model, {"solve", "--strategy", strategy}).output;
  };
  EXPECT_EQ(first("input_order,smallest"), "x = 1\ny = 9\n----------\n");
  EXPECT_EQ(first("input_order,greatest"), "x = 9\ny = 1\n----------\n");
  EXPECT_EQ(first("input_order,middle"), "x = 5\ny = 5\n----------\n");
}

TEST(Strategies, OfTheModelGiveWayToTheCommandLine) {
  const std::string model = "x : enum int = [1, 9]; branch on x by input_order, greatest; solve;";
  EXPECT_EQ(RunKivOn(model, {"solve"}).output, "x = 9\n----------\n");
  EXPECT_EQ(RunKivOn(model, {"solve", "--strategy", "input_order,smallest"}).output,
            "x = 1\n----------\n");
}

TEST(Strategies, ThatDoNotExistAreRefused) {
  for (const std::vector<std::string>& option :
       {std::vector<std::string>{"--strategy", "frst_fail"},
        {"--restarts", "often"},
        {"--time-limit", "soon"},
        {"--seed", "x"},
        {"--node-limit", "-1"},
        {"--failure-limit", "1.5"},
        {"--seed", "99999999999999999999"},
        {"--trace", "xml"}}) {
    const CommandResult result = RunKivOn(kQueens, {"solve", option[0], option[1]});
    EXPECT_EQ(result.exit_code, 2) << option[0];
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors.find(option[0]), std::string::npos) << result.errors;
  }
}

TEST(Seeds, DecideRandomChoices) {
  const auto run = [](const char* seed) {
    return RunKivOn(kQueens, {"solve", "-a", "--strategy", "first_fail,random", "--seed", seed})
        .output;
  };
  EXPECT_EQ(run("1"), run("1"));
  EXPECT_NE(run("1"), run("2"));
  EXPECT_EQ(SolutionsIn(run("1")), SolutionsIn(run("2")));
}

TEST(Optimisation, EndsWithTheProofOfTheOptimum) {
  const CommandResult result = RunKivOn(kClimb, {"solve", "--strategy", "first_fail"});
  EXPECT_TRUE(result.output.ends_with("x = 8\n----------\nx = 9\n----------\n==========\n"))
      << result.output;
  EXPECT_EQ(result.errors, "9 solutions\noptimal: objective = 9\n");
  EXPECT_EQ(result.exit_code, 0);
}

TEST(Optimisation, OfNothingHasNoSolution) {
  const CommandResult result = RunKivOn("x : enum int = [1, 3]; x > 3; minimize x;", {"solve"});
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "no solution\n");
  EXPECT_EQ(result.exit_code, 1);
}

TEST(Optimisation, StopsAfterTheSolutionsThatAreAskedFor) {
  const CommandResult result = RunKivOn(kClimb, {"solve", "-n", "2", "--strategy", "first_fail"});
  EXPECT_EQ(result.output, "x = 1\n----------\nx = 2\n----------\n");
  EXPECT_EQ(result.errors, "2 solutions\nbest so far: objective = 2\n");
  EXPECT_EQ(result.exit_code, 0);
}

// A variable that stays unknown could hide a better value.
TEST(Optimisation, IsNotProvedWhereSomethingStaysUnknown) {
  const CommandResult result = RunKivOn(
      "x : enum int = [1, 2]; y : enum int; t : bool; t = (x == 1);\n"
      "t or y == 1; minimize x;",
      {"solve"});
  EXPECT_EQ(result.output.find("=========="), std::string::npos) << result.output;
  EXPECT_NE(result.errors.find("left unknown"), std::string::npos) << result.errors;
  EXPECT_EQ(result.exit_code, 3);
}

TEST(Optimisation, KeepsItsBestSolutionWhenItIsInterrupted) {
  CommandSettings settings;
  settings.input = kEndlessOptimisation;
  settings.stop_signal = 2;
  const CommandResult result = RunKiv({"solve", "--stats", "-"}, settings);
  EXPECT_NE(result.output.find("e = 1\n----------\n"), std::string::npos) << result.output;
  EXPECT_EQ(result.output.find("=========="), std::string::npos);
  EXPECT_EQ(result.errors.rfind("interrupted; 1 solution so far\nbest so far: objective = 1\n", 0),
            0u)
      << result.errors;
  EXPECT_NE(result.errors.find("\nfailures "), std::string::npos) << result.errors;
  EXPECT_EQ(result.exit_code, 130);
}

TEST(Statistics, AreAlignedOnStandardError) {
  const CommandResult result = RunKivOn(kQueens, {"solve", "-a", "--stats"});
  const std::vector<std::string> lines = Lines(result.errors);
  const std::vector<std::string> names = {
      "variables", "constraints", "solutions",    "possibilities", "nodes",  "failures",
      "restarts",  "nogoods",     "propagations", "peak_depth",    "seconds"};
  ASSERT_EQ(lines.size(), names.size() + 1);
  EXPECT_EQ(lines[0], "92 solutions");
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(lines[i + 1].rfind(names[i] + ' ', 0), 0u) << lines[i + 1];
    EXPECT_EQ(lines[i + 1].size(), lines[1].size());
  }
  EXPECT_TRUE(lines[3].ends_with(" 92")) << lines[3];
}

TEST(Quiet, LeavesTheCountsOut) {
  const CommandResult result = RunKivOn(kClimb, {"solve", "--quiet"});
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(result.output.ends_with("==========\n"));
  EXPECT_EQ(RunKivOn("x : enum int = 1; x > 1; solve;", {"solve", "-q"}).errors, "");
}

}  // namespace
}  // namespace kiv::test
