#include "solver/constraints/linear_expression.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv::test {
namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

using Terms = std::vector<LinearTerm>;

Terms TermsOf(const LinearExpression& expression) {
  return {expression.GetTerms().begin(), expression.GetTerms().end()};
}

LinearExpression Make(const Terms& terms, std::int64_t constant) {
  LinearExpression expression(constant);
  for (const LinearTerm& term : terms) EXPECT_TRUE(expression.Add(LinearExpression(term)));
  return expression;
}

TEST(LinearExpression, CollectsTermsAndConstants) {
  LinearExpression expression = Make({{2, 0}, {-1, 1}}, 5);
  ASSERT_TRUE(expression.Add(Make({{3, 0}}, -7)));
  EXPECT_EQ(TermsOf(expression), (Terms{{2, 0}, {-1, 1}, {3, 0}}));
  EXPECT_EQ(expression.GetConstant(), -2);
  ASSERT_TRUE(expression.Subtract(Make({{4, 2}}, 10)));
  EXPECT_EQ(TermsOf(expression), (Terms{{2, 0}, {-1, 1}, {3, 0}, {-4, 2}}));
  EXPECT_EQ(expression.GetConstant(), -12);
  ASSERT_TRUE(expression.Scale(-2));
  EXPECT_EQ(TermsOf(expression), (Terms{{-4, 0}, {2, 1}, {-6, 0}, {8, 2}}));
  EXPECT_EQ(expression.GetConstant(), 24);
}

TEST(LinearExpression, TakesItselfAsAnOperand) {
  LinearExpression expression = Make({{2, 0}, {-1, 1}}, 5);
  ASSERT_TRUE(expression.Add(expression));
  EXPECT_EQ(TermsOf(expression), (Terms{{2, 0}, {-1, 1}, {2, 0}, {-1, 1}}));
  EXPECT_EQ(expression.GetConstant(), 10);
  ASSERT_TRUE(expression.Subtract(expression));
  EXPECT_EQ(expression.GetTerms().size(), 8u);
  EXPECT_EQ(expression.GetTerms()[4], (LinearTerm{-2, 0}));
  EXPECT_EQ(expression.GetConstant(), 0);
}

TEST(LinearExpression, ANumberBeyond64BitsIsRefusedAndChangesNothing) {
  LinearExpression expression = Make({{kMost, 0}, {3, 1}}, kMost);
  EXPECT_FALSE(expression.Add(Make({{1, 2}}, 1)));
  EXPECT_FALSE(expression.Subtract(Make({{1, 2}}, -1)));
  EXPECT_FALSE(expression.Subtract(Make({{kLeast, 2}}, 0)));
  EXPECT_FALSE(expression.Scale(2));
  LinearExpression by_terms = Make({{1, 1}, {kMost, 0}}, 1);
  EXPECT_FALSE(by_terms.Scale(-2));
  EXPECT_FALSE(Make({{kLeast, 0}}, 0).Scale(-1));
  EXPECT_EQ(TermsOf(expression), (Terms{{kMost, 0}, {3, 1}}));
  EXPECT_EQ(expression.GetConstant(), kMost);
  EXPECT_EQ(TermsOf(by_terms), (Terms{{1, 1}, {kMost, 0}}));
  EXPECT_TRUE(expression.Scale(-1));
  EXPECT_EQ(expression.GetConstant(), -kMost);
}

TEST(LinearExpression, IsConstantWithoutTerms) {
  EXPECT_TRUE(LinearExpression(3).IsConstant());
  EXPECT_TRUE(LinearExpression().IsConstant());
  EXPECT_FALSE(LinearExpression(LinearTerm{1, 0}).IsConstant());
}

}  // namespace
}  // namespace kiv::test
