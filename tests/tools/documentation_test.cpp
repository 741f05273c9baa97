#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

// A fenced block of a page: what stands behind the opening fence, and the lines up to the closing
// one.
struct Block {
  std::string tag;
  std::string text;
  int line = 0;
};

std::vector<Block> ReadBlocks(const std::string& page) {
  std::vector<Block> blocks;
  std::istringstream in(ReadSourceFile(page));
  bool inside = false;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (line.starts_with("```")) {
      inside = !inside;
      if (inside) blocks.push_back({line.substr(3), "", number});
    } else if (inside) {
      blocks.back().text += line + '\n';
    }
  }
  return blocks;
}

class Documentation : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = testing::TempDir() + "kiv_documentation_XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  // Runs a block "kiv SUBCOMMAND OPTIONS" on its text as model.kiv.
  CommandResult Run(const Block& model) {
    std::ofstream(folder_ / "model.kiv") << model.text;
    std::istringstream words(model.tag.substr(4));
    std::vector<std::string> arguments;
    for (std::string word; words >> word;) arguments.push_back(word);
    arguments.push_back("model.kiv");
    CommandSettings settings;
    settings.folder = folder_;
    return RunKiv(arguments, settings);
  }

  std::filesystem::path folder_;
};

TEST_F(Documentation, EachExampleOfTheLanguageGivesWhatItShows) {
  const std::vector<Block> blocks = ReadBlocks("docs/language.md");
  int examples = 0;
  for (std::size_t i = 0; i + 1 < blocks.size(); ++i) {
    if (!blocks[i].tag.starts_with("kiv ")) continue;
    ++examples;
    SCOPED_TRACE("docs/language.md:" + std::to_string(blocks[i].line));
    const CommandResult result = Run(blocks[i]);
    const Block& expected = blocks[i + 1];
    if (expected.tag == "output") {
      EXPECT_EQ(result.output, expected.text);
      EXPECT_NE(result.exit_code, 2) << result.errors;
    } else {
      ASSERT_EQ(expected.tag, "error");
      EXPECT_EQ(result.errors, expected.text);
      EXPECT_EQ(result.output, "");
      EXPECT_EQ(result.exit_code, 2);
    }
  }
  EXPECT_GE(examples, 8) << "the page lost its examples, or the test no longer finds them";
}

// Each block that is a model is followed by what it gives, so that none is left out by mistake.
TEST_F(Documentation, EachModelOfTheLanguageIsFollowedByItsResult) {
  const std::vector<Block> blocks = ReadBlocks("docs/language.md");
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    SCOPED_TRACE("docs/language.md:" + std::to_string(blocks[i].line));
    if (blocks[i].tag.starts_with("kiv")) {
      ASSERT_LT(i + 1, blocks.size());
      EXPECT_TRUE(blocks[i + 1].tag == "output" || blocks[i + 1].tag == "error");
    } else {
      ASSERT_GT(i, 0u);
      EXPECT_TRUE(blocks[i - 1].tag.starts_with("kiv ")) << "'" << blocks[i].tag << "'";
    }
  }
}

// The words of a command as a shell takes them: separated by blanks, or between single quotes.
std::vector<std::string> SplitWords(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream in(line);
  while (in >> std::ws && in.peek() != std::istringstream::traits_type::eof()) {
    std::string word;
    if (in.peek() == '\'') {
      in.get();
      std::getline(in, word, '\'');
    } else {
      in >> word;
    }
    words.push_back(word);
  }
  return words;
}

TEST_F(Documentation, EachCommandOfTheDomainCalculatorGivesWhatItShows) {
  const std::vector<Block> blocks = ReadBlocks("docs/domain_calculator.md");
  ASSERT_GE(blocks.size(), 14u) << "the page lost its examples, or the test no longer finds them";
  ASSERT_EQ(blocks.size() % 2, 0u);
  for (std::size_t i = 0; i < blocks.size(); i += 2) {
    SCOPED_TRACE("docs/domain_calculator.md:" + std::to_string(blocks[i].line));
    ASSERT_EQ(blocks[i].tag, "sh");
    std::vector<std::string> words = SplitWords(blocks[i].text);
    ASSERT_EQ(words.at(0), "kiv");
    words.erase(words.begin());
    const CommandResult result = RunKiv(words);
    const bool fails = blocks[i + 1].tag == "error";
    EXPECT_EQ(fails ? result.errors : result.output, blocks[i + 1].text);
    EXPECT_EQ(fails ? result.output : result.errors, "");
    EXPECT_EQ(result.exit_code, fails ? 2 : 0);
  }
}

// How large a network is and what its search takes changes with the ways of propagation; the pages
// show it as it once was.
std::string WithoutCosts(const std::string& text) {
  static const std::regex cost(
      "(\"?(variables|constraints|nodes|failures|restarts|nogoods|propagations|peak_depth|"
      "seconds)\"?)[: ]+[0-9.]+");
  static const std::regex blanks(" +");
  return std::regex_replace(std::regex_replace(text, cost, "$1"), blanks, " ");
}

// The shell commands of a page, each followed by what it writes to standard output, to standard
// error, or to both.
class ShellPages : public testing::TestWithParam<const char*> {};

TEST_P(ShellPages, ShowWhatTheirCommandsGive) {
  const std::string path = std::getenv("PATH");
  setenv("PATH", (std::filesystem::path(KIV_COMMAND).parent_path().string() + ':' + path).c_str(),
         1);
  CommandSettings settings;
  settings.program = "/bin/bash";
  settings.folder = KIV_SOURCE_DIR;
  const std::vector<Block> blocks = ReadBlocks(GetParam());
  int examples = 0;
  for (std::size_t i = 0; i < blocks.size(); ++examples) {
    SCOPED_TRACE(std::string(GetParam()) + ':' + std::to_string(blocks[i].line));
    ASSERT_EQ(blocks[i].tag, "sh");
    const CommandResult result = RunKiv({"-c", blocks[i].text}, settings);
    std::string output, errors;
    bool shows_errors = false;
    for (++i; i < blocks.size() && blocks[i].tag != "sh"; ++i) {
      ASSERT_TRUE(blocks[i].tag == "output" || blocks[i].tag == "error") << blocks[i].tag;
      shows_errors |= blocks[i].tag == "error";
      (blocks[i].tag == "error" ? errors : output) += blocks[i].text;
    }
    EXPECT_EQ(WithoutCosts(result.output), WithoutCosts(output));
    if (shows_errors || result.exit_code != 0) {
      EXPECT_EQ(WithoutCosts(result.errors), WithoutCosts(errors));
    }
  }
  EXPECT_GE(examples, 3) << "the page lost its examples, or the test no longer finds them";
  setenv("PATH", path.c_str(), 1);
}

INSTANTIATE_TEST_SUITE_P(Documentation, ShellPages,
                         testing::Values("docs/command.md", "docs/json_output.md"));

}  // namespace
}  // namespace kiv::test
