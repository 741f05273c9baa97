#include "solver/constraints/linear_inequality.h"

#include <gtest/gtest.h>

#include <array>

#include "solver/constraints/linear_posting.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

class Inequality : public testing::Test {
 protected:
  VariableId Add(const char* kind, const Values& values) {
    return Declare(network_, {OpenModules().FindKind(kind), values});
  }
  void PostAtMost(std::vector<LinearTerm> terms, std::int64_t constant) {
    PostLinear(network_, terms, LinearRelation::kLessOrEqual, constant);
  }
  std::string Text(VariableId variable) const { return test::Text(network_, variable); }

  KivOmbNetwork network_;
};

TEST_F(Inequality, NarrowsTheSideThatAddsToTheSum) {
  const auto x = Add("interval int", {0, 1000000});
  const auto y = Add("enum int", {-40, -7, 0, 3, 90});
  PostAtMost({{3, x}, {-2, y}}, 5);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(y), "[0, 61] { 0, 3, 90 }");
}

TEST_F(Inequality, SleepsOnceNothingCanExceedTheConstant) {
  const auto x = Add("interval int", {0, 100});
  const auto y = Add("interval int", {0, 100});
  PostAtMost({{1, x}, {1, y}}, 150);
  network_.Propagate();
  network_.PushLevel();
  Restrict(network_, x, {0, 50});
  network_.Propagate();
  const auto runs = network_.GetStatistics().runs;
  Restrict(network_, y, {0, 10});
  network_.Propagate();
  EXPECT_EQ(network_.GetStatistics().runs, runs);
  network_.PopLevel();
  Restrict(network_, x, {70, 100});
  network_.Propagate();
  EXPECT_EQ(Text(y), "[0, 80]") << "it wakes again where the level is taken back";
}

TEST_F(Inequality, AnOpenTermIsTheOnlyOneThatIsNarrowed) {
  const auto x = Add("interval int", {});
  const auto y = Add("interval int", {10, 20});
  PostAtMost({{2, x}, {1, y}}, 7);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(y), "[Min, -2] [10, 20]");
  const auto u = Add("interval int", {});
  PostAtMost({{-1, x}, {1, u}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(u), "[Min, -2]");
}

TEST_F(Inequality, ABoundBeyondTheRangeIsAnOverflow) {
  PostAtMost({{1, Add("interval int", {})}}, -3000000000);
  EXPECT_EQ(network_.Propagate(), Outcome::kOverflow);
}

TEST_F(Inequality, ABoundBeyondTheRangeContradictsWhatExcludesIt) {
  PostAtMost({{1, Add("interval int", {})}}, -3000000000);
  PostAtMost({{1, Add("interval int", {-kMost, kMost})}}, -3000000000);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction) << "which counts for more";
}

TEST_F(Inequality, ABoundThatNothingReachesIsNone) {
  const auto x = Add("enum int", {-kMost, kMost});
  const auto y = Add("interval int", {-kMost, kMost});
  PostAtMost({{1, x}, {1, y}}, 4294967292);
  PostAtMost({{1, y}}, 3000000000);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network_.GetSummary(x).cardinality, 2u);
  EXPECT_EQ(network_.GetSummary(y).upper, kMost);
}

TEST_F(Inequality, TellsItsGroundTruth) {
  const LinearInequality inequality({1, -2}, -4294967292);
  EXPECT_TRUE(inequality.Holds(std::array<std::int64_t, 2>{0, 2147483646}));
  EXPECT_FALSE(inequality.Holds(std::array<std::int64_t, 2>{1, 2147483646}));
}

}  // namespace
}  // namespace kiv::test
