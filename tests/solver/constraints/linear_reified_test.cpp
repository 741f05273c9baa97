#include "solver/constraints/linear_reified.h"

#include <gtest/gtest.h>

#include <array>

#include "solver/constraints/linear_posting.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

class Reified : public testing::Test {
 protected:
  VariableId Add(const char* kind, const Values& values) {
    return Declare(network_, {OpenModules().FindKind(kind), values});
  }
  // The text of a new truth value of x - y `relation` constant.
  std::string TruthOf(LinearRelation relation, std::int64_t constant,
                      Reification reification = Reification::kEquivalence) {
    const auto truth = Add("bool", {0, 1});
    const LinearTerm terms[] = {{1, x_}, {-1, y_}};
    PostLinear(network_, terms, relation, constant, LinearTruth{truth, reification});
    EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
    return Text(network_, truth);
  }

  KivOmbNetwork network_;
  VariableId x_ = Add("enum int", {1, 3, 5});
  VariableId y_ = Add("enum int", {0, 10});
};

// x - y is -9, -7, -5, 1, 3 or 5.
TEST_F(Reified, TheSumDecidesTheTruth) {
  EXPECT_EQ(TruthOf(LinearRelation::kLessOrEqual, 5), "true");
  EXPECT_EQ(TruthOf(LinearRelation::kLessOrEqual, 4), "Any");
  EXPECT_EQ(TruthOf(LinearRelation::kLessOrEqual, -10), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kGreater, -10), "true");
  EXPECT_EQ(TruthOf(LinearRelation::kGreaterOrEqual, 6), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kEqual, 6), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kEqual, 5), "Any");
  EXPECT_EQ(TruthOf(LinearRelation::kUnequal, -10), "true");
}

TEST_F(Reified, AValueThatNoSumHasDecidesTheTruthOfAShortEquation) {
  EXPECT_EQ(TruthOf(LinearRelation::kEqual, -3), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kUnequal, 2), "true");
}

TEST_F(Reified, AnImplicationIsOnlyEverRefuted) {
  EXPECT_EQ(TruthOf(LinearRelation::kLessOrEqual, 5, Reification::kImplication), "Any");
  EXPECT_EQ(TruthOf(LinearRelation::kLessOrEqual, -10, Reification::kImplication), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kEqual, -3, Reification::kImplication), "false");
}

TEST_F(Reified, AnUnknownTermLeavesTheTruthOpen) {
  y_ = Add("enum int", {});
  for (const LinearRelation relation :
       {LinearRelation::kEqual, LinearRelation::kUnequal, LinearRelation::kLess}) {
    EXPECT_EQ(TruthOf(relation, 1000), "Any");
  }
}

TEST_F(Reified, TheSumOfNothingIsDecidedAtOnce) {
  y_ = x_;
  EXPECT_EQ(TruthOf(LinearRelation::kEqual, 0), "true");
  EXPECT_EQ(TruthOf(LinearRelation::kEqual, 1), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kLess, 0), "false");
  EXPECT_EQ(TruthOf(LinearRelation::kUnequal, 1), "true");
}

TEST_F(Reified, AConstantThatNoMultipleIsEqualToRefutesAnEquation) {
  const auto truth = Add("bool", {0, 1});
  const LinearTerm terms[] = {{2, Add("interval int", {-1000000, 1000000})},
                              {-4, Add("interval int", {-1000000, 1000000})}};
  PostLinear(network_, terms, LinearRelation::kEqual, 7, LinearTruth{truth});
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network_, truth), "false");
}

TEST_F(Reified, AKnownTruthImposesTheRelationOrItsOpposite) {
  struct {
    LinearRelation relation;
    Reification reification;
    bool truth;
    const char* x;
    const char* y;
  } const cases[] = {
      {LinearRelation::kLessOrEqual, Reification::kEquivalence, true, "{ 1, 3, 5 }", "10"},
      {LinearRelation::kLessOrEqual, Reification::kEquivalence, false, "{ 1, 3, 5 }", "0"},
      {LinearRelation::kLessOrEqual, Reification::kImplication, false, "{ 1, 3, 5 }", "{ 0, 10 }"},
      {LinearRelation::kEqual, Reification::kEquivalence, true, "Nil", ""},
      {LinearRelation::kEqual, Reification::kEquivalence, false, "{ 1, 3, 5 }", "{ 0, 10 }"},
  };
  for (const auto& [relation, reification, value, x, y] : cases) {
    KivOmbNetwork network;
    const auto add = [&](const char* kind, const Values& values) {
      return Declare(network, {OpenModules().FindKind(kind), values});
    };
    const LinearTerm terms[] = {{1, add("enum int", {1, 3, 5})}, {-1, add("enum int", {0, 10})}};
    const auto truth = add("bool", {0, 1});
    PostLinear(network, terms, relation, 0, LinearTruth{truth, reification});
    network.Propagate();
    Restrict(network, truth, {value ? 1 : 0});
    if (network.Propagate() == Outcome::kContradiction) {
      EXPECT_STREQ(x, "Nil");
      continue;
    }
    EXPECT_EQ(Text(network, terms[0].variable), x);
    EXPECT_EQ(Text(network, terms[1].variable), y);
  }
}

TEST_F(Reified, TellsItsGroundTruth) {
  using Values3 = std::array<std::int64_t, 3>;
  const LinearReified equivalent({1, 1}, LinearRelation::kLessOrEqual, 4,
                                 Reification::kEquivalence);
  EXPECT_TRUE(equivalent.Holds(Values3{2, 2, 1}));
  EXPECT_FALSE(equivalent.Holds(Values3{2, 2, 0}));
  EXPECT_TRUE(equivalent.Holds(Values3{3, 2, 0}));
  EXPECT_FALSE(equivalent.Holds(Values3{3, 2, 1}));
  const LinearReified implied({1, 1}, LinearRelation::kLessOrEqual, 4, Reification::kImplication);
  EXPECT_TRUE(implied.Holds(Values3{2, 2, 0}));
  EXPECT_FALSE(implied.Holds(Values3{3, 2, 1}));
}

}  // namespace
}  // namespace kiv::test
