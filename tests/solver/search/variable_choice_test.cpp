#include "solver/search/variable_choice.h"

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/all_different.h"
#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

class VariableChoices : public SearchedNetwork {
 protected:
  std::optional<VariableId> Choose(VariableChoice choice) const {
    std::vector<VariableId> all;
    for (VariableId id = 0; id < network_.CountVariables(); ++id) all.push_back(id);
    return Choose(choice, all);
  }
  std::optional<VariableId> Choose(VariableChoice choice,
                                   const std::vector<VariableId>& among) const {
    return ChooseVariable(network_, among, choice, VariableWeights(network_),
                          VariableActivity(network_));
  }
};

constexpr VariableChoice kEveryChoice[] = {
    VariableChoice::kInputOrder, VariableChoice::kFirstFail, VariableChoice::kAntiFirstFail,
    VariableChoice::kSmallest,   VariableChoice::kLargest,   VariableChoice::kMostConstrained,
    VariableChoice::kOccurrence, VariableChoice::kMaxRegret, VariableChoice::kDomWDeg,
    VariableChoice::kActivity};

TEST_F(VariableChoices, GoByDomains) {
  Enum({4});
  const auto first = Enum({4, 5, 6, 7});
  const auto few = Enum({5, 8, 9});
  const auto many = Enum({3, 4, 5, 6, 7});
  const auto low = Interval(-1, 2);
  const auto high = Enum({20, 30, 31, 90});
  EXPECT_EQ(Choose(VariableChoice::kInputOrder), first);
  EXPECT_EQ(Choose(VariableChoice::kFirstFail), few);
  EXPECT_EQ(Choose(VariableChoice::kAntiFirstFail), many);
  EXPECT_EQ(Choose(VariableChoice::kSmallest), low);
  EXPECT_EQ(Choose(VariableChoice::kLargest), high);
  EXPECT_EQ(Choose(VariableChoice::kMaxRegret), high);
}

TEST_F(VariableChoices, GoByTheFewestValuesAndThenTheMostConstraints) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({1, 2, 3});
  const auto z = Enum({1, 2, 3, 4});
  for (int i = 0; i < 2; ++i) network_.Emplace<AllDifferent>(std::vector{y, z});
  network_.Emplace<AllDifferent>(std::vector{x, z});
  EXPECT_EQ(Choose(VariableChoice::kMostConstrained), y);
  EXPECT_EQ(Choose(VariableChoice::kOccurrence), z);
  EXPECT_EQ(Choose(VariableChoice::kFirstFail), x);
}

TEST_F(VariableChoices, GoByTheWeightOfConstraints) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({1, 2, 3, 4});
  const auto z = Enum({1, 2, 3, 4});
  network_.Emplace<AllDifferent>(std::vector{x, y, z});
  const auto pair = network_.Emplace<AllDifferent>(std::vector{y, z});
  const auto single = network_.Emplace<AllDifferent>(std::vector{x});
  VariableWeights weights(network_);
  const VariableActivity activity(network_);
  const std::vector<VariableId> all = {x, y, z};
  EXPECT_EQ(weights.GetWeight(x), 2u);
  EXPECT_EQ(ChooseVariable(network_, all, VariableChoice::kDomWDeg, weights, activity), x);
  weights.Blame(network_, pair);
  EXPECT_EQ(weights.GetWeight(y), 3u);
  EXPECT_EQ(weights.GetWeight(x), 2u);
  EXPECT_EQ(weights.GetDegree(y), 2u);
  EXPECT_EQ(ChooseVariable(network_, all, VariableChoice::kDomWDeg, weights, activity), y);
  weights.Blame(network_, single);
  EXPECT_EQ(ChooseVariable(network_, all, VariableChoice::kDomWDeg, weights, activity), x);
}

TEST_F(VariableChoices, GoByActivity) {
  const auto x = Enum({1, 2, 3, 4});
  const auto y = Enum({1, 2, 3, 4});
  const auto z = Enum({1, 2, 3, 4});
  const VariableWeights weights(network_);
  VariableActivity activity(network_);
  const auto choose = [&] {
    return ChooseVariable(network_, std::vector{x, y, z}, VariableChoice::kActivity, weights,
                          activity);
  };
  const auto change = [&](const std::vector<VariableId>& variables) {
    network_.Propagate();
    network_.PushLevel();
    for (const VariableId variable : variables) {
      network_.Update(variable, [](KivOmbiAny& domain) {
        static_cast<KivOmbiInteger&>(domain).RemoveExactValue(4);
      });
    }
    activity.NoteChanges(network_);
    network_.PopLevel();
  };
  EXPECT_EQ(choose(), x);
  change({y, z});
  EXPECT_EQ(choose(), y);
  change({z});
  EXPECT_EQ(choose(), z);
  EXPECT_EQ(activity.Get(x), 0);
  change({});
  EXPECT_EQ(choose(), z);
  // What is long ago fades: activities stay finite over any number of nodes.
  for (int i = 0; i < 300000; ++i) change({x});
  EXPECT_EQ(choose(), x);
  EXPECT_GT(activity.Get(x), activity.Get(z));
  EXPECT_LT(activity.Get(x), 1e200);
}

TEST_F(VariableChoices, TakeTheFirstOfEquals) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({1, 2, 3});
  for (const VariableChoice choice : kEveryChoice) {
    EXPECT_EQ(Choose(choice, {x, y}), x);
    EXPECT_EQ(Choose(choice, {y, x}), y);
  }
}

TEST_F(VariableChoices, LeaveWhatCannotBeSplit) {
  Enum({7});
  Enum({});
  Interval(5, SubIntBase::kMax);
  Interval(SubIntBase::kMin, 5);
  for (const VariableChoice choice : kEveryChoice) EXPECT_EQ(Choose(choice), std::nullopt);
  const auto truth = Bool();
  for (const VariableChoice choice : kEveryChoice) EXPECT_EQ(Choose(choice), truth);
}

}  // namespace
}  // namespace kiv::test
