#include "solver/constraints/value_matching.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Graph = std::vector<std::vector<std::int64_t>>;  // the values of each term, ascending

std::vector<std::vector<std::int64_t>> AllMatchings(const Graph& graph) {
  std::vector<std::vector<std::int64_t>> matchings;
  std::vector<std::int64_t> chosen;
  const std::function<void()> choose = [&] {
    if (chosen.size() == graph.size()) {
      matchings.push_back(chosen);
      return;
    }
    for (const std::int64_t value : graph[chosen.size()]) {
      if (std::ranges::find(chosen, value) != chosen.end()) continue;
      chosen.push_back(value);
      choose();
      chosen.pop_back();
    }
  };
  choose();
  return matchings;
}

void Build(ValueMatching& matching, const Graph& graph) {
  matching.Start(static_cast<unsigned>(graph.size()));
  for (unsigned term = 0; term < graph.size(); ++term) {
    matching.AddTerm(term);
    for (const std::int64_t value : graph[term]) matching.AddValue(value);
  }
}

Graph RandomGraph(Generator& random) {
  Graph graph(static_cast<std::size_t>(Pick(random, 0, 6)));
  for (auto& values : graph) {
    for (std::int64_t value = -3; value < 5; ++value) {
      if (OneIn(random, 3)) values.push_back(value);
    }
  }
  return graph;
}

// One object for all graphs, so that each starts from what is left of another's matching.
TEST(ValueMatching, TellsTheEdgesOfMatchingsAsEnumerationDoes) {
  const std::uint64_t first = Seed(1);
  std::size_t with_matching = 0;
  ValueMatching matching;
  for (std::uint64_t seed = first; seed < first + Times(20000); ++seed) {
    Generator random(seed);
    const Graph graph = RandomGraph(random);
    const auto all = AllMatchings(graph);
    Build(matching, graph);
    ASSERT_EQ(matching.Match(), !all.empty()) << Replay(seed);
    if (all.empty()) continue;
    ++with_matching;
    matching.Classify();
    std::set<std::int64_t> always(all.front().begin(), all.front().end());
    for (const auto& values : all) {
      std::erase_if(always, [&](std::int64_t value) {
        return std::ranges::find(values, value) == values.end();
      });
    }
    ASSERT_TRUE(std::ranges::equal(matching.AlwaysTaken(), always)) << Replay(seed);
    for (unsigned term = 0; term < graph.size(); ++term) {
      ASSERT_EQ(matching.Edges(term).size(), graph[term].size());
      for (const auto& edge : matching.Edges(term)) {
        const bool possible = std::ranges::any_of(
            all, [&](const auto& values) { return values[term] == edge.value; });
        ASSERT_EQ(edge.possible, possible) << Replay(seed);
      }
    }
  }
  EXPECT_GT(with_matching, Times(20000) / 10);
}

// Each term takes the lower of its two values, until the last one wants the lowest, its only one:
// all have to move up, and then each leads to the next.
TEST(ValueMatching, LongChainsNeedNoDeepStack) {
  constexpr unsigned kTerms = 200000;
  ValueMatching matching;
  matching.Start(kTerms + 1);
  for (unsigned term = 0; term < kTerms; ++term) {
    matching.AddTerm(term);
    matching.AddValue(kTerms - 1 - term);
    matching.AddValue(kTerms - term);
  }
  matching.AddTerm(kTerms);
  matching.AddValue(0);
  ASSERT_TRUE(matching.Match());
  matching.Classify();
  EXPECT_EQ(matching.AlwaysTaken().size(), kTerms + 1u);
  for (unsigned term = 0; term < kTerms; ++term) {
    ASSERT_FALSE(matching.Edges(term)[0].possible);
    ASSERT_TRUE(matching.Edges(term)[1].possible);
  }
}

}  // namespace
}  // namespace kiv::test
