#include "solver/search/search_limits.h"

#include <set>

#include "solver/constraints/all_different.h"
#include "solver/search/bisection_search.h"
#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

class SearchLimitsTest : public SearchedNetwork {
 protected:
  // As many values less one as variables: no solution, but many nodes.
  void BuildPigeonHoles(std::int32_t holes) {
    Values values;
    for (std::int32_t value = 1; value <= holes; ++value) values.push_back(value);
    for (std::int32_t i = 0; i <= holes; ++i) pigeons_.push_back(Enum(values));
    network_.Emplace<AllDifferent>(pigeons_);
  }
  SearchResult Run(const SearchLimits& limits, RestartPolicy restarts = {}) {
    SearchOptions options;
    options.strategy = {{pigeons_, VariableChoice::kInputOrder, ValueChoice::kSmallest}};
    options.limits = limits;
    options.restarts = restarts;
    return TreeSearch(network_, options).Run([](const SearchLeaf&) { return true; });
  }
  std::vector<VariableId> pigeons_;
};

TEST_F(SearchLimitsTest, OfNodesIsNeverExceeded) {
  BuildPigeonHoles(7);
  for (const std::uint64_t limit : {0u, 1u, 2u, 17u, 1000u}) {
    const SearchResult result = Run({.nodes = limit});
    EXPECT_EQ(result.end, SearchEnd::kNodeLimit);
    EXPECT_EQ(result.statistics.nodes, limit);
    EXPECT_EQ(network_.GetLevel(), 0u);
  }
}

TEST_F(SearchLimitsTest, OfFailuresStopsAtThatFailure) {
  BuildPigeonHoles(7);
  for (const std::uint64_t limit : {1u, 5u, 300u}) {
    for (const RestartPolicy& restarts :
         {RestartPolicy{}, RestartPolicy{RestartPolicy::Kind::kConstant, 10, 1}}) {
      const SearchResult result = Run({.failures = limit}, restarts);
      EXPECT_EQ(result.end, SearchEnd::kFailureLimit);
      EXPECT_GE(result.statistics.failures, limit);
      EXPECT_LE(result.statistics.failures, limit + 1);
    }
  }
}

TEST_F(SearchLimitsTest, OfSolutionsStopsAtThatSolution) {
  Enum({1, 2, 3});
  const SearchResult result = Run({.solutions = 2});
  EXPECT_EQ(result.end, SearchEnd::kSolutionLimit);
  EXPECT_EQ(result.statistics.solutions, 2u);
  EXPECT_EQ(Run({.solutions = 3}).end, SearchEnd::kExhausted);
}

TEST_F(SearchLimitsTest, OfTimeEndsAHopelessSearch) {
  BuildPigeonHoles(40);
  const SearchResult result = Run({.time = std::chrono::milliseconds(5)});
  EXPECT_EQ(result.end, SearchEnd::kTimeLimit);
  EXPECT_EQ(Run({.time = std::chrono::nanoseconds(0)}).statistics.nodes, 0u);
}

// Each of two strict orders moves a bound by one, two thousand million times.
TEST_F(SearchLimitsTest, OfTimeEndsAPropagationThatCreeps) {
  const auto* kind = OpenModules().FindKind("interval int");
  const auto x = network_.AddVariable(*kind);
  const auto y = network_.AddVariable(*kind);
  for (const VariableId variable : {x, y}) {
    network_.Update(variable, [](KivOmbiAny& domain) {
      static_cast<KivOmbiInteger&>(domain).SetLowerBound(0);
      static_cast<KivOmbiInteger&>(domain).SetUpperBound(2147483646);
    });
  }
  const auto* less = OpenModules().operators.Resolve("<", {kind, kind});
  network_.Post(*less, x, y, KivOmbNetwork::kNone);
  network_.Post(*less, y, x, KivOmbNetwork::kNone);
  EXPECT_EQ(Run({.time = std::chrono::milliseconds(5)}).end, SearchEnd::kTimeLimit);
  EXPECT_EQ(network_.GetLevel(), 0u);
}

TEST_F(SearchLimitsTest, CountForNothingWhereNothingIsLeft) {
  BuildPigeonHoles(1);
  const SearchResult result = Run({.nodes = 0, .failures = 0});
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.failures, 1u);
}

TEST_F(SearchLimitsTest, HoldThroughRestarts) {
  BuildPigeonHoles(7);
  const SearchResult result = Run({.nodes = 500}, {RestartPolicy::Kind::kConstant, 3, 1});
  EXPECT_EQ(result.end, SearchEnd::kNodeLimit);
  EXPECT_EQ(result.statistics.nodes, 500u);
  EXPECT_GT(result.statistics.restarts, 20u);
  EXPECT_GT(result.statistics.nogoods, 20u);
}

TEST_F(SearchLimitsTest, ProgressIsToldEverySoManyNodes) {
  BuildPigeonHoles(6);
  SearchOptions options;
  options.strategy = BisectionStrategy(pigeons_);
  options.progress_interval = 50;
  std::vector<std::uint64_t> nodes;
  std::set<std::uint64_t> propagations;
  options.on_progress = [&](const SearchProgress& progress) {
    nodes.push_back(progress.statistics.nodes);
    propagations.insert(progress.statistics.propagations);
    EXPECT_FALSE(progress.best);
  };
  const SearchResult result =
      TreeSearch(network_, options).Run([](const SearchLeaf&) { return true; });
  ASSERT_EQ(nodes.size(), result.statistics.nodes / 50);
  for (std::size_t i = 0; i < nodes.size(); ++i) EXPECT_EQ(nodes[i], 50 * (i + 1));
  EXPECT_EQ(propagations.size(), nodes.size());
  EXPECT_GE(result.statistics.propagations, *propagations.rbegin());
  EXPECT_GT(result.statistics.peak_depth, 3u);
  EXPECT_LT(result.statistics.peak_depth, 42u);
}

}  // namespace
}  // namespace kiv::test
