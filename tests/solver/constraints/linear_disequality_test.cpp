#include "solver/constraints/linear_disequality.h"

#include <gtest/gtest.h>

#include <array>

#include "solver/constraints/linear_posting.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

class Disequality : public testing::Test {
 protected:
  VariableId Add(const char* kind, const Values& values) {
    return Declare(network_, {OpenModules().FindKind(kind), values});
  }
  void PostUnequal(std::vector<LinearTerm> terms, std::int64_t constant) {
    PostLinear(network_, terms, LinearRelation::kUnequal, constant);
  }
  std::string Text(VariableId variable) const { return test::Text(network_, variable); }

  KivOmbNetwork network_;
};

TEST_F(Disequality, TheLastOpenTermLosesTheValue) {
  const auto x = Add("enum int", {1, 2, 3});
  const auto y = Add("enum int", {1, 2, 3});
  PostUnequal({{2, x}, {-1, y}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(y), "{ 1, 2, 3 } { 1, 2, 3 }");
  Restrict(network_, x, {1});
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(y), "{ 1, 3 }");
}

TEST_F(Disequality, AnIntervalLosesTheValueWhenABoundReachesIt) {
  const auto x = Add("interval int", {1, 9});
  const auto y = Add("int", {5});
  PostUnequal({{1, x}, {-1, y}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "[1, 9]");
  network_.PushLevel();
  Restrict(network_, x, {3, 3});
  network_.Propagate();
  network_.PopLevel();
  Restrict(network_, x, {5, 9});
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "[6, 9]");
}

TEST_F(Disequality, RunsForTheWatchedTermsAlone) {
  std::vector<LinearTerm> terms;
  for (int i = 0; i < 10; ++i) terms.push_back({1, Add("enum int", {0, 1})});
  PostUnequal(terms, 0);
  network_.Propagate();
  const auto runs = network_.GetStatistics().runs;
  for (std::size_t i = 9; i > 1; --i) {
    network_.PushLevel();
    Restrict(network_, terms[i].variable, {0});
    network_.Propagate();
  }
  EXPECT_EQ(network_.GetStatistics().runs, runs) << "two terms stayed open";
  network_.PushLevel();
  Restrict(network_, terms[0].variable, {0});
  network_.Propagate();
  EXPECT_EQ(Text(terms[1].variable), "1");
}

TEST_F(Disequality, FindsOtherTermsToWatchAndStaysAwakeWhenLevelsAreTakenBack) {
  std::vector<LinearTerm> terms;
  for (int i = 0; i < 5; ++i) terms.push_back({1, Add("enum int", {0, 1})});
  PostUnequal(terms, 5);
  network_.Propagate();
  for (const std::array<std::size_t, 5>& order :
       {std::array<std::size_t, 5>{0, 1, 2, 3, 4}, {4, 3, 2, 1, 0}, {2, 0, 4, 1, 3}}) {
    for (std::size_t i = 0; i < 4; ++i) {
      network_.PushLevel();
      Restrict(network_, terms[order[i]].variable, {1});
      ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
    }
    EXPECT_EQ(Text(terms[order[4]].variable), "0");
    while (network_.GetLevel() > 0) network_.PopLevel();
  }
}

TEST_F(Disequality, AValueThatNoTermCanHaveIsNotLost) {
  const auto x = Add("enum int", {1, 2});
  const auto three = Add("int", {3});
  PostUnequal({{2, x}, {1, three}}, 6);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "{ 1, 2 }");
}

TEST_F(Disequality, OfFixedTermsIsTrueOrFalse) {
  const auto one = Add("int", {1});
  const auto two = Add("int", {2});
  PostUnequal({{1, one}, {1, two}}, 4);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  PostUnequal({{1, one}, {1, two}}, 3);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Disequality, AnUnknownTermIsExcludedWhenItIsKnown) {
  const auto x = Add("enum int", {});
  const auto two = Add("int", {2});
  PostUnequal({{1, x}, {-1, two}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "Any");
  Restrict(network_, x, {1, 2, 3});
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "{ 1, 3 }");
}

TEST_F(Disequality, TellsItsGroundTruth) {
  const LinearDisequality disequality({2, -1}, 0);
  EXPECT_TRUE(disequality.Holds(std::array<std::int64_t, 2>{1, 3}));
  EXPECT_FALSE(disequality.Holds(std::array<std::int64_t, 2>{1, 2}));
}

}  // namespace
}  // namespace kiv::test
