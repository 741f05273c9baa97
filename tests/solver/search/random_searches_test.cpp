// Searches of every sort over random networks, against brute force. KIV_SEED=<n> replays one
// network.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "solver/search/tree_search.h"
#include "tests/solver/search/random_model.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// Fewer where checks make each of them dear.
#ifdef NDEBUG
constexpr std::uint64_t kModels = 120;
#else
constexpr std::uint64_t kModels = 12;
#endif

// Whether so many models are tried that some must fail, restart and improve.
bool ProvesMuch() { return kModels >= 100 && std::getenv("KIV_SEED") == nullptr; }

void ForEachModel(const std::function<void(const RandomModel&, std::uint64_t seed)>& check) {
  const std::uint64_t first = Seed(1);
  const std::uint64_t models = std::getenv("KIV_SEED") != nullptr ? 1 : kModels;
  for (std::uint64_t seed = first; seed < first + models; ++seed) {
    const RandomModel model(seed);
    SCOPED_TRACE(Replay(seed) + ": " + Print(model.variables));
    check(model, seed);
    ASSERT_FALSE(testing::Test::HasFailure());
  }
}

// Some of the variables, the last first, so that others are left to the search.
std::vector<VariableId> SomeDecisions(const RandomModel& model) {
  std::vector<VariableId> decisions;
  for (std::size_t i = model.variables.size(); i > 1; --i) {
    decisions.push_back(static_cast<VariableId>(i - 1));
  }
  return decisions;
}

TEST(RandomSearches, FindEverySolutionOnceWhateverTheStrategy) {
  std::uint64_t restarts = 0;
  std::uint64_t nogoods = 0;
  std::size_t solutions = 0;
  ForEachModel([&](const RandomModel& model, std::uint64_t) {
    const auto expected = model.Solve();
    solutions += expected.size();
    ForEachSearch(SomeDecisions(model), [&](SearchOptions options) {
      // What a search learns from many solutions would take most of the time.
      options.restarts.on_solution = expected.size() < 30;
      KivOmbNetwork network;
      model.Build(network);
      std::vector<Assignment> found;
      const SearchResult result = TreeSearch(network, options).Run([&](const SearchLeaf& leaf) {
        EXPECT_TRUE(leaf.complete);
        found.push_back(ValuesNow(network));
        return true;
      });
      std::ranges::sort(found);
      ASSERT_EQ(found, expected);
      EXPECT_EQ(result.end, SearchEnd::kExhausted);
      EXPECT_EQ(result.statistics.solutions, expected.size());
      EXPECT_EQ(network.GetLevel(), 0u);
      restarts += result.statistics.restarts;
      nogoods += result.statistics.nogoods;
    });
  });
  if (!ProvesMuch()) return;
  EXPECT_GT(solutions, 10 * kModels);
  EXPECT_GT(restarts, 10 * kModels);
  EXPECT_GT(nogoods, restarts);
}

TEST(RandomSearches, FindTheOptimumWhateverTheStrategy) {
  std::size_t improved = 0;
  ForEachModel([&](const RandomModel& model, std::uint64_t seed) {
    const auto solutions = model.Solve();
    const auto variable = static_cast<VariableId>(seed % model.variables.size());
    const auto sense = seed % 2 == 0 ? Objective::Sense::kMinimize : Objective::Sense::kMaximize;
    const bool minimize = sense == Objective::Sense::kMinimize;
    std::optional<std::int64_t> optimum;
    for (const Assignment& solution : solutions) {
      const std::int64_t value = solution[variable];
      if (!optimum || (minimize ? value < *optimum : value > *optimum)) optimum = value;
    }
    ForEachSearch(SomeDecisions(model), [&](SearchOptions options) {
      options.objective = Objective{variable, sense};
      options.restarts.on_solution = seed % 3 == 0;
      KivOmbNetwork network;
      model.Build(network);
      std::vector<std::int64_t> objectives;
      const SearchResult result = TreeSearch(network, options).Run([&](const SearchLeaf& leaf) {
        EXPECT_TRUE(leaf.complete);
        EXPECT_TRUE(std::ranges::binary_search(solutions, ValuesNow(network)));
        objectives.push_back(network.GetSummary(variable).lower);
        return true;
      });
      EXPECT_EQ(result.end, SearchEnd::kExhausted);
      ASSERT_EQ(result.best, optimum);
      for (std::size_t i = 1; i < objectives.size(); ++i) {
        EXPECT_TRUE(minimize ? objectives[i] < objectives[i - 1]
                             : objectives[i] > objectives[i - 1]);
        ++improved;
      }
      EXPECT_EQ(network.GetLevel(), 0u);
    });
  });
  if (ProvesMuch()) {
    EXPECT_GT(improved, 10 * kModels);
  }
}

// The first half of the variables, the last of them first: the others are only to be completed.
std::vector<VariableId> HalfOfTheVariables(const RandomModel& model) {
  std::vector<VariableId> half;
  for (std::size_t i = model.variables.size() / 2; i > 0; --i) {
    half.push_back(static_cast<VariableId>(i - 1));
  }
  return half;
}

TEST(RandomSearches, CompleteEachAssignmentOfTheNamedVariablesOnce) {
  std::size_t solutions = 0;
  std::size_t completed = 0;
  ForEachModel([&](const RandomModel& model, std::uint64_t) {
    const auto all = model.Solve();
    const std::vector<VariableId> named = HalfOfTheVariables(model);
    const auto part_of = [&](const Assignment& assignment) {
      return Assignment(assignment.begin(),
                        assignment.begin() + static_cast<std::ptrdiff_t>(named.size()));
    };
    std::set<Assignment> expected;
    for (const Assignment& solution : all) expected.insert(part_of(solution));
    solutions += all.size();
    completed += expected.size();
    ForEachSearch(named, [&](SearchOptions options) {
      options.complete_once = true;
      options.restarts.on_solution = expected.size() < 30;
      KivOmbNetwork network;
      model.Build(network);
      std::set<Assignment> found;
      const SearchResult result = TreeSearch(network, options).Run([&](const SearchLeaf& leaf) {
        EXPECT_TRUE(leaf.complete);
        const Assignment solution = ValuesNow(network);
        EXPECT_TRUE(std::ranges::binary_search(all, solution));
        EXPECT_TRUE(found.insert(part_of(solution)).second) << "completed twice";
        return true;
      });
      ASSERT_EQ(found, expected);
      EXPECT_EQ(result.end, SearchEnd::kExhausted);
      EXPECT_EQ(network.GetLevel(), 0u);
    });
  });
  if (!ProvesMuch()) return;
  EXPECT_GT(completed, 5 * kModels);
  EXPECT_GT(solutions, 2 * completed);
}

TEST(RandomSearches, FindTheOptimumThoughOneCompletionIsEnough) {
  ForEachModel([&](const RandomModel& model, std::uint64_t seed) {
    // One of the variables that are only to be completed is the objective.
    const auto variable = static_cast<VariableId>(model.variables.size() - 1);
    const auto sense = seed % 2 == 0 ? Objective::Sense::kMinimize : Objective::Sense::kMaximize;
    std::optional<std::int64_t> optimum;
    for (const Assignment& solution : model.Solve()) {
      const std::int64_t value = solution[variable];
      const bool is_better = !optimum || (seed % 2 == 0 ? value < *optimum : value > *optimum);
      if (is_better) optimum = value;
    }
    ForEachSearch(HalfOfTheVariables(model), [&](SearchOptions options) {
      options.complete_once = true;
      options.objective = Objective{variable, sense};
      KivOmbNetwork network;
      model.Build(network);
      const SearchResult result =
          TreeSearch(network, options).Run([](const SearchLeaf& leaf) { return leaf.complete; });
      EXPECT_EQ(result.end, SearchEnd::kExhausted);
      ASSERT_EQ(result.best, optimum);
    });
  });
}

TEST(RandomSearches, TheSameSeedGivesTheSameRun) {
  ForEachModel([&](const RandomModel& model, std::uint64_t seed) {
    if (seed % 4 != 0) return;
    const auto run = [&](std::uint64_t search_seed, SearchStatistics& statistics) {
      KivOmbNetwork network;
      model.Build(network);
      SearchOptions options;
      options.strategy = {{SomeDecisions(model), VariableChoice::kActivity, ValueChoice::kRandom}};
      options.restarts = {RestartPolicy::Kind::kLuby, 1, 1};
      options.seed = search_seed;
      std::vector<Assignment> found;
      statistics = TreeSearch(network, options)
                       .Run([&](const SearchLeaf&) {
                         found.push_back(ValuesNow(network));
                         return true;
                       })
                       .statistics;
      return found;
    };
    SearchStatistics first;
    SearchStatistics second;
    EXPECT_EQ(run(seed, first), run(seed, second));
    EXPECT_EQ(first.nodes, second.nodes);
    EXPECT_EQ(first.failures, second.failures);
    EXPECT_EQ(first.propagations, second.propagations);
    // Another seed finds the same solutions, in another order as a rule.
    auto sorted = run(seed, first);
    auto others = run(seed + 1, second);
    std::ranges::sort(sorted);
    std::ranges::sort(others);
    EXPECT_EQ(sorted, others);
  });
}

}  // namespace
}  // namespace kiv::test
