#include "solver/flatzinc/solution_text.h"

#include <gtest/gtest.h>

#include "solver/flatzinc/error.h"
#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

// What is written for a text all of whose variables are fixed.
std::string Write(std::string_view text) {
  PostedText posted(text);
  EXPECT_EQ(posted.network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
  std::string written = "before\n";
  flatzinc::SolutionText(posted.builder).AppendTo(written, posted.network);
  EXPECT_TRUE(written.starts_with("before\n"));
  return written.substr(7);
}

TEST(SolutionText, WritesAnnotatedVariablesInTheOrderOfTheText) {
  EXPECT_EQ(Write("var 7..7: hidden; var -3..-3: x :: output_var;\n"
                  "array [1..1] of var int: a :: output_array([1..1]) = [x];\n"
                  "var bool: b :: output_var = true; var bool: c :: output_var = false;\n"
                  "solve satisfy;"),
            "x = -3;\n"
            "a = array1d(1..1, [-3]);\n"
            "b = true;\n"
            "c = false;\n");
}

TEST(SolutionText, WritesArraysWithTheirIndexSets) {
  EXPECT_EQ(
      Write("var 4..4: x; var bool: b = true;\n"
            "array [1..6] of var int: a :: output_array([1..2, 0..2]) = [x, 1, x, -2, x, 3];\n"
            "array [1..2] of var bool: c :: output_array([-1..0]) = [b, false];\n"
            "array [1..2] of var int: d :: output_array([1..1, {5, 6}, 3..3]) = [8, 9];\n"
            "solve satisfy;"),
      "a = array2d(1..2, 0..2, [4, 1, 4, -2, 4, 3]);\n"
      "c = array1d(-1..0, [true, false]);\n"
      "d = array3d(1..1, 5..6, 3..3, [8, 9]);\n");
}

TEST(SolutionText, WritesEmptyArrays) {
  EXPECT_EQ(Write("array [1..0] of var int: a :: output_array([1..0]) = [];\n"
                  "array [1..0] of var int: b :: output_array([1..2, 1..0]) = [];\n"
                  "solve satisfy;"),
            "a = array1d(1..0, []);\n"
            "b = array2d(1..2, 1..0, []);\n");
}

TEST(SolutionText, IsEmptyWhereNothingIsAnnotated) {
  EXPECT_EQ(Write("var 1..1: x; array [1..1] of var int: a = [x]; solve satisfy;"), "");
}

TEST(SolutionText, WritesTheGreatestIntegers) {
  EXPECT_EQ(Write("var -2147483646..-2147483646: x :: output_var; solve satisfy;"),
            "x = -2147483646;\n");
}

TEST(SolutionText, RefusesIndexSetsThatAreNone) {
  for (const char* annotation : {"output_array", "output_array(1..2)", "output_array([])",
                                 "output_array([1])", "output_array([1..2], [1..2])"}) {
    const std::string text = std::string("var 1..1: x; array [1..1] of var int: a :: ") +
                             annotation + " = [x]; solve satisfy;";
    PostedText posted(text);
    EXPECT_THROW(flatzinc::SolutionText{posted.builder}, flatzinc::Error) << annotation;
  }
}

}  // namespace
}  // namespace kiv::test
