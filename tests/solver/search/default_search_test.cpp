// The default search on models that are known from books.

#include "solver/search/default_search.h"

#include "solver/constraints/all_different.h"
#include "solver/search/tree_search.h"
#include "tests/solver/search/searched_network.h"

namespace kiv::test {
namespace {

class DefaultSearchTest : public SearchedNetwork {
 protected:
  static Values Range(std::int32_t lower, std::int32_t upper) {
    Values values;
    for (std::int32_t value = lower; value <= upper; ++value) values.push_back(value);
    return values;
  }
  void PostSum(VariableId x, VariableId y, VariableId sum) {
    const auto* row = OpenModulesAndForeign().operators.Resolve(
        "+", {&network_.GetKind(x), &network_.GetKind(y)});
    network_.Post(*row, x, y, sum);
  }
  SearchResult Run(const SearchOptions& options) {
    return TreeSearch(network_, options).Run([](const SearchLeaf& leaf) { return leaf.complete; });
  }
};

TEST_F(DefaultSearchTest, CountsTheQueensOfSeven) {
  constexpr std::int32_t kSize = 7;
  std::vector<VariableId> rows;
  std::vector<VariableId> rising;
  std::vector<VariableId> falling;
  for (std::int32_t i = 0; i < kSize; ++i) rows.push_back(Enum(Range(0, kSize - 1)));
  for (std::int32_t i = 0; i < kSize; ++i) {
    rising.push_back(Enum(Range(0, 2 * kSize)));
    falling.push_back(Enum(Range(-kSize, kSize)));
    const VariableId row = rows[static_cast<std::size_t>(i)];
    PostSum(row, Enum({i}), rising.back());
    PostSum(row, Enum({-i}), falling.back());
  }
  for (const auto& different : {rows, rising, falling}) network_.Emplace<AllDifferent>(different);
  const SearchResult result = Run(DefaultSearch(rows));
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.solutions, 40u);
}

// Marks on a ruler whose distances all differ; the shortest ruler with six marks is 17 long.
TEST_F(DefaultSearchTest, FindsTheShortestGolombRulerOfSixMarks) {
  constexpr std::int32_t kMost = 40;
  std::vector<VariableId> marks = {Enum({0})};
  std::vector<VariableId> distances;
  for (int i = 1; i < 6; ++i) {
    marks.push_back(Enum(Range(0, kMost)));
    for (std::size_t j = 0; j + 1 < marks.size(); ++j) {
      distances.push_back(Enum(Range(1, kMost)));
      PostSum(marks[j], distances.back(), marks.back());
    }
  }
  network_.Emplace<AllDifferent>(distances);
  const SearchResult result =
      Run(DefaultSearch(marks, Objective{marks.back(), Objective::Sense::kMinimize}));
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.best, 17);
  EXPECT_GT(result.statistics.restarts, 0u);
}

TEST_F(DefaultSearchTest, ProvesThatNothingIsThere) {
  std::vector<VariableId> pigeons;
  for (int i = 0; i < 7; ++i) pigeons.push_back(Enum(Range(1, 6)));
  network_.Emplace<AllDifferent>(pigeons);
  const SearchResult result = Run(DefaultSearch(pigeons));
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.solutions, 0u);
}

}  // namespace
}  // namespace kiv::test
