#include "solver/search/nogoods.h"

#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

class NogoodsTest : public SearchedNetwork {
 protected:
  using Outcome = KivOmbNetwork::Outcome;

  // A path of these decisions, `false` for a refuted one.
  static std::vector<Branching> Path(const std::vector<std::pair<Literal, bool>>& decisions) {
    std::vector<Branching> path;
    for (const auto& [literal, taken] : decisions) path.push_back({literal, !taken, 0});
    return path;
  }
  // Opens a level, imposes the literals and lets the nogoods work.
  Outcome Descend(Nogoods& nogoods, const std::vector<Literal>& literals) {
    network_.PushLevel();
    for (const Literal& literal : literals) Impose(network_, literal);
    return Settle(nogoods);
  }
  Outcome Settle(Nogoods& nogoods) {
    Outcome outcome = network_.Propagate();
    while (outcome == Outcome::kFixpoint && nogoods.Propagate(network_)) {
      outcome = network_.Propagate();
    }
    return outcome;
  }
};

TEST_F(NogoodsTest, ForbidARefutedDecisionTogetherWithThoseBeforeIt) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({1, 2, 3});
  const auto z = Interval(1, 9);
  Nogoods nogoods(network_);
  const auto path = Path({{Literal::Equal(x, 1), true},
                          {Literal::Equal(y, 2), false},
                          {Literal::AtMost(z, 4), true},
                          {Literal::Equal(y, 3), false}});
  EXPECT_EQ(Nogoods::CountLiterals(path), 5u);
  network_.PushLevel();
  nogoods.Learn(network_, path);
  EXPECT_EQ(nogoods.CountClauses(), 2u);
  EXPECT_EQ(nogoods.CountLiterals(), 5u);
  EXPECT_EQ(Settle(nogoods), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, y), (Values{1, 2, 3}));

  EXPECT_EQ(Descend(nogoods, {Literal::Equal(x, 1)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, y), (Values{1, 3}));
  EXPECT_EQ(Descend(nogoods, {Literal::Equal(y, 3)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, z), (Values{5, 6, 7, 8, 9}));
  network_.PopLevel();
  EXPECT_EQ(Descend(nogoods, {Literal::AtMost(z, 4)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, y), (Values{1}));
  network_.PopLevel();
  network_.PopLevel();
  // The same from the other end, after the watches moved.
  EXPECT_EQ(Descend(nogoods, {Literal::Equal(y, 3), Literal::AtMost(z, 2)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, x), (Values{2, 3}));
  network_.PopLevel();
  EXPECT_EQ(Descend(nogoods, {Literal::Equal(x, 1), Literal::Equal(y, 2)}),
            Outcome::kContradiction);
  network_.PopLevel();
  EXPECT_EQ(Descend(nogoods, {Literal::Equal(x, 2), Literal::Equal(y, 2)}), Outcome::kFixpoint);
}

TEST_F(NogoodsTest, OfOneDecisionHoldAtOnce) {
  const auto x = Enum({1, 2, 3});
  Nogoods nogoods(network_);
  network_.PushLevel();
  nogoods.Learn(network_, Path({{Literal::Equal(x, 2), false}}));
  EXPECT_EQ(ValuesOf(network_, x), (Values{1, 3}));
}

// An interval keeps the inner value until it is a bound.
TEST_F(NogoodsTest, WaitForAnInnerValueToBecomeABound) {
  const auto x = Interval(1, 5);
  Nogoods nogoods(network_);
  network_.PushLevel();
  nogoods.Learn(network_, Path({{Literal::Equal(x, 3), false}}));
  EXPECT_EQ(Settle(nogoods), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, x), (Values{1, 2, 3, 4, 5}));
  EXPECT_EQ(Descend(nogoods, {Literal::AtLeast(x, 3)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, x), (Values{4, 5}));
  network_.PopLevel();
  EXPECT_EQ(Descend(nogoods, {Literal::Equal(x, 3)}), Outcome::kContradiction);
}

TEST_F(NogoodsTest, MayNameAVariableMoreThanOnce) {
  const auto x = Interval(1, 9);
  const auto y = Bool();
  Nogoods nogoods(network_);
  network_.PushLevel();
  nogoods.Learn(network_, Path({{Literal::AtMost(x, 6), true},
                                {Literal::AtLeast(x, 3), true},
                                {Literal::Equal(y, 0), true},
                                {Literal::AtMost(x, 4), false}}));
  EXPECT_EQ(Descend(nogoods, {Literal::AtMost(x, 5)}), Outcome::kFixpoint);
  EXPECT_EQ(Descend(nogoods, {Literal::Equal(y, 0)}), Outcome::kFixpoint);
  EXPECT_EQ(Descend(nogoods, {Literal::AtLeast(x, 4)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, x), (Values{5}));
  network_.PopLevel();
  EXPECT_EQ(Descend(nogoods, {Literal::AtMost(x, 4)}), Outcome::kFixpoint);
  EXPECT_EQ(ValuesOf(network_, x), (Values{1, 2}));
}

}  // namespace
}  // namespace kiv::test
