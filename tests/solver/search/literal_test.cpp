#include "solver/search/literal.h"

#include "framework/intervals/sub_int_base.h"
#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

using Relation = Literal::Relation;

class Literals : public SearchedNetwork {
 protected:
  static bool Holds(const Literal& literal, std::int32_t value) {
    switch (literal.relation) {
      case Relation::kEqual:
        return value == literal.value;
      case Relation::kUnequal:
        return value != literal.value;
      case Relation::kAtMost:
        return value <= literal.value;
      case Relation::kAtLeast:
        break;
    }
    return value >= literal.value;
  }
};

TEST_F(Literals, AgreeWithTheValuesOfADomain) {
  const VariableId variables[] = {Enum({-3, 0, 1, 5}),
                                  Enum({2}),
                                  Add("interval int", {-2, -1, 0, 1, 2, 3}),
                                  Add("range int", {0, 1, 2, 3}),
                                  Bool(),
                                  Add("bool", {1})};
  network_.Propagate();
  for (const VariableId variable : variables) {
    const Values before = ValuesOf(network_, variable);
    for (const auto relation :
         {Relation::kEqual, Relation::kUnequal, Relation::kAtMost, Relation::kAtLeast}) {
      for (std::int32_t value = -5; value <= 6; ++value) {
        SCOPED_TRACE(testing::Message() << "variable " << variable << ", relation "
                                        << static_cast<int>(relation) << ", value " << value);
        const Literal literal{variable, relation, value};
        Values wanted;
        for (const std::int32_t possible : before) {
          if (Holds(literal, possible)) wanted.push_back(possible);
          EXPECT_NE(Holds(literal, possible), Holds(Negated(literal), possible));
        }
        EXPECT_EQ(IsEntailed(network_, literal), wanted == before);
        EXPECT_EQ(IsImpossible(network_, literal), wanted.empty());

        network_.PushLevel();
        const bool changed = Impose(network_, literal);
        const bool has_holes = network_.GetKind(variable).GetName() == "enum int";
        if (relation == Relation::kUnequal && !has_holes && wanted.size() > 1 && wanted != before &&
            wanted.front() == before.front() && wanted.back() == before.back()) {
          wanted = before;  // an inner value of an interval
        }
        EXPECT_EQ(changed, wanted != before);
        EXPECT_EQ(network_.GetSummary(variable).IsNil(), wanted.empty());
        if (!wanted.empty()) {
          EXPECT_EQ(ValuesOf(network_, variable), wanted);
        }
        network_.PopLevel();
        network_.Propagate();
        EXPECT_EQ(ValuesOf(network_, variable), before);
      }
    }
  }
}

TEST_F(Literals, AreNegatedTwiceToThemselves) {
  for (const auto relation :
       {Relation::kEqual, Relation::kUnequal, Relation::kAtMost, Relation::kAtLeast}) {
    const Literal literal{3, relation, -7};
    EXPECT_EQ(Negated(Negated(literal)), literal);
    EXPECT_NE(Negated(literal), literal);
  }
}

TEST_F(Literals, BeyondTheEndsOfTheIntegersNothingIsLeft) {
  constexpr std::int32_t kMost = SubIntBase::kMax - 1;
  for (const VariableId variable : {Enum({-kMost, kMost}), Add("interval int", {-kMost, kMost})}) {
    for (const Literal& literal :
         {Negated(Literal::AtMost(variable, kMost)), Negated(Literal::AtLeast(variable, -kMost))}) {
      EXPECT_TRUE(IsImpossible(network_, literal));
      EXPECT_EQ(network_.Propagate(), KivOmbNetwork::Outcome::kFixpoint);
      network_.PushLevel();
      EXPECT_TRUE(Impose(network_, literal));
      EXPECT_TRUE(network_.GetSummary(variable).IsNil());
      network_.PopLevel();
    }
  }
}

TEST_F(Literals, NeitherHoldNorFailWhereNothingIsKnown) {
  const auto x = Enum({});
  for (const Literal& literal :
       {Literal::Equal(x, 3), Literal::AtMost(x, 3), Literal::AtLeast(x, 3)}) {
    EXPECT_FALSE(IsEntailed(network_, literal));
    EXPECT_FALSE(IsImpossible(network_, literal));
    EXPECT_FALSE(IsEntailed(network_, Negated(literal)));
  }
}

}  // namespace
}  // namespace kiv::test
