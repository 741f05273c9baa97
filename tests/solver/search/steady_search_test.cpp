// A search whose network has warmed up allocates nothing from the heap while it does not restart,
// once its path has been as long as it gets.

#include <optional>

#include "solver/search/tree_search.h"
#include "tests/solver/search/random_model.h"
#include "tests/solver/search/searched_network.h"
#include "tests/support/counted_memory.h"

namespace kiv::test {
namespace {

class SteadySearch : public SearchedNetwork {};

TEST_F(SteadySearch, AllocatesNothing) {
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
  for (const VariableChoice variable_choice : kVariableChoices) {
    for (const ValueChoice value_choice : kValueChoices) {
      SearchOptions options;
      options.strategy = {{enums, variable_choice, value_choice}};
      options.limits.nodes = 20000;
      options.progress_interval = 10000;
      std::optional<std::size_t> warm;
      std::optional<std::size_t> later;
      options.on_progress = [&](const SearchProgress&) {
        (warm ? later : warm) = CountAllocations();
      };
      // The first run brings the network's memory to what the second needs.
      for (int run = 0; run < 2; ++run) {
        warm.reset();
        TreeSearch(network_, options).Run([](const SearchLeaf&) { return true; });
      }
      ASSERT_TRUE(warm && later);
      EXPECT_EQ(*warm, *later) << "variable choice " << static_cast<int>(variable_choice)
                               << ", value choice " << static_cast<int>(value_choice);
    }
  }
}

}  // namespace
}  // namespace kiv::test
