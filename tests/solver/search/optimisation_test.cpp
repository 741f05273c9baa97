#include <algorithm>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/all_different.h"
#include "solver/constraints/linear_posting.h"
#include "solver/search/tree_search.h"
#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

class Optimisation : public SearchedNetwork {
 protected:
  SearchResult Run(VariableId objective, Objective::Sense sense, RestartPolicy restarts = {}) {
    SearchOptions options;
    options.objective = Objective{objective, sense};
    options.restarts = restarts;
    objectives_.clear();
    return TreeSearch(network_, options).Run([&](const SearchLeaf& leaf) {
      if (leaf.complete) objectives_.push_back(network_.GetSummary(objective).lower);
      return true;
    });
  }
  Values objectives_;  // of the solutions, in order
};

TEST_F(Optimisation, EachSolutionIsBetterThanTheOneBefore) {
  const auto x = Enum({1, 2, 3, 4});
  const auto y = Enum({1, 2, 3, 4});
  PostLess(x, y);
  const SearchResult result = Run(y, Objective::Sense::kMaximize);
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.best, 4);
  EXPECT_EQ(objectives_, (Values{2, 3, 4}));
  EXPECT_EQ(Run(x, Objective::Sense::kMinimize).best, 1);
  EXPECT_EQ(objectives_, (Values{1}));
  // The bound is gone with the search.
  EXPECT_EQ(ValuesOf(network_, y), (Values{2, 3, 4}));
}

TEST_F(Optimisation, WithoutASolutionThereIsNoBest) {
  const auto x = Enum({1, 2});
  PostLess(x, x);
  const SearchResult result = Run(x, Objective::Sense::kMinimize);
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.best, std::nullopt);
  EXPECT_EQ(result.statistics.solutions, 0u);
}

TEST_F(Optimisation, AnObjectiveThatIsUnknownAtFirstIsOptimised) {
  const auto x = Interval(-1000, 1000);
  const auto z = Enum({});
  const LinearTerm terms[] = {{-3, x}, {-1, z}};
  PostLinear(network_, terms, LinearRelation::kEqual, 0);
  EXPECT_EQ(Run(z, Objective::Sense::kMinimize).best, -3000);
  EXPECT_EQ(Run(z, Objective::Sense::kMaximize).best, 3000);
  EXPECT_EQ(Run(z, Objective::Sense::kMaximize, {RestartPolicy::Kind::kConstant, 1, 1}).best, 3000);
}

TEST_F(Optimisation, AnObjectiveThatStaysUnknownHasNoBest) {
  Enum({1, 2, 3});
  const auto z = Enum({});
  const SearchResult result = Run(z, Objective::Sense::kMinimize);
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.best, std::nullopt);
  EXPECT_EQ(result.statistics.unknowns, 3u);
}

TEST_F(Optimisation, GoesToTheEndsOfTheIntegers) {
  constexpr std::int32_t kMost = SubIntBase::kMax - 1;
  const auto x = Interval(-kMost, kMost);
  EXPECT_EQ(Run(x, Objective::Sense::kMinimize).best, -kMost);
  const auto y = Enum({-kMost, 0, kMost});
  const SearchResult result = Run(y, Objective::Sense::kMaximize);
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.best, kMost);
  EXPECT_EQ(objectives_, (Values{-kMost, 0, kMost}));
}

// The values of the first two variables do not matter to the objective: once its greatest value is
// found, none of them is tried again.
TEST_F(Optimisation, GoesBackToWhereTheObjectiveCanStillBeBetter) {
  const auto first = Enum({1, 2, 3});
  const auto second = Enum({1, 2, 3});
  const auto objective = Enum({5, 6});
  SearchOptions options;
  options.objective = Objective{objective, Objective::Sense::kMaximize};
  options.strategy = {
      {{first, second, objective}, VariableChoice::kInputOrder, ValueChoice::kSmallest}};
  const SearchResult result =
      TreeSearch(network_, options).Run([](const SearchLeaf&) { return true; });
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.best, 6);
  EXPECT_EQ(result.statistics.solutions, 2u);
  EXPECT_EQ(result.statistics.nodes, 4u);
  EXPECT_EQ(result.statistics.failures, 0u);
}

TEST_F(Optimisation, TellsTheBestWithProgress) {
  Values values;
  for (std::int32_t value = 1; value <= 200; ++value) values.push_back(value);
  const auto x = Enum(values);
  SearchOptions options;
  options.objective = Objective{x, Objective::Sense::kMaximize};
  options.progress_interval = 10;
  options.strategy = {{{x}, VariableChoice::kInputOrder, ValueChoice::kSmallest}};
  std::vector<std::int32_t> bests;
  options.on_progress = [&](const SearchProgress& progress) {
    bests.push_back(progress.best.value_or(0));
  };
  TreeSearch(network_, options).Run([](const SearchLeaf&) { return true; });
  ASSERT_GT(bests.size(), 10u);
  EXPECT_TRUE(std::ranges::is_sorted(bests));
  EXPECT_GT(bests.back(), 150);
}

}  // namespace
}  // namespace kiv::test
