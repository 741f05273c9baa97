#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

class Completion : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = testing::TempDir() + "kiv_completion_XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    const CommandResult script = RunKiv({"completion", "bash"});
    ASSERT_EQ(script.exit_code, 0);
    std::ofstream(folder_ / "script") << script.output;
    for (const char* file : {"race.kiv", "my queens.kiv", "readme.md", "data.json"}) {
      std::ofstream(folder_ / file) << "solve;";
    }
    std::filesystem::create_directory(folder_ / "rooms");
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  // What bash offers for the last of these words.
  std::set<std::string> Complete(const std::vector<std::string>& words) const {
    std::string call = "cd '" + folder_.string() + "' && source ./script && COMP_WORDS=(kiv";
    for (const std::string& word : words) call += " '" + word + '\'';
    call += ") && COMP_CWORD=" + std::to_string(words.size()) +
            " && _kiv; printf '%s\\n' \"${COMPREPLY[@]}\"";
    std::ofstream(folder_ / "call") << call;
    const std::string command = "bash '" + (folder_ / "call").string() + "' 2>&1";
    std::FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    for (int c; (c = std::fgetc(pipe)) != EOF;) output += static_cast<char>(c);
    EXPECT_EQ(WEXITSTATUS(pclose(pipe)), 0);
    std::set<std::string> offered;
    for (const std::string& line : Lines(output)) {
      if (!line.empty()) offered.insert(line);
    }
    return offered;
  }

  std::filesystem::path folder_;
};

using Words = std::set<std::string>;

TEST_F(Completion, KnowsTheSubcommands) {
  EXPECT_EQ(Complete({""}),
            (Words{"solve", "propagate", "check", "domain", "operators", "kinds", "completion"}));
  EXPECT_EQ(Complete({"so"}), Words{"solve"});
  EXPECT_EQ(Complete({"xyz"}), Words{});
}

TEST_F(Completion, KnowsTheOptionsOfEachSubcommand) {
  EXPECT_EQ(Complete({"solve", "--tr"}), (Words{"--trace", "--trace-file"}));
  EXPECT_EQ(Complete({"solve", "race.kiv", "--str"}), Words{"--strategy"});
  EXPECT_EQ(Complete({"operators", "--t"}), Words{"--tsv"});
  EXPECT_EQ(Complete({"kinds", "--lo"}), Words{"--load"});
  EXPECT_EQ(Complete({"check", "--strat"}), Words{});
  EXPECT_EQ(Complete({"--ver"}), Words{"--version"});
}

// Whatever the help of a subcommand lists is completed.
TEST_F(Completion, LeavesNoOptionOut) {
  for (const char* command : {"solve", "propagate", "check", "domain", "operators", "kinds"}) {
    const Words offered = Complete({command, "-"});
    const std::string help = RunKiv({command, "--help"}).output;
    std::size_t found = 0;
    for (const std::string& line : Lines(help)) {
      const std::size_t begin = line.find("--");
      if (line.rfind("  -", 0) != 0 || begin == std::string::npos) continue;
      ++found;
      const std::string option = line.substr(begin, line.find_first_of(" ", begin) - begin);
      EXPECT_TRUE(offered.contains(option)) << command << ' ' << option;
    }
    EXPECT_GE(found, 1u) << command;
  }
}

TEST_F(Completion, OffersModelsAndFolders) {
  EXPECT_EQ(Complete({"solve", ""}), (Words{"race.kiv", "my queens.kiv", "rooms"}));
  EXPECT_EQ(Complete({"--load", "X", "check", "ra"}), Words{"race.kiv"});
  EXPECT_EQ(Complete({"kinds", ""}), Words{});
}

TEST_F(Completion, OffersTheValuesOfOptions) {
  EXPECT_EQ(Complete({"solve", "--trace", ""}), (Words{"text", "json"}));
  EXPECT_EQ(Complete({"solve", "--restarts", "l"}), (Words{"linear:", "luby:"}));
  EXPECT_EQ(Complete({"solve", "--data", "da"}), Words{"data.json"});
  EXPECT_EQ(Complete({"solve", "-n", ""}), Words{});
  EXPECT_EQ(Complete({"completion", ""}), Words{"bash"});
}

TEST_F(Completion, IsOnlyForShellsThatItKnows) {
  EXPECT_EQ(RunKiv({"completion", "tcsh"}).exit_code, 2);
  EXPECT_EQ(RunKiv({"completion"}).exit_code, 2);
}

}  // namespace
}  // namespace kiv::test
