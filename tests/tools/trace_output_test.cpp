#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

using Json = nlohmann::json;

constexpr const char* kModel =
    "x : enum int = [1, 5];\ny : interval int = [0, 3];\nx < abs y;\nsolve;";

TEST(Trace, TellsWhichConstraintNarrowedWhat) {
  const CommandResult result = RunKivOn(kModel, {"propagate", "--trace", "text"});
  EXPECT_EQ(result.output, "x = { 1, 2 }\ny = [2, 3]\n");
  EXPECT_EQ(result.errors,
            "0 #2: Any -> [0, 3] by <stdin>:3:5: abs y\n"
            "0 #2: [0, 3] -> [2, 3] by <stdin>:3:1: x < abs y\n"
            "0 x: { 1, 2, 3, 4, 5 } -> { 1, 2 } by <stdin>:3:1: x < abs y\n"
            "0 y: [0, 3] -> [2, 3] by <stdin>:3:5: abs y\n");
  EXPECT_EQ(result.exit_code, 0);
}

TEST(Trace, TellsTheSameInJson) {
  const CommandResult result = RunKivOn(kModel, {"propagate", "--trace", "json"});
  const std::vector<std::string> lines = Lines(result.errors);
  ASSERT_EQ(lines.size(), 4u) << result.errors;
  EXPECT_EQ(Json::parse(lines[2]), (Json{{"type", "narrowing"},
                                         {"level", 0},
                                         {"variable", "x"},
                                         {"before", "{ 1, 2, 3, 4, 5 }"},
                                         {"after", "{ 1, 2 }"},
                                         {"constraint", 1},
                                         {"place", "<stdin>:3:1"},
                                         {"expression", "x < abs y"}}));
}

TEST(Trace, TellsDecisionsAndContradictionsOfASearch) {
  const CommandResult result =
      RunKivOn("x, y : enum int = [1, 2];\nx <> y;\nx = y;\nsolve;",
               {"solve", "-q", "--trace", "text", "--strategy", "input_order"});
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.errors,
            "2 x: { 1, 2 } -> 1 by decision\n"
            "2 y: { 1, 2 } -> 1 by <stdin>:3:1: x = y\n"
            "2 y: 1 -> Nil by <stdin>:2:1: x <> y\n"
            "2 contradiction by <stdin>:2:1: x <> y\n"
            "1 x: { 1, 2 } -> 2 by decision\n"
            "1 y: { 1, 2 } -> 2 by <stdin>:3:1: x = y\n"
            "1 y: 2 -> Nil by <stdin>:2:1: x <> y\n"
            "1 contradiction by <stdin>:2:1: x <> y\n");
}

TEST(Trace, GoesIntoAFile) {
  std::string folder = testing::TempDir() + "kiv_trace_XXXXXX";
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const std::string file = folder + "/trace.jsonl";
  const CommandResult result = RunKivOn(kModel, {"solve", "--trace", "json", "--trace-file", file});
  EXPECT_EQ(result.errors, "1 solution\n");
  std::ifstream in(file);
  std::ostringstream text;
  text << in.rdbuf();
  const std::vector<std::string> lines = Lines(text.str());
  EXPECT_GE(lines.size(), 3u);
  for (const std::string& line : lines) EXPECT_TRUE(Json::accept(line)) << line;

  const CommandResult plain = RunKivOn(kModel, {"propagate", "--trace-file", file});
  EXPECT_EQ(plain.errors, "");
  EXPECT_EQ(plain.exit_code, 0);
  std::filesystem::remove_all(folder);

  const CommandResult missing = RunKivOn(kModel, {"propagate", "--trace-file", file});
  EXPECT_EQ(missing.errors, "kiv: " + file + ": No such file or directory\n");
  EXPECT_EQ(missing.exit_code, 2);
  const CommandResult full = RunKivOn(kModel, {"propagate", "--trace-file", "/dev/full"});
  EXPECT_EQ(full.errors, "kiv: cannot write the trace to /dev/full\n");
  EXPECT_EQ(full.exit_code, 4);
}

}  // namespace
}  // namespace kiv::test
