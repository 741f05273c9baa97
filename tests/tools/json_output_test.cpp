#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/tools/json_schema.h"
#include "tests/tools/models.h"
#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

using Json = nlohmann::json;

// The lines of an output, each valid under the published schema.
std::vector<Json> ReadLines(const std::string& output) {
  static const Json schema = Json::parse(ReadSourceFile("docs/kiv_output.schema.json"));
  std::vector<Json> lines;
  for (const std::string& line : Lines(output)) {
    lines.push_back(Json::parse(line));
    EXPECT_EQ(FindSchemaError(lines.back(), schema), "") << line;
  }
  return lines;
}

std::vector<Json> Solve(const std::string& model, std::vector<std::string> options, int exit_code) {
  options.insert(options.begin(), {"solve", "--json"});
  const CommandResult result = RunKivOn(model, options);
  EXPECT_EQ(result.exit_code, exit_code);
  std::vector<Json> lines = ReadLines(result.output);
  EXPECT_FALSE(lines.empty());
  EXPECT_EQ(lines.back()["type"], "result");
  EXPECT_EQ(lines.back()["exit_code"], exit_code);
  return lines;
}

TEST(JsonOutput, TellsSolutionsByNameAndThenTheResult) {
  const auto lines = Solve(
      "x : enum int = [1, 2]; b : bool = true; q[3] : int; g[2, 2] : enum int; e[0] : int;\n"
      "q[1] = 4; q[2] = 5; q[3] = 6; g[1, 1] = 1; g[1, 2] = 2; g[2, 1] = 3; g[2, 2] = 4;\n"
      "solve all;",
      {}, 0);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0], (Json{{"type", "solution"},
                            {"number", 1},
                            {"variables",
                             {{"x", 1},
                              {"b", true},
                              {"q", {4, 5, 6}},
                              {"g", Json::array({{1, 2}, {3, 4}})},
                              {"e", Json::array()}}}}));
  EXPECT_EQ(lines[1]["number"], 2);
  EXPECT_EQ(lines[1]["variables"]["x"], 2);
  EXPECT_EQ(lines[2]["status"], "all_solutions");
  EXPECT_EQ(lines[2]["end"], "exhausted");
  EXPECT_EQ(lines[2]["statistics"]["solutions"], 2);
  EXPECT_FALSE(lines[2].contains("objective"));
}

TEST(JsonOutput, TellsHowASearchEnded) {
  const auto expect = [](const std::string& model, const std::vector<std::string>& options,
                         int exit_code, const char* status, const char* end) {
    const Json result = Solve(model, options, exit_code).back();
    EXPECT_EQ(result["status"], status) << model;
    EXPECT_EQ(result["end"], end) << model;
  };
  const std::string three = "x : enum int = [1, 3]; solve;";
  expect(three, {}, 0, "solved", "solution_limit");
  expect(three, {"-n", "9"}, 0, "all_solutions", "exhausted");
  expect("x : enum int = 1; x > 1; solve;", {}, 1, "unsatisfiable", "exhausted");
  expect(kClimb, {}, 0, "optimal", "exhausted");
  expect(kEndless, {"--node-limit", "50"}, 3, "unknown", "node_limit");
  expect(kEndless, {"--failure-limit", "50"}, 3, "unknown", "failure_limit");
  expect(kEndless, {"--time-limit", "10ms"}, 3, "unknown", "time_limit");
  expect(kEndlessOptimisation, {"--failure-limit", "50"}, 3, "solved", "failure_limit");
}

TEST(JsonOutput, TellsTheObjective) {
  const auto lines = Solve(kClimb, {"--strategy", "first_fail"}, 0);
  ASSERT_EQ(lines.size(), 10u);
  for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(lines[i]["objective"], i + 1);
  EXPECT_EQ(lines[9]["objective"], 9);
}

TEST(JsonOutput, TellsWhatStaysUnknown) {
  const auto lines = Solve("x : enum int; y : interval int; solve;", {}, 3);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]["type"], "possibility");
  EXPECT_EQ(lines[0]["variables"]["x"]["state"], "any");
  EXPECT_EQ(lines[1]["unknowns"], (Json{"x", "y"}));
  EXPECT_EQ(lines[1]["status"], "unknown");
}

TEST(JsonOutput, NamesTheConstraintOfAnOverflow) {
  const auto lines = Solve("x : enum int = 2147483; y : enum int;\ny = x*x; solve;", {}, 3);
  EXPECT_EQ(lines.back()["end"], "overflow");
  EXPECT_EQ(lines.back()["constraint"]["expression"], "x*x");
  EXPECT_EQ(lines.back()["constraint"]["place"], "<stdin>:2:5");
}

TEST(JsonOutput, EndsWithAResultWhenItIsInterrupted) {
  CommandSettings settings;
  settings.input = kEndlessOptimisation;
  settings.stop_signal = SIGINT;
  const CommandResult result = RunKiv({"solve", "--json", "-"}, settings);
  EXPECT_EQ(result.exit_code, 130);
  EXPECT_EQ(result.errors, "");
  const auto lines = ReadLines(result.output);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]["objective"], 1);
  EXPECT_EQ(lines[1]["status"], "solved");
  EXPECT_EQ(lines[1]["end"], "interrupted");
  EXPECT_EQ(lines[1]["exit_code"], 130);
}

TEST(JsonOutput, TellsDomains) {
  const CommandResult result = RunKivOn(
      "x : enum int = { 1, 5, 7, 9 }; y : interval int = [0, 100]; z : int; b : bool; x < 8; "
      "y = x; q[2] : interval int = [0, 5000]; q[1] = 3; solve;",
      {"propagate", "--json"});
  const auto lines = ReadLines(result.output);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0]["status"], "fixpoint");
  EXPECT_EQ(lines[0]["variables"]["x"]["values"], (Json{1, 5, 7}));
  EXPECT_EQ(lines[0]["variables"]["y"]["lower"], 1);
  EXPECT_EQ(lines[0]["variables"]["y"]["text"], "[1, 7]");
  EXPECT_EQ(lines[0]["variables"]["z"]["state"], "any");
  EXPECT_EQ(lines[0]["variables"]["b"]["kind"], "bool");
  EXPECT_EQ(lines[0]["variables"]["q"][0], 3);
  EXPECT_FALSE(lines[0]["variables"]["q"][1].contains("values"));
}

TEST(JsonOutput, TellsAContradictionOfPropagation) {
  const CommandResult result =
      RunKivOn("x : enum int = [1, 3];\nx > 4;\nsolve;", {"propagate", "--json"});
  EXPECT_EQ(result.exit_code, 1);
  const auto lines = ReadLines(result.output);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0], (Json{{"type", "domains"},
                            {"status", "contradiction"},
                            {"exit_code", 1},
                            {"constraint", {{"place", "<stdin>:2:1"}, {"expression", "x > 4"}}}}));
}

TEST(JsonOutput, TracesUnderTheSameSchema) {
  const CommandResult result =
      RunKivOn("x, y : enum int = [1, 2];\nx <> y;\nx = y;\nsolve;",
               {"solve", "--json", "--trace", "json", "--strategy", "input_order"});
  std::set<std::string> types;
  for (const Json& line : ReadLines(result.errors)) types.insert(line["type"]);
  EXPECT_EQ(types, (std::set<std::string>{"narrowing", "decision", "contradiction"}));
}

TEST(JsonOutput, IsEmptyForAModelThatIsWrong) {
  const CommandResult result = RunKivOn("x = 1; solve;", {"solve", "--json"});
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors, "");
  EXPECT_EQ(result.exit_code, 2);
}

// The validator must be able to fail.
TEST(JsonSchema, RefusesWhatDoesNotFit) {
  const Json schema = Json::parse(ReadSourceFile("docs/kiv_output.schema.json"));
  const Json good = {{"type", "solution"}, {"number", 1}, {"variables", {{"x", 1}}}};
  ASSERT_EQ(FindSchemaError(good, schema), "");
  for (const char* member : {"type", "number", "variables"}) {
    Json less = good;
    less.erase(member);
    EXPECT_NE(FindSchemaError(less, schema), "") << member;
  }
  const auto with = [&](const char* member, const Json& value) {
    Json changed = good;
    changed[member] = value;
    return changed;
  };
  EXPECT_NE(FindSchemaError(with("type", "solutions"), schema), "");
  EXPECT_NE(FindSchemaError(with("number", 0), schema), "");
  EXPECT_NE(FindSchemaError(with("number", 1.5), schema), "");
  EXPECT_NE(FindSchemaError(with("more", 1), schema), "");
  EXPECT_NE(FindSchemaError(with("variables", Json{{"x", "1"}}), schema), "");
  EXPECT_NE(
      FindSchemaError(with("variables", Json{{"x", Json::array({Json::array({"a"})})}}), schema),
      "");
  EXPECT_THROW(FindSchemaError(good, Json{{"maximum", 1}}), std::invalid_argument);
}

}  // namespace
}  // namespace kiv::test
