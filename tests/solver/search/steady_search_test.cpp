// A search whose network has warmed up allocates nothing from the heap while it does not restart,
// once its path has been as long as it gets.

#include <optional>

#include "solver/search/tree_search.h"
#include "tests/solver/search/random_model.h"
#include "tests/solver/search/searched_network.h"
#include "tests/support/counted_memory.h"

namespace kiv::test {
namespace {

constexpr std::uint64_t kNodes = 10000;

class SteadySearch : public SearchedNetwork {};

TEST_F(SteadySearch, AllocatesNothing) {
#ifndef NDEBUG
  GTEST_SKIP() << "the checks of what constraints claim allocate";
#endif
  // More variables that all differ than values: no solution.
  std::vector<VariableId> enums;
  for (int i = 0; i < 9; ++i) enums.push_back(Enum({1, 2, 3, 5, 6, 8, 9, 12}));
  const auto* unequal =
      OpenModulesAndForeign().operators.Resolve("<>", {&network_.GetKind(0), &network_.GetKind(0)});
  for (std::size_t i = 0; i < enums.size(); ++i) {
    for (std::size_t j = i + 1; j < enums.size(); ++j) {
      network_.Post(*unequal, enums[i], enums[j], KivOmbNetwork::kNone);
    }
  }
  int steady = 0;
  for (const VariableChoice variable_choice : kVariableChoices) {
    for (const ValueChoice value_choice : kValueChoices) {
      SCOPED_TRACE(testing::Message() << "variable choice " << static_cast<int>(variable_choice)
                                      << ", value choice " << static_cast<int>(value_choice));
      SearchOptions options;
      options.strategy = {{enums, variable_choice, value_choice}};
      options.limits.nodes = kNodes;
      const auto run = [&] {
        return TreeSearch(network_, options).Run([](const SearchLeaf&) { return true; });
      };
      // The first run brings the network's memory to what the second needs, and tells how long the
      // path gets; its room is made anew for each run.
      const std::size_t peak = run().statistics.peak_depth;
      std::optional<std::size_t> warm;
      std::size_t later = 0;
      options.progress_interval = 100;
      options.on_progress = [&](const SearchProgress& progress) {
        later = CountAllocations();
        if (warm || progress.statistics.peak_depth < peak) return;
        warm = later;
        steady += progress.statistics.nodes < kNodes / 2;
      };
      run();
      ASSERT_TRUE(warm);
      EXPECT_EQ(*warm, later);
    }
  }
  EXPECT_GT(steady, 10);  // or most of the searches were on the way to their peak
}

}  // namespace
}  // namespace kiv::test
