#include "solver/search/value_choice.h"

#include <set>

#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

class ValueChoices : public SearchedNetwork {
 protected:
  Literal Choose(VariableId variable, ValueChoice choice) {
    return ChooseValue(network_, variable, choice, random_);
  }
  std::mt19937_64 random_{1};
};

TEST_F(ValueChoices, SplitEveryKindTheSame) {
  const VariableId variables[] = {Enum({1, 2, 3, 4, 5}), Interval(1, 5),
                                  Add("range int", {1, 2, 3, 4, 5})};
  for (const VariableId x : variables) {
    EXPECT_EQ(Choose(x, ValueChoice::kSmallest), Literal::Equal(x, 1));
    EXPECT_EQ(Choose(x, ValueChoice::kGreatest), Literal::Equal(x, 5));
    EXPECT_EQ(Choose(x, ValueChoice::kLowerHalf), Literal::AtMost(x, 3));
    EXPECT_EQ(Choose(x, ValueChoice::kUpperHalf), Literal::AtLeast(x, 4));
    EXPECT_EQ(Choose(x, ValueChoice::kMiddle), Literal::Equal(x, 3));
    EXPECT_EQ(Choose(x, ValueChoice::kMedian), Literal::Equal(x, 3));
    EXPECT_EQ(Choose(x, ValueChoice::kUpToMiddle), Literal::AtMost(x, 3));
    EXPECT_EQ(Choose(x, ValueChoice::kBeyondMiddle), Literal::AtLeast(x, 4));
    EXPECT_EQ(Choose(x, ValueChoice::kUpToFirstGap), Literal::AtMost(x, 3));
    EXPECT_EQ(Choose(x, ValueChoice::kButSmallest), Literal::AtLeast(x, 2));
    EXPECT_EQ(Choose(x, ValueChoice::kButGreatest), Literal::AtMost(x, 4));
    EXPECT_EQ(ValuesOf(network_, x), (Values{1, 2, 3, 4, 5}));
  }
}

TEST_F(ValueChoices, HalvesAreOfTheValuesAndTheMiddleIsOfTheBounds) {
  const auto x = Enum({0, 1, 2, 3, 90, 100});
  EXPECT_EQ(Choose(x, ValueChoice::kLowerHalf), Literal::AtMost(x, 2));
  EXPECT_EQ(Choose(x, ValueChoice::kUpperHalf), Literal::AtLeast(x, 3));
  EXPECT_EQ(Choose(x, ValueChoice::kMiddle), Literal::Equal(x, 90));
  const auto y = Enum({0, 40, 60, 100});
  EXPECT_EQ(Choose(y, ValueChoice::kMiddle), Literal::Equal(y, 40));
}

TEST_F(ValueChoices, SplitAtTheMiddleBetweenTheBoundsRoundedDown) {
  const auto x = Enum({-4, -3, 7, 90, 91});
  EXPECT_EQ(Choose(x, ValueChoice::kUpToMiddle), Literal::AtMost(x, 43));
  EXPECT_EQ(Choose(x, ValueChoice::kBeyondMiddle), Literal::AtLeast(x, 44));
  const auto y = Interval(-6, -3);
  EXPECT_EQ(Choose(y, ValueChoice::kUpToMiddle), Literal::AtMost(y, -5));
  EXPECT_EQ(Choose(y, ValueChoice::kBeyondMiddle), Literal::AtLeast(y, -4));
}

TEST_F(ValueChoices, TheMedianHasAsManyValuesOnEitherSide) {
  const auto odd = Enum({-9, 1, 2, 50, 1000});
  EXPECT_EQ(Choose(odd, ValueChoice::kMedian), Literal::Equal(odd, 2));
  const auto even = Enum({-9, 1, 50, 1000});
  EXPECT_EQ(Choose(even, ValueChoice::kMedian), Literal::Equal(even, 1));
  const auto range = Interval(-7, 0);
  EXPECT_EQ(Choose(range, ValueChoice::kMedian), Literal::Equal(range, -4));
}

TEST_F(ValueChoices, TheFirstRangeEndsAtTheFirstGap) {
  const auto x = Enum({1, 2, 3, 5, 6, 9});
  EXPECT_EQ(Choose(x, ValueChoice::kUpToFirstGap), Literal::AtMost(x, 3));
  const auto y = Enum({1, 5, 6});
  EXPECT_EQ(Choose(y, ValueChoice::kUpToFirstGap), Literal::AtMost(y, 1));
}

TEST_F(ValueChoices, TakeOneOfTwoValues) {
  for (const VariableId x : {Bool(), Enum({0, 1}), Interval(0, 1)}) {
    for (const ValueChoice choice :
         {ValueChoice::kSmallest, ValueChoice::kLowerHalf, ValueChoice::kMiddle,
          ValueChoice::kFromBelow, ValueChoice::kMedian, ValueChoice::kUpToMiddle,
          ValueChoice::kUpToFirstGap, ValueChoice::kButGreatest}) {
      EXPECT_EQ(Choose(x, choice), Literal::Equal(x, 0));
    }
    for (const ValueChoice choice : {ValueChoice::kGreatest, ValueChoice::kUpperHalf,
                                     ValueChoice::kBeyondMiddle, ValueChoice::kButSmallest}) {
      EXPECT_EQ(Choose(x, choice), Literal::Equal(x, 1));
    }
  }
}

TEST_F(ValueChoices, RandomOnesComeToEveryValueAndOnlyToThose) {
  for (const VariableId x : {Bool(), Enum({-3, 0, 1, 7}), Interval(-1, 3)}) {
    const Values values = x == 0 ? Values{0, 1} : ValuesOf(network_, x);
    std::set<std::int32_t> chosen;
    for (int i = 0; i < 500; ++i) {
      const Literal literal = Choose(x, ValueChoice::kRandom);
      EXPECT_EQ(literal.relation, Literal::Relation::kEqual);
      chosen.insert(literal.value);
    }
    EXPECT_EQ(Values(chosen.begin(), chosen.end()), values);
  }
}

TEST_F(ValueChoices, FromBelowBisectsWhatIsWide) {
  const auto narrow = Interval(-1, 62);
  EXPECT_EQ(Choose(narrow, ValueChoice::kFromBelow), Literal::Equal(narrow, -1));
  const auto wide = Interval(-1, 63);
  EXPECT_EQ(Choose(wide, ValueChoice::kFromBelow), Literal::AtMost(wide, 31));
}

TEST_F(ValueChoices, SplitTheWidestInterval) {
  constexpr std::int32_t kMost = 2147483646;
  const auto x = Interval(-kMost, kMost);
  EXPECT_EQ(Choose(x, ValueChoice::kLowerHalf), Literal::AtMost(x, 0));
  EXPECT_EQ(Choose(x, ValueChoice::kMiddle), Literal::Equal(x, 0));
  EXPECT_EQ(Choose(x, ValueChoice::kMedian), Literal::Equal(x, 0));
  EXPECT_EQ(Choose(x, ValueChoice::kUpToMiddle), Literal::AtMost(x, 0));
  EXPECT_EQ(Choose(x, ValueChoice::kUpToFirstGap), Literal::AtMost(x, 0));
  EXPECT_EQ(Choose(x, ValueChoice::kGreatest), Literal::Equal(x, kMost));
  for (int i = 0; i < 100; ++i) {
    EXPECT_FALSE(IsImpossible(network_, Choose(x, ValueChoice::kRandom)));
  }
}

}  // namespace
}  // namespace kiv::test
