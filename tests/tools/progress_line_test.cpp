#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <string>

#include "tests/tools/models.h"
#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

CommandResult RunEndless(std::vector<std::string> options, bool terminal) {
  CommandSettings settings;
  settings.input = kEndless;
  settings.terminal = terminal;
  options.insert(options.begin(), "solve");
  options.insert(options.end(), {"--time-limit", "2.2", "-"});
  return RunKiv(options, settings);
}

constexpr const char* kErase = "\r\033[K";

std::size_t CountErasures(const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(kErase, at)) != std::string::npos; ++at) ++count;
  return count;
}

TEST(ProgressLine, IsRewrittenOnATerminalAndVanishes) {
  if (!HasTerminals()) GTEST_SKIP() << "no pseudo terminal to watch on";
  const CommandResult result = RunEndless({}, true);
  const std::regex line(
      "\r\033\\[K1\\.[0-9]+ s  nodes [0-9]+  failures [0-9]+  restarts [0-9]+  depth [0-9]+");
  EXPECT_TRUE(std::regex_search(result.errors, line)) << result.errors;
  // From the first second on, five times a second; the last erasure leaves the line empty.
  EXPECT_GE(CountErasures(result.errors), 2u);
  EXPECT_LE(CountErasures(result.errors), 8u);
  const std::string rest = result.errors.substr(result.errors.rfind(kErase));
  EXPECT_EQ(rest, std::string(kErase) + "time limit reached; 0 solutions so far\r\n");
  EXPECT_EQ(result.exit_code, 3);
}

TEST(ProgressLine, StaysAwayWhereNobodyWatches) {
  EXPECT_EQ(RunEndless({}, false).errors, "time limit reached; 0 solutions so far\n");
}

TEST(ProgressLine, StaysAwayWhereNobodyWantsIt) {
  if (!HasTerminals()) GTEST_SKIP() << "no pseudo terminal to watch on";
  EXPECT_EQ(RunEndless({"--quiet"}, true).errors, "");
}

}  // namespace
}  // namespace kiv::test
