#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

constexpr const char* kThree = "x : enum int = [1, 3]; solve;";
constexpr const char* kMany = "x, y, z : enum int = [1, 1000]; solve;";

TEST(SolveCommand, PrintsTheFirstSolutionUnlessAskedForMore) {
  const CommandResult first = RunKivOn(kThree, {"solve"});
  EXPECT_EQ(first.output, "x = 1\n----------\n");
  EXPECT_EQ(first.errors, "1 solution\n");
  EXPECT_EQ(first.exit_code, 0);

  EXPECT_EQ(RunKivOn(kThree, {"solve", "-n", "2"}).output,
            "x = 1\n----------\nx = 2\n----------\n");
  EXPECT_EQ(RunKivOn(kThree, {"solve", "-n", "9"}).errors, "3 solutions\n");
  EXPECT_EQ(RunKivOn(kThree, {"solve", "-a"}).errors, "3 solutions\n");
  EXPECT_EQ(RunKivOn(kThree, {"solve", "--all"}).errors, "3 solutions\n");
}

TEST(SolveCommand, PrintsNamesInOrderOfDeclarationAndArraysInOneLine) {
  const CommandResult result = RunKivOn(
      "param n : int = 2; b[n] : enum int = 7; a : bool = true; e[0] : int; c[1] : int = -3; "
      "solve;",
      {"solve"});
  EXPECT_EQ(result.output, "b = [7, 7]\na = true\ne = []\nc = [-3]\n----------\n");
}

// A newly loaded kind is usable in models by its name, beside the kinds that do not know it.
TEST(SolveCommand, UsesTheKindsOfAModuleThatIsLoaded) {
  setenv("KIV_MODULE_PATH", FOREIGN_MODULES, 1);
  const std::string model =
      "x : range int = [1, 9]; y : enum int = { 2, 4, 9 }; x < y; x + y = 13; solve;";
  const CommandResult loaded = RunKivOn(model, {"--load", "KivForeign", "solve", "-a"});
  EXPECT_EQ(loaded.output, "x = 4\ny = 9\n----------\n");
  EXPECT_EQ(loaded.errors, "1 solution\n");

  const CommandResult without = RunKivOn(model, {"solve", "-a"});
  EXPECT_EQ(without.exit_code, 2);
  EXPECT_NE(without.errors.find("unknown kind 'range int'"), std::string::npos) << without.errors;

  const CommandResult missing = RunKiv({"--load", "NobodyWroteThis", "kinds"});
  EXPECT_EQ(missing.exit_code, 2);
  EXPECT_NE(missing.errors.find("module NobodyWroteThis"), std::string::npos) << missing.errors;
  unsetenv("KIV_MODULE_PATH");
}

TEST(SolveCommand, WritesNothingWithoutASolution) {
  const CommandResult result = RunKivOn("x : enum int = [1, 3]; x > 3; solve;", {"solve", "-a"});
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "no solution\n");
  EXPECT_EQ(result.exit_code, 1);
}

TEST(SolveCommand, NeverCallsAnUnknownValueSolved) {
  const CommandResult one = RunKivOn("x : enum int; solve;", {"solve"});
  EXPECT_EQ(one.output, "x = Any\n~~~~~~~~~~\n");
  EXPECT_EQ(one.errors, "1 possibility left unknown: x stays Any\n");
  EXPECT_EQ(one.exit_code, 3);

  const CommandResult all =
      RunKivOn("x : enum int = [1, 2]; y[2] : enum int; solve;", {"solve", "-a"});
  EXPECT_EQ(all.output, "x = 1\ny = [Any, Any]\n~~~~~~~~~~\nx = 2\ny = [Any, Any]\n~~~~~~~~~~\n");
  EXPECT_EQ(all.errors, "2 possibilities left unknown: y[1], y[2] stay Any\n");
  EXPECT_EQ(all.exit_code, 3);
}

TEST(SolveCommand, TakesParametersFromTheCommandLine) {
  const std::string model = "param n : int = 3; x : int = n; solve;";
  EXPECT_EQ(RunKivOn(model, {"solve"}).output, "x = 3\n----------\n");
  EXPECT_EQ(RunKivOn(model, {"solve", "-D", "n=-12"}).output, "x = -12\n----------\n");
  EXPECT_EQ(RunKivOn(model, {"solve", "--define", "n=4", "-Dn=5"}).output, "x = 5\n----------\n");
}

TEST(SolveCommand, TakesListsAndTruthValuesFromTheCommandLine) {
  const std::string model =
      "param w[] : int; param b : bool; param s : set; x : int = w[2]; t : bool = b;"
      "y : enum int = s; solve all;";
  EXPECT_EQ(RunKivOn(model, {"solve", "-D", "w=[1, 7]", "-D", "b=true", "-D", "s=[4]"}).output,
            "x = 7\nt = true\ny = 4\n----------\n");
}

TEST(SolveCommand, TakesParametersFromADataFile) {
  const std::string data = testing::TempDir() + "kiv_command_data.json";
  const std::string model = "param n : int = 1; param a[2, 2] : int; x : int = n + a[2, 1]; solve;";
  std::ofstream(data) << R"({ "a": [[1, 2], [30, 4]], "n": null })";
  EXPECT_EQ(RunKivOn(model, {"solve", "--data", data}).output, "x = 31\n----------\n");
  EXPECT_EQ(RunKivOn(model, {"solve", "--data", data, "-D", "n=5"}).output, "x = 35\n----------\n");
  std::ofstream(data) << "{ \"a\":\n  [[1, 2], [30, 4]\n}";
  const CommandResult wrong = RunKivOn(model, {"solve", "--data", data});
  EXPECT_EQ(wrong.exit_code, 2);
  EXPECT_EQ(wrong.output, "");
  EXPECT_EQ(wrong.errors.rfind(data + ":3:1: error: ", 0), 0u) << wrong.errors;
  std::filesystem::remove(data);
  EXPECT_EQ(RunKivOn(model, {"solve", "--data", data}).exit_code, 2);
}

TEST(SolveCommand, FollowsTheGoalOfTheModel) {
  EXPECT_EQ(RunKivOn("x : enum int = [1, 2]; solve all;", {"solve"}).output,
            "x = 1\n----------\nx = 2\n----------\n");
  EXPECT_EQ(RunKivOn("x : enum int = [1, 2]; solve all;", {"solve", "-n", "1"}).output,
            "x = 1\n----------\n");
  const CommandResult greatest = RunKivOn(
      "x, y : enum int = [1, 3]; x + y = 4; maximize 2*x - y; show \"x is \", x;", {"solve"});
  EXPECT_EQ(greatest.output.substr(greatest.output.rfind("x is")),
            "x is 3\n----------\n==========\n");
  EXPECT_EQ(RunKivOn("x, y : enum int = [1, 3]; x + y = 4; minimize x*y;", {"solve"}).output,
            "x = 1\ny = 3\n----------\n==========\n");
}

TEST(SolveCommand, RefusesParametersThatAreNone) {
  const std::string model = "param count : int = 3; solve;";
  const CommandResult misspelt = RunKivOn(model, {"solve", "-D", "cuont=4"});
  EXPECT_EQ(misspelt.exit_code, 2);
  EXPECT_EQ(misspelt.errors,
            "<stdin>: error: the model has no parameter 'cuont'; did you mean 'count'?\n"
            "  parameters: 'count'\n");
  for (const char* definition :
       {"count", "=3", "count=", "count=x", "count=3x", "count=null", "count=[1", "count=\"3\"",
        "count={}", "count=1.5", "count=99999999999999999999"}) {
    const CommandResult result = RunKivOn(model, {"solve", "-D", definition});
    EXPECT_EQ(result.exit_code, 2) << definition;
    EXPECT_EQ(result.errors.rfind("kiv: -D " + std::string(definition) + ": ", 0), 0u)
        << result.errors;
  }
  const CommandResult large = RunKivOn(model, {"solve", "-D", "count=2147483647"});
  EXPECT_EQ(large.exit_code, 2);
  EXPECT_NE(large.errors.find("the value given for 'count' is 2147483647; expected an integer of "
                              "-2147483646..2147483646"),
            std::string::npos)
      << large.errors;
}

TEST(SolveCommand, RefusesFilesThatCannotBeRead) {
  const CommandResult missing = RunKiv({"solve", "/nonexistent/model.kiv"});
  EXPECT_EQ(missing.exit_code, 2);
  EXPECT_EQ(missing.errors, "kiv: /nonexistent/model.kiv: No such file or directory\n");
  const CommandResult folder = RunKiv({"solve", KIV_SOURCE_DIR});
  EXPECT_EQ(folder.exit_code, 2);
  EXPECT_EQ(folder.errors, "kiv: " KIV_SOURCE_DIR ": is a directory\n");
}

TEST(SolveCommand, StopsOnASignalAndKeepsWhatItFound) {
  for (const int signal : {SIGINT, SIGTERM}) {
    CommandSettings settings;
    settings.input = kMany;
    settings.stop_signal = signal;
    const CommandResult result = RunKiv({"solve", "--all", "-"}, settings);
    EXPECT_EQ(result.exit_code, 130);
    EXPECT_EQ(result.output.rfind("x = 1\ny = 1\nz = 1\n----------\n", 0), 0u);
    EXPECT_TRUE(result.output.ends_with("----------\n"));
    EXPECT_EQ(result.errors.rfind("interrupted; ", 0), 0u) << result.errors;
    EXPECT_NE(result.errors.find(" so far\n"), std::string::npos);
  }
}

// A write that nobody takes goes on after the first signal, so that no output is cut.
TEST(SolveCommand, EndsAtOnceOnASecondSignal) {
  CommandSettings bash;
  bash.program = "/bin/bash";
  bash.input = kMany;
  const CommandResult result = RunKiv(
      {"-c",
       "folder=$(mktemp -d) && mkfifo $folder/pipe\n"
       "exec 3<>$folder/pipe 4<&0 && rm -r $folder\n" KIV_COMMAND " solve --all - <&4 >&3 &\n"
       // It sleeps once the pipe is full.
       "sleep 1; until [ \"$(cut -d' ' -f3 /proc/$!/stat)\" = S ]; do sleep 0.5; done\n"
       "kill -TERM $!\n"
       "sleep 0.5; kill -TERM $! && echo waiting\n"
       "wait $!; echo $?"},
      bash);
  EXPECT_EQ(result.output, "waiting\n130\n");
  EXPECT_EQ(result.errors, "");
}

TEST(SolveCommand, SaysWhenItsOutputDoesNotArrive) {
  CommandSettings full;
  full.input = kThree;
  full.output_file = "/dev/full";
  const CommandResult disk = RunKiv({"solve", "-"}, full);
  EXPECT_EQ(disk.exit_code, 4);
  EXPECT_EQ(disk.errors, "kiv: cannot write to standard output: No space left on device\n");

  CommandSettings closed;
  closed.input = kMany;
  closed.close_output = true;
  const CommandResult pipe = RunKiv({"solve", "--all", "-"}, closed);
  EXPECT_EQ(pipe.exit_code, 4);
  EXPECT_EQ(pipe.errors, "kiv: cannot write to standard output: Broken pipe\n");
}

TEST(PropagateCommand, PrintsTheDomains) {
  const CommandResult result = RunKivOn(
      "x : enum int = { 1, 5, 7, 9 }; y : interval int = [0, 100]; z : int; b : bool; "
      "x < 8; y = x; solve;",
      {"propagate"});
  EXPECT_EQ(result.output, "x = { 1, 5, 7 }\ny = [1, 7]\nz = Any\nb = Any\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.exit_code, 0);
}

TEST(PropagateCommand, NamesTheConstraintOfAContradiction) {
  const CommandResult result =
      RunKivOn("x : enum int = [1, 3];\n  x + 1  >\n 4;\nsolve;", {"propagate"});
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "contradiction at <stdin>:2:3: x + 1 > 4\n");
  EXPECT_EQ(result.exit_code, 1);
}

TEST(CheckCommand, CountsWhatAModelIsMadeOf) {
  const CommandResult result =
      RunKivOn("x, q[3] : enum int = [1, 9]; x < q[1]; x <> q[2]; solve;", {"check"});
  EXPECT_EQ(result.output, "ok: 4 variables, 2 constraints\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.exit_code, 0);
  // A model without solutions is a model, too.
  EXPECT_EQ(RunKivOn("x : enum int = 1; x > 1; solve;", {"check"}).exit_code, 0);
}

TEST(CheckCommand, TellsWhatIsWrong) {
  const CommandResult result = RunKivOn("x : enum int = 1; x = y; solve;", {"check"});
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("unknown name 'y'"), std::string::npos) << result.errors;
  EXPECT_EQ(result.exit_code, 2);
}

TEST(OperatorsCommand, ListsTheRowsOfOneModule) {
  const CommandResult result = RunKiv({"operators", "--module", "KivOmbEnumIntegers", "--tsv"});
  const std::vector<std::string> lines = Lines(result.output);
  ASSERT_EQ(lines.size(), 93u);
  EXPECT_EQ(lines.front(),
            "+\tKivOmbiCreateBinaryOperator\tint,enum int,enum int\tKivOmbiAdditionConstraint");
  EXPECT_EQ(lines[51],
            "-\tKivOmbiCreateFirstInverseBinaryOperator\tint,enum int,enum int,enum int\t"
            "KivOmbiAdditionConstraint");
  EXPECT_EQ(lines.back(),
            "mod\tKivOmbiCreateBinaryOperator\tinteger,enum int,enum int\t"
            "KivOmbiRemainderConstraint");
  EXPECT_EQ(result.exit_code, 0);
}

TEST(OperatorsCommand, ShowsATableOfAllRowsToPeople) {
  const std::vector<std::string> table = Lines(RunKiv({"operators"}).output);
  const std::vector<std::string> rows = Lines(RunKiv({"operators", "--tsv"}).output);
  ASSERT_EQ(table.size(), rows.size() + 1);
  EXPECT_GT(rows.size(), 93u);
  EXPECT_EQ(table.front().rfind("SYMBOL ", 0), 0u);
  // The columns are aligned.
  const std::size_t factory = table.front().find("FACTORY");
  for (std::size_t i = 1; i < table.size(); ++i) {
    EXPECT_EQ(table[i].find("KivOmbiCreate"), factory) << table[i];
  }
}

TEST(OperatorsCommand, SaysWhyAModuleCannotBeOpened) {
  const CommandResult result = RunKiv({"operators", "--module", "NoSuchModule"});
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_NE(result.errors.find("NoSuchModule"), std::string::npos);
  EXPECT_EQ(RunKiv({"--load", "NoSuchModule", "kinds"}).exit_code, 2);
  EXPECT_EQ(RunKiv({"kinds", "--load", "NoSuchModule"}).exit_code, 2);
}

TEST(KindsCommand, ListsKindsWithTheirParents) {
  const CommandResult result = RunKiv({"kinds"});
  const std::string text = '\n' + result.output;
  for (const char* line : {"any", "int < integer < number < scalar < any",
                           "interval int < integer < number < scalar < any", "bool < boolean < any",
                           "enum int < integer < number < scalar < any"}) {
    EXPECT_NE(text.find('\n' + std::string(line) + '\n'), std::string::npos) << line;
  }
  EXPECT_EQ(text.find("Constraint"), std::string::npos);
  EXPECT_EQ(result.exit_code, 0);
}

TEST(Command, ExplainsItself) {
  const CommandResult help = RunKiv({"--help"});
  EXPECT_EQ(help.exit_code, 0);
  EXPECT_EQ(help.errors, "");
  for (const char* command :
       {"solve", "propagate", "check", "domain", "operators", "kinds", "completion"}) {
    EXPECT_NE(help.output.find(command), std::string::npos);
    const CommandResult own = RunKiv({command, "--help"});
    EXPECT_EQ(own.exit_code, 0);
    EXPECT_NE(own.output.find("Example"), std::string::npos) << command;
  }
  EXPECT_EQ(RunKiv({"--version"}).output.rfind("kiv ", 0), 0u);
}

TEST(Command, RefusesWrongArguments) {
  const std::vector<std::vector<std::string>> wrong = {{},
                                                       {"sovle"},
                                                       {"solve"},
                                                       {"solve", "a", "b"},
                                                       {"solve", "-n", "0", "-"},
                                                       {"solve", "-n", "x", "-"},
                                                       {"solve", "-a", "-n", "2", "-"},
                                                       {"operators", "--nonsense"}};
  for (const auto& arguments : wrong) {
    const CommandResult result = RunKiv(arguments);
    EXPECT_EQ(result.exit_code, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
  }
}

TEST(Command, EndsWithTwoForAModelThatIsWrong) {
  const CommandResult result = RunKivOn("x : enum int = [1, 3];\nx = y;\nsolve;\n", {"solve"});
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "<stdin>:2:5: error: unknown name 'y'\n  x = y;\n      ^\n");
}

}  // namespace
}  // namespace kiv::test
