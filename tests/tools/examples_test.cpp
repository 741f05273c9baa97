#include <gtest/gtest.h>

#include <string>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

CommandResult SolveExample(const std::string& name, std::vector<std::string> options = {}) {
  options.insert(options.begin(), {"solve", std::string(KIV_SOURCE_DIR) + "/examples/" + name});
  return RunKiv(options);
}

std::size_t CountSolutions(const CommandResult& result) {
  std::size_t count = 0;
  for (std::size_t at = result.output.find("----------\n"); at != std::string::npos;
       at = result.output.find("----------\n", at + 1)) {
    ++count;
  }
  return count;
}

TEST(Examples, SendMoreMoneyHasItsOneSolution) {
  const CommandResult result = SolveExample("send_more_money.kiv", {"--all"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.output,
            "S = 9\nE = 5\nN = 6\nD = 7\nM = 1\nO = 0\nR = 8\nY = 2\nc = [1, 1, 0, 1]\n"
            "----------\n");
  EXPECT_EQ(result.errors, "1 solution\n");
}

TEST(Examples, EightQueensHave92Solutions) {
  const CommandResult result = SolveExample("queens.kiv", {"--all"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(CountSolutions(result), 92u);
  EXPECT_EQ(result.errors, "92 solutions\n");
}

TEST(Examples, SixQueensHaveFourSolutions) {
  const CommandResult result = SolveExample("queens.kiv", {"--all", "-D", "n=6"});
  EXPECT_EQ(result.output,
            "q = [2, 4, 6, 1, 3, 5]\n----------\nq = [3, 6, 2, 5, 1, 4]\n----------\n"
            "q = [4, 1, 5, 2, 6, 3]\n----------\nq = [5, 3, 1, 6, 4, 2]\n----------\n");
  EXPECT_EQ(result.errors, "4 solutions\n");
}

TEST(Examples, ThreeQueensHaveNoSolution) {
  const CommandResult result = SolveExample("queens.kiv", {"-D", "n=3"});
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "no solution\n");
}

TEST(Examples, MagicSquaresOfThreeAreEight) {
  const CommandResult result = SolveExample("magic_square.kiv", {"--all"});
  EXPECT_EQ(CountSolutions(result), 8u);
  EXPECT_NE(result.output.find("x = [2, 7, 6, 9, 5, 1, 4, 3, 8]\n"), std::string::npos);
  EXPECT_EQ(result.errors, "8 solutions\n");
}

TEST(Examples, ChangeIsPaidInOneWay) {
  const CommandResult result = SolveExample("change.kiv", {"--all"});
  EXPECT_EQ(result.output,
            "fifties = 1\ntwenties = 1\ntens = 1\nfives = 1\nones = 2\n----------\n");
}

TEST(Examples, RaceHasOneWinner) {
  const CommandResult result = SolveExample("race.kiv", {"--all"});
  EXPECT_EQ(result.output,
            "anna = 2\nben = 3\ncleo = 1\nanna_is_honest = true\nben_is_honest = false\n"
            "cleo_is_honest = true\n----------\n");
}

}  // namespace
}  // namespace kiv::test
