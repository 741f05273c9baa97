#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

const std::string kFolder = std::string(KIV_SOURCE_DIR) + "/examples/";

CommandResult SolveExample(const std::string& name, std::vector<std::string> options = {}) {
  options.insert(options.begin(), {"solve", kFolder + name});
  return RunKiv(options);
}

// What was printed of each solution, without the line that ends it.
std::vector<std::string> SolutionsIn(const CommandResult& result) {
  std::vector<std::string> solutions(1);
  for (const std::string& line : Lines(result.output)) {
    if (line == "----------") {
      solutions.emplace_back();
    } else {
      solutions.back() += line + '\n';
    }
  }
  solutions.pop_back();
  return solutions;
}

// The last solution that was printed, which is the best where one is looked for.
std::string LastSolutionIn(const CommandResult& result) {
  const auto solutions = SolutionsIn(result);
  return solutions.empty() ? "" : solutions.back();
}

// The numbers in each line of a text, but for lines that hold anything else.
using Grid = std::vector<std::vector<int>>;
Grid ReadGrid(const std::string& text) {
  Grid grid;
  for (const std::string& line : Lines(text)) {
    std::istringstream in(line);
    std::vector<int> row;
    for (int number = 0; in >> number;) row.push_back(number);
    if (in.eof()) grid.push_back(std::move(row));
  }
  return grid;
}

bool AreDifferent(std::vector<int> numbers) {
  return std::set<int>(numbers.begin(), numbers.end()).size() == numbers.size();
}

bool IsMagicSquare(const Grid& grid) {
  const int n = static_cast<int>(grid.size());
  std::vector<int> all;
  std::vector<int> sums(2 * grid.size() + 2);
  for (std::size_t i = 0; i < grid.size(); ++i) {
    if (grid[i].size() != grid.size()) return false;
    for (std::size_t j = 0; j < grid.size(); ++j) {
      all.push_back(grid[i][j]);
      sums[2 * i] += grid[i][j];
      sums[2 * j + 1] += grid[i][j];
      if (i == j) sums[2 * grid.size()] += grid[i][j];
      if (i + j + 1 == grid.size()) sums[2 * grid.size() + 1] += grid[i][j];
    }
  }
  const auto [least, greatest] = std::minmax_element(all.begin(), all.end());
  return AreDifferent(all) && *least == 1 && *greatest == n * n &&
         std::count(sums.begin(), sums.end(), n * (n * n + 1) / 2) == 2 * n + 2;
}

TEST(Examples, SendMoreMoneyHasItsOneSolution) {
  const CommandResult result = SolveExample("send_more_money.kiv", {"--all"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.output,
            "S = 9\nE = 5\nN = 6\nD = 7\nM = 1\nO = 0\nR = 8\nY = 2\nc = [1, 1, 0, 1]\n"
            "----------\n");
  EXPECT_EQ(result.errors, "1 solution\n");
}

TEST(Examples, SendMoreMoneyIsOneEquation) {
  const CommandResult result = SolveExample("send_more_money_equation.kiv", {"--all"});
  EXPECT_EQ(result.output, "9567 + 1085 = 10652\n----------\n");
  EXPECT_EQ(result.errors, "1 solution\n");
}

TEST(Examples, EightQueensHave92Solutions) {
  const CommandResult result = SolveExample("queens.kiv", {"--all"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(SolutionsIn(result).size(), 92u);
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
  EXPECT_EQ(SolutionsIn(result).size(), 8u);
  EXPECT_NE(result.output.find("x = [2, 7, 6, 9, 5, 1, 4, 3, 8]\n"), std::string::npos);
  EXPECT_EQ(result.errors, "8 solutions\n");
}

TEST(Examples, MagicSquaresOfFourAre880) {
  const CommandResult result = SolveExample("magic_square_n.kiv", {"--all"});
  const auto squares = SolutionsIn(result);
  EXPECT_EQ(result.errors, "880 solutions\n");
  EXPECT_EQ(std::set<std::string>(squares.begin(), squares.end()).size(), 880u);
  for (const std::string& square : squares) EXPECT_TRUE(IsMagicSquare(ReadGrid(square))) << square;
}

TEST(Examples, MagicSquareOfThreeIsOneButForTurningAndMirroring) {
  const CommandResult result = SolveExample("magic_square_n.kiv", {"--all", "-D", "n=3"});
  EXPECT_EQ(result.output, "2 9 4\n7 5 3\n6 1 8\n----------\n");
}

TEST(Examples, MagicSquareOfFiveIsFound) {
  const CommandResult result = SolveExample("magic_square_n.kiv", {"-D", "n=5"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_TRUE(IsMagicSquare(ReadGrid(LastSolutionIn(result)))) << result.output;
}

TEST(Examples, SudokuHasOneSolution) {
  const CommandResult result =
      SolveExample("sudoku.kiv", {"--all", "--data", kFolder + "sudoku.json"});
  EXPECT_EQ(result.output,
            "7 5 6 4 3 2 1 9 8\n2 8 4 9 5 1 3 6 7\n3 1 9 7 8 6 4 5 2\n4 3 7 6 9 5 2 8 1\n"
            "5 2 8 3 1 7 9 4 6\n9 6 1 2 4 8 7 3 5\n1 9 5 8 7 3 6 2 4\n6 7 3 5 2 4 8 1 9\n"
            "8 4 2 1 6 9 5 7 3\n----------\n");
  EXPECT_EQ(result.errors, "1 solution\n");
}

TEST(Examples, QuasigroupFollowsWithoutSearch) {
  const CommandResult result = SolveExample("quasigroup.kiv", {"--all", "--node-limit", "0"});
  EXPECT_EQ(result.output,
            "4 6 5 2 1 3 7 8\n2 1 6 3 8 4 5 7\n1 8 2 7 3 6 4 5\n3 5 4 1 6 7 8 2\n"
            "6 4 3 8 7 5 2 1\n8 3 7 5 2 1 6 4\n5 7 8 6 4 2 1 3\n7 2 1 4 5 8 3 6\n----------\n");
  EXPECT_EQ(result.errors, "1 solution\n");
}

TEST(Examples, ZebraLivesInTheLastHouse) {
  const CommandResult result = SolveExample("zebra.kiv", {"--all"});
  EXPECT_EQ(result.output,
            "zebra is in house 5, water in house 1\n"
            "English 3, Spanish 4, Japanese 5, Ukrainian 2, Norwegian 1\n----------\n");
  EXPECT_EQ(result.errors, "1 solution\n");
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

TEST(Examples, PythagoreanTriplesUpTo200Are127) {
  const CommandResult result = SolveExample("pythagorean_triples.kiv");
  const auto triples = SolutionsIn(result);
  EXPECT_EQ(result.errors, "127 solutions\n");
  std::set<std::string> expected;
  for (int x = 1; x <= 200; ++x) {
    for (int y = x; y <= 200; ++y) {
      for (int z = y; z <= 200; ++z) {
        if (x * x + y * y == z * z) {
          expected.insert(std::to_string(x) + "^2 + " + std::to_string(y) +
                          "^2 = " + std::to_string(z) + "^2\n");
        }
      }
    }
  }
  EXPECT_EQ(std::set<std::string>(triples.begin(), triples.end()), expected);
}

TEST(Examples, DigitPowersAreFour) {
  const CommandResult result = SolveExample("digit_powers.kiv");
  auto numbers = SolutionsIn(result);
  std::sort(numbers.begin(), numbers.end());
  EXPECT_EQ(numbers,
            (std::vector<std::string>{"153 = 1^3 + 5^3 + 3^3\n", "370 = 3^3 + 7^3 + 0^3\n",
                                      "371 = 3^3 + 7^3 + 1^3\n", "407 = 4^3 + 0^3 + 7^3\n"}));
}

TEST(Examples, TaxiHasTheNumber1729) {
  const CommandResult result = SolveExample("taxi_number.kiv");
  EXPECT_EQ(LastSolutionIn(result), "1729 = 1^3 + 12^3 = 9^3 + 10^3\n");
  EXPECT_TRUE(result.errors.ends_with("optimal: objective = 1729\n")) << result.errors;
}

TEST(Examples, MapNeedsFourColours) {
  const CommandResult result = SolveExample("map_colouring.kiv");
  EXPECT_TRUE(result.errors.ends_with("optimal: objective = 4\n")) << result.errors;
}

TEST(Examples, GolombRulerOfEightMarksHasLength34) {
  const CommandResult result = SolveExample("golomb_ruler.kiv");
  EXPECT_EQ(LastSolutionIn(result), "[0, 1, 4, 9, 15, 22, 32, 34]\n");
  EXPECT_TRUE(result.errors.ends_with("optimal: objective = 34\n")) << result.errors;
}

TEST(Examples, KnapsackIsWorth144) {
  const CommandResult result = SolveExample("knapsack.kiv");
  EXPECT_TRUE(LastSolutionIn(result).ends_with("weight 102, worth 144\n")) << result.output;
  EXPECT_TRUE(result.errors.ends_with("optimal: objective = 144\n")) << result.errors;
}

TEST(Examples, TourHasLength76) {
  const CommandResult result = SolveExample("tour.kiv");
  EXPECT_TRUE(result.errors.ends_with("optimal: objective = 76\n")) << result.errors;
}

TEST(Examples, JobShopIsDoneAfter55) {
  const CommandResult result = SolveExample("job_shop.kiv");
  EXPECT_TRUE(LastSolutionIn(result).starts_with("finish 55\n")) << result.output;
  EXPECT_TRUE(result.errors.ends_with("optimal: objective = 55\n")) << result.errors;
}

TEST(Examples, TimetableGivesEachClassItsLessons) {
  const CommandResult result = SolveExample("timetable.kiv");
  EXPECT_EQ(result.exit_code, 0);
  const Grid week = ReadGrid(LastSolutionIn(result));
  ASSERT_EQ(week.size(), 20u) << result.output;
  constexpr std::array<std::array<int, 6>, 3> kTeachers = {
      {{1, 3, 4, 2, 3, 5}, {1, 3, 4, 2, 5, 5}, {2, 4, 3, 1, 5, 5}}};
  constexpr std::array<int, 6> kLessons = {4, 4, 4, 3, 3, 2};
  std::array<std::array<int, 6>, 3> lessons{};
  for (std::size_t period = 0; period < week.size(); ++period) {
    ASSERT_EQ(week[period].size(), 3u);
    std::vector<int> teachers;
    for (std::size_t c = 0; c < 3; ++c) {
      const int subject = week[period][c];
      ASSERT_TRUE(1 <= subject && subject <= 6) << subject;
      const auto index = static_cast<std::size_t>(subject) - 1;
      teachers.push_back(kTeachers[c][index]);
      ++lessons[c][index];
      EXPECT_FALSE(period % 4 == 0 && subject == 6) << "sport in the first hour";
      for (std::size_t other = period - period % 4; other < period; ++other) {
        EXPECT_NE(week[other][c], subject) << "twice on a day";
      }
    }
    EXPECT_TRUE(AreDifferent(teachers)) << "a teacher in two classes at once";
    for (const auto& [teacher, day] : {std::pair{1, 1u}, {3, 4u}, {5, 5u}}) {
      EXPECT_FALSE(period / 4 + 1 == day && std::count(teachers.begin(), teachers.end(), teacher))
          << "teacher " << teacher << " is absent on day " << day;
    }
  }
  for (const auto& of_class : lessons) EXPECT_EQ(of_class, kLessons);
}

}  // namespace
}  // namespace kiv::test
