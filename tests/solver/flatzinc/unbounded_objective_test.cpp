#include "solver/flatzinc/unbounded_objective.h"

#include <gtest/gtest.h>

#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

bool IsUnbounded(const std::string& constraints, Objective::Sense sense) {
  PostedText text("var int: x; var 1..9: y; var bool: b;\n" + constraints + "solve satisfy;");
  text.network.Propagate();
  return flatzinc::IsUnbounded({text.Find("x"), sense}, text.builder, text.network);
}
bool HasNoGreatest(const std::string& constraints) {
  return IsUnbounded(constraints, Objective::Sense::kMaximize);
}
bool HasNoLeast(const std::string& constraints) {
  return IsUnbounded(constraints, Objective::Sense::kMinimize);
}

TEST(UnboundedObjective, AFreeVariableHasNoBest) {
  EXPECT_TRUE(HasNoGreatest(""));
  EXPECT_TRUE(HasNoLeast("constraint int_ne(y, 3);\n"));
}

TEST(UnboundedObjective, BoundsOnTheOtherSideDoNotMatter) {
  EXPECT_TRUE(HasNoGreatest("constraint int_le(3, x);\nconstraint int_le(y, x);\n"));
  EXPECT_FALSE(HasNoLeast("constraint int_le(3, x);\n"));
  EXPECT_TRUE(HasNoLeast("constraint int_lt(x, 3);\n"));
  EXPECT_FALSE(HasNoGreatest("constraint int_lt(x, y);\n"));
  EXPECT_TRUE(HasNoGreatest("constraint int_lin_le([-1, 2], [x, y], 0);\n"));
  EXPECT_FALSE(HasNoGreatest("constraint int_lin_le([-1, 2, 1], [x, y, x], 0);\n"));
  EXPECT_TRUE(HasNoLeast("constraint int_lin_le([5, 2], [x, y], 0);\n"));
  EXPECT_FALSE(HasNoLeast("constraint int_lin_le([-1, 2], [x, y], 0);\n"));
}

// Even where it lies beyond Kiv's own integers, so that no propagation shows it.
TEST(UnboundedObjective, ABoundFarAwayIsOneAllTheSame) {
  EXPECT_FALSE(HasNoGreatest("constraint int_lin_le([1], [x], 3000000000);\n"));
}

TEST(UnboundedObjective, OtherConstraintsAreNotUnderstood) {
  EXPECT_FALSE(HasNoGreatest("constraint int_le_reif(x, 4, b);\n"));
  EXPECT_FALSE(HasNoGreatest("constraint int_ne(x, y);\n"));
}

}  // namespace
}  // namespace kiv::test
