#include "solver/flatzinc/assumed_bounds.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

using flatzinc::AssumeBounds;
using flatzinc::AssumedBounds;

TEST(AssumedBounds, NothingIsAssumedWherePropagationFindsBounds) {
  PostedText text(
      "var int: x; var -5..9: y; var int: z; constraint int_times(y, y, x);\n"
      "constraint int_lin_eq([1, 1, -1], [x, y, z], 0); solve satisfy;");
  EXPECT_TRUE(AssumeBounds(text.network, {}).empty());
  EXPECT_LE(text.network.GetSummary(text.Find("x")).upper, 81);
}

TEST(AssumedBounds, AMillionEitherWay) {
  PostedText text("var int: x; solve satisfy;");
  const auto assumed = AssumeBounds(text.network, {});
  ASSERT_EQ(assumed.size(), 1u);
  EXPECT_EQ(assumed[0].variable, text.Find("x"));
  EXPECT_TRUE(assumed[0].below);
  EXPECT_TRUE(assumed[0].above);
  EXPECT_EQ(text.network.GetSummary(text.Find("x")).lower, -1000000);
  EXPECT_EQ(text.network.GetSummary(text.Find("x")).upper, 1000000);
}

TEST(AssumedBounds, AKnownBoundStays) {
  PostedText text("var int: x; constraint int_le(3, x); solve satisfy;");
  const auto assumed = AssumeBounds(text.network, {});
  ASSERT_EQ(assumed.size(), 1u);
  EXPECT_FALSE(assumed[0].below);
  EXPECT_TRUE(assumed[0].above);
  EXPECT_EQ(text.network.GetSummary(text.Find("x")).lower, 3);
  EXPECT_EQ(text.network.GetSummary(text.Find("x")).upper, 1000000);
}

TEST(AssumedBounds, AreWiderWhereTheModelCountsFurther) {
  PostedText text("var int: x; var -30000000..5: y; solve satisfy;");
  AssumeBounds(text.network, {});
  EXPECT_EQ(text.network.GetSummary(text.Find("x")).lower, -60000000);
  EXPECT_EQ(text.network.GetSummary(text.Find("x")).upper, 60000000);
  PostedText widest("var int: x; var -2000000000..5: y; solve satisfy;");
  AssumeBounds(widest.network, {});
  EXPECT_EQ(widest.network.GetSummary(widest.Find("x")).upper, 2147483646);
}

TEST(AssumedBounds, OfOneVariableMayGiveThoseOfOthers) {
  PostedText text(
      "var int: a; var int: b; var int: c; constraint int_lin_eq([1, 1, -1], [b, b, a], 0);\n"
      "constraint int_lin_eq([1, -1], [b, c], -4); solve satisfy;");
  const KivOmbNetwork::VariableId preferred[] = {text.Find("c")};
  const auto assumed = AssumeBounds(text.network, preferred);
  ASSERT_EQ(assumed.size(), 1u);
  EXPECT_EQ(assumed[0].variable, text.Find("c"));
  EXPECT_EQ(text.network.GetSummary(text.Find("a")).upper, 2 * (1000000 - 4));
}

TEST(AssumedBounds, NothingIsAssumedAfterAContradiction) {
  PostedText text("var int: x; var 1..3: y; constraint int_le(4, y); solve satisfy;");
  EXPECT_TRUE(AssumeBounds(text.network, {}).empty());
  EXPECT_EQ(text.network.Propagate(), KivOmbNetwork::Outcome::kContradiction);
}

// Each of the two pushes the other's bound by one until they meet the assumed ones.
TEST(AssumedBounds, AreNearEnoughToContradictSoon) {
  PostedText text(
      "var int: x; var int: y; constraint int_lt(x, y); constraint int_lt(y, x); solve satisfy;");
  EXPECT_FALSE(AssumeBounds(text.network, {}).empty());
  EXPECT_EQ(text.network.Propagate(), KivOmbNetwork::Outcome::kContradiction);
}

}  // namespace
}  // namespace kiv::test
