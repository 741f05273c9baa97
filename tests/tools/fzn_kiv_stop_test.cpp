// How fzn-kiv ends when it is told to stop, whatever it is doing.

#include <gtest/gtest.h>

#include <csignal>

#include "tests/tools/fzn_kiv.h"

namespace kiv::test {
namespace {

TEST(FznKivStop, TheTimeEndsASearch) {
  const CommandResult result = RunFznKiv(Pigeons(), {"-t", "300"});
  EXPECT_EQ(result.output, "=====UNKNOWN=====\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.exit_code, 0);
}

TEST(FznKivStop, TheTimeEndsAnOptimisationWithTheBestSolution) {
  for (const std::vector<std::string>& options :
       {std::vector<std::string>{"-t", "1000"}, {"-t", "1000", "-i"}}) {
    const CommandResult result = RunFznKiv(PigeonOptimisation(), options);
    const auto lines = Lines(result.output);
    ASSERT_EQ(lines.size(), 16u) << result.output;
    EXPECT_EQ(lines[14], "e = 1;");
    EXPECT_EQ(lines.back(), "----------");
    EXPECT_EQ(result.exit_code, 0);
  }
}

TEST(FznKivStop, NoTimeIsNoTime) {
  EXPECT_EQ(RunFznKiv("var 1..2: x; solve satisfy;", {"-t", "9223372036854775807"}).output,
            "----------\n");
}

TEST(FznKivStop, SignalsEndASearchWithWhatWasFound) {
  for (const int signal : {SIGINT, SIGTERM}) {
    CommandSettings settings;
    settings.stop_signal = signal;
    const CommandResult result = RunFznKiv(PigeonOptimisation(), {"-i", "-s"}, settings);
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_NE(result.output.find("e = 1;\n----------\n%%%mzn-stat: solutions=1\n"),
              std::string::npos)
        << result.output;
    EXPECT_EQ(result.output.find("=========="), std::string::npos);
    EXPECT_TRUE(result.output.ends_with("%%%mzn-stat-end\n"));
  }
}

// The best solution has not been printed when the signal comes; progress tells that it is there.
TEST(FznKivStop, ASignalBringsTheBestSolutionOut) {
  const CommandResult result = RunScript(
      "$fzn_kiv -v $1 2> errors & until grep -q 'best 1' errors; do sleep 0.02; done; "
      "kill -TERM $!; wait $!; echo \"code $?\"",
      {PigeonOptimisation()});
  EXPECT_TRUE(result.output.ends_with("e = 1;\n----------\ncode 0\n")) << result.output;
}

// A text that never ends: nothing looks at the clock but the watchdog.
TEST(FznKivStop, TheTimeCoversReading) {
  const CommandResult result =
      RunScript("$fzn_kiv -s -t 200 - < <(exec sleep 15 2> /dev/null); echo \"code $?\"", {});
  EXPECT_TRUE(result.output.starts_with("=====UNKNOWN=====\n%%%mzn-stat: ")) << result.output;
  EXPECT_TRUE(result.output.ends_with("%%%mzn-stat-end\ncode 0\n"));
}

TEST(FznKivStop, ASignalEndsReading) {
  // SIGINT and SIGTERM among the blocked signals: the watchdog waits for them.
  const CommandResult result = RunScript(
      "$fzn_kiv - < <(exec sleep 15 2> /dev/null) & pid=$!; "
      "until grep -q '^SigBlk:.*4002$' /proc/$pid/status; do sleep 0.02; done; "
      "kill -TERM $pid; wait $pid; echo \"code $?\"",
      {});
  EXPECT_EQ(result.output, "=====UNKNOWN=====\ncode 0\n");
}

TEST(FznKivStop, ReadersMayLeave) {
  const std::string many = "var 1..100000: x :: output_var; solve satisfy;\n";
  const CommandResult result = RunScript("$fzn_kiv -a $1 | head -n 2 | tail -n 1; true", {many});
  EXPECT_EQ(result.output, "----------\n");
  EXPECT_EQ(result.errors, "");
}

TEST(FznKivStop, AFullDiskIsAFailure) {
  CommandSettings settings;
  settings.output_file = "/dev/full";
  const CommandResult result = RunFznKiv("var 1..2: x; solve satisfy;", {}, settings);
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_NE(result.errors.find("cannot write to standard output"), std::string::npos);
}

TEST(FznKivStop, TooLittleMemoryIsTold) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer itself needs more";
#endif
  std::string text = "array [1..3000000] of int: a = [";
  for (int i = 0; i < 3000000; ++i) text += i == 0 ? "1" : ",1";
  text += "];\nsolve satisfy;\n";
  const CommandResult result = RunScript("ulimit -v 60000; $fzn_kiv $1; echo \"code $?\"", {text});
  EXPECT_EQ(result.output, "=====UNKNOWN=====\ncode 2\n");
  EXPECT_EQ(result.errors, "fzn-kiv: out of memory\n");
}

}  // namespace
}  // namespace kiv::test
