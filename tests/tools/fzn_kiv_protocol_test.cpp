// What fzn-kiv prints, option by option.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "tests/tools/fzn_kiv.h"

namespace kiv::test {
namespace {

// Three solutions: 1, 2 and 3, in this order.
const std::string kThree =
    "var 1..3: x :: output_var;\n"
    "solve :: int_search([x], input_order, indomain_min, complete) satisfy;\n";
// Objectives 1, 2, ... 5, in this order.
const std::string kClimb =
    "var 1..5: x :: output_var;\n"
    "solve :: int_search([x], input_order, indomain_min, complete) maximize x;\n";
const std::string kNone = "var 1..3: x :: output_var; constraint int_le(4, x); solve satisfy;\n";

std::string Solutions(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text += "x = " + std::to_string(value) + ";\n----------\n";
  return text;
}

const std::string kEnd = "==========\n";

// Runs the text and expects an ordinary end and nothing on standard error.
std::string Output(const std::string& text, const std::vector<std::string>& arguments = {}) {
  const CommandResult result = RunFznKiv(text, arguments);
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.errors, "");
  return result.output;
}

TEST(FznKiv, FindsOneSolutionOfASatisfactionUnlessTold) {
  EXPECT_EQ(Output(kThree), Solutions({1}));
  EXPECT_EQ(Output(kThree, {"-i"}), Solutions({1}));
}

TEST(FznKiv, FindsAllSolutionsEachOnce) {
  EXPECT_EQ(Output(kThree, {"-a"}), Solutions({1, 2, 3}) + kEnd);
}

TEST(FznKiv, StopsAfterSoManySolutions) {
  EXPECT_EQ(Output(kThree, {"-n", "2"}), Solutions({1, 2}));
  EXPECT_EQ(Output(kThree, {"-n", "3"}), Solutions({1, 2, 3}));
  EXPECT_EQ(Output(kThree, {"-n", "4"}), Solutions({1, 2, 3}) + kEnd);
  EXPECT_EQ(Output(kThree, {"-a", "-n", "2"}), Solutions({1, 2}));
}

TEST(FznKiv, PrintsTheBestSolutionOfAnOptimisationAlone) {
  EXPECT_EQ(Output(kClimb), Solutions({5}) + kEnd);
}

TEST(FznKiv, PrintsEachBetterSolutionWhenTold) {
  EXPECT_EQ(Output(kClimb, {"-i"}), Solutions({1, 2, 3, 4, 5}) + kEnd);
  EXPECT_EQ(Output(kClimb, {"-a"}), Solutions({1, 2, 3, 4, 5}) + kEnd);
  EXPECT_EQ(Output(kClimb, {"-n", "2"}), Solutions({1, 2}));
  EXPECT_EQ(Output(kClimb, {"-n", "9"}), Solutions({1, 2, 3, 4, 5}) + kEnd);
}

TEST(FznKiv, SaysThatThereIsNoSolution) {
  for (const char* option : {"-a", "-i", "-f"}) {
    EXPECT_EQ(Output(kNone, {option}), "=====UNSATISFIABLE=====\n");
  }
  EXPECT_EQ(Output(kNone, {"-n", "3"}), "=====UNSATISFIABLE=====\n");
}

TEST(FznKiv, AModelWithoutOutputHasSolutionsAllTheSame) {
  EXPECT_EQ(Output("var 1..2: x; solve satisfy;"), "----------\n");
  EXPECT_EQ(Output("var 1..2: x; solve satisfy;", {"-a"}), "----------\n----------\n" + kEnd);
  EXPECT_EQ(Output("solve satisfy;", {"-a"}), "----------\n" + kEnd);
}

TEST(FznKiv, PrintsVariablesAndArraysAsTheyAreAnnotated) {
  EXPECT_EQ(Output("var 2..2: x :: output_var; var 3..3: y; var bool: b :: output_var = true;\n"
                   "array [1..4] of var int: a :: output_array([0..1, 1..2]) = [x, y, 7, x];\n"
                   "solve satisfy;"),
            "x = 2;\nb = true;\na = array2d(0..1, 1..2, [2, 3, 7, 2]);\n----------\n");
}

TEST(FznKiv, IntroducedVariablesDoNotMultiplySolutions) {
  EXPECT_EQ(Output("var 1..2: x :: output_var; var 1..9: i :: var_is_introduced;\n"
                   "constraint int_le(x, i);\n"
                   "solve :: int_search([x], input_order, indomain_min, complete) satisfy;",
                   {"-a"}),
            Solutions({1, 2}) + kEnd);
}

TEST(FznKiv, AFreeSearchFindsTheSame) {
  EXPECT_EQ(Output(kClimb, {"-f"}), Solutions({5}) + kEnd);
  const auto lines = Lines(Output(kThree, {"-f", "-a"}));
  EXPECT_EQ(std::ranges::count(lines, "----------"), 3);
  EXPECT_EQ(lines.back() + '\n', kEnd);
}

TEST(FznKiv, TheSeedDecidesWhatIsRandom) {
  const std::string text =
      "var 1..100000: x :: output_var;\n"
      "solve :: int_search([x], input_order, indomain_random, complete) satisfy;\n";
  EXPECT_EQ(Output(text, {"-r", "5"}), Output(text, {"-r", "5"}));
  EXPECT_NE(Output(text, {"-r", "5"}), Output(text, {"-r", "-6"}));
}

TEST(FznKiv, AcceptsANumberOfThreads) { EXPECT_EQ(Output(kThree, {"-p", "4"}), Solutions({1})); }

TEST(FznKiv, TellsMoreOnStandardErrorOnly) {
  const CommandResult result =
      RunFznKiv("var 1..3: x :: output_var; solve :: lucky satisfy;", {"-v", "-a", "-p", "2"});
  EXPECT_EQ(result.exit_code, 0);
  const auto lines = Lines(result.output);
  EXPECT_EQ(std::ranges::count(lines, "----------"), 3);
  EXPECT_NE(result.errors.find("'lucky' is ignored"), std::string::npos);
  EXPECT_NE(result.errors.find("has 1 variable and 0 constraints"), std::string::npos)
      << result.errors;
  EXPECT_NE(result.errors.find("-p"), std::string::npos);
}

TEST(FznKiv, WarnsOfAWarmStartUnasked) {
  const CommandResult result =
      RunFznKiv("var 1..3: x :: output_var; solve :: warm_start([x], [2]) satisfy;");
  EXPECT_EQ(result.errors, "fzn-kiv: warning: the annotation 'warm_start' is ignored\n");
  EXPECT_EQ(result.output, Solutions({1}));
}

// The statistics behind the end of the solutions.
std::map<std::string, double> ReadStatistics(const std::string& output) {
  std::map<std::string, double> statistics;
  const std::string prefix = "%%%mzn-stat: ";
  for (const std::string& line : Lines(output)) {
    if (!line.starts_with(prefix)) continue;
    const std::size_t sign = line.find('=');
    statistics[line.substr(prefix.size(), sign - prefix.size())] = std::stod(line.substr(sign + 1));
  }
  EXPECT_TRUE(output.ends_with("%%%mzn-stat-end\n")) << output;
  return statistics;
}

// That p + q = 3 leaves out x = 1 is found out by failures only.
TEST(FznKiv, StatisticsStandAtTheEnd) {
  const std::string output = Output(
      "var 1..5: x :: output_var; var 1..2: p; var 1..2: q; var bool: b;\n"
      "constraint int_ne(x, 2); constraint int_ne(p, q);\n"
      "constraint int_lin_ne([1, 1, 1], [p, q, x], 4);\n"
      "solve :: int_search([x, p, q], input_order, indomain_min, complete) maximize x;\n",
      {"-s", "-a"});
  EXPECT_TRUE(output.starts_with(Solutions({3, 4, 5}) + kEnd + "%%%mzn-stat: ")) << output;
  const auto statistics = ReadStatistics(output);
  const auto get = [&](const char* name) { return statistics.at(name); };
  EXPECT_EQ(get("solutions"), 3);
  EXPECT_EQ(get("objective"), 5);
  EXPECT_EQ(get("variables"), 4);
  EXPECT_EQ(get("intVariables"), 3);
  EXPECT_EQ(get("boolVariables"), 1);
  EXPECT_EQ(get("restarts"), 0);
  EXPECT_GE(get("propagators"), 1);
  EXPECT_GE(get("propagations"), 1);
  EXPECT_GE(get("nodes"), 4);
  EXPECT_EQ(get("failures"), 2);
  EXPECT_GE(get("peakDepth"), 1);
  EXPECT_GE(get("initTime"), 0);
  EXPECT_GE(get("solveTime"), 0);
}

TEST(FznKiv, StatisticsFollowEveryEnd) {
  EXPECT_TRUE(Output(kNone, {"-s"}).starts_with("=====UNSATISFIABLE=====\n%%%mzn-stat: "));
  const auto statistics = ReadStatistics(Output(kNone, {"-s"}));
  EXPECT_EQ(statistics.at("solutions"), 0);
  EXPECT_FALSE(statistics.contains("objective"));
}

TEST(FznKiv, AssumedBoundsAreToldAndProveNothing) {
  const CommandResult none = RunFznKiv(
      "var int: x :: output_var; var int: y; constraint int_lt(x, y); constraint int_lt(y, x);\n"
      "solve satisfy;");
  EXPECT_EQ(none.output, "=====UNKNOWN=====\n");
  EXPECT_EQ(none.errors,
            "fzn-kiv: warning: no bounds are known for x; assumed -1000000..1000000\n");
  EXPECT_EQ(none.exit_code, 0);

  const CommandResult some = RunFznKiv(
      "var int: x :: output_var; constraint int_le(2147483643, x);\n"
      "solve :: int_search([x], input_order, indomain_min, complete) satisfy;",
      {"-a"});
  EXPECT_EQ(some.output, Solutions({2147483643, 2147483644, 2147483645, 2147483646}))
      << "there are others";
  EXPECT_NE(some.errors.find("no bounds are known for x; assumed .."), std::string::npos);

  const CommandResult best = RunFznKiv(
      "var int: x :: output_var; var 1..2: y; constraint int_ne(x, y); solve minimize x;");
  EXPECT_EQ(best.output, Solutions({-1000000})) << "nothing says that this is the least";
}

TEST(FznKiv, ABoundThatFollowsIsNotAssumed) {
  EXPECT_EQ(Output("var int: x :: output_var; var 2..2: y; constraint int_times(y, y, x);\n"
                   "solve satisfy;",
                   {"-a"}),
            Solutions({4}) + kEnd);
}

TEST(FznKiv, SaysThatAnObjectiveIsUnbounded) {
  const CommandResult result =
      RunFznKiv("var int: x :: output_var; constraint int_le(3, x); solve maximize x;", {"-a"});
  EXPECT_EQ(result.output, "=====UNBOUNDED=====\n");
  EXPECT_EQ(result.exit_code, 0);
  const CommandResult none = RunFznKiv(
      "var int: x :: output_var; var 1..2: y; constraint int_le(3, y); solve maximize x;");
  EXPECT_EQ(none.output, "=====UNSATISFIABLE=====\n") << "no solution is no better one either";
}

TEST(FznKiv, WritesLargeArrays) {
  constexpr int kSize = 20000;
  std::string text = "var 0..1: x;\narray [1..20000] of var int: a :: output_array([1..20000]) = [";
  for (int i = 0; i < kSize; ++i) text += i == 0 ? "x" : ", x";
  const std::string output = Output(text + "];\nsolve satisfy;\n");
  EXPECT_TRUE(output.starts_with("a = array1d(1..20000, [0, 0, "));
  EXPECT_EQ(std::ranges::count(output, '0'), kSize + 4);
}

TEST(FznKiv, HelpAndVersionAreOrdinaryEnds) {
  const CommandResult help = RunFznKiv("", {"--help"});
  EXPECT_EQ(help.exit_code, 0);
  EXPECT_NE(help.output.find("fzn-kiv -a -s model.fzn"), std::string::npos);
  for (const char* option : {"-a", "-n", "-i", "-f", "-s", "-v", "-p", "-r", "-t"}) {
    EXPECT_NE(help.output.find(std::string(option) + ","), std::string::npos) << option;
  }
  const CommandResult version = RunFznKiv("", {"--version"});
  EXPECT_EQ(version.exit_code, 0);
  EXPECT_TRUE(version.output.starts_with("fzn-kiv "));
}

}  // namespace
}  // namespace kiv::test
