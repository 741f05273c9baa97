// In the steady state of a search nothing is allocated from the heap.

#include <gtest/gtest.h>

#include "tests/support/counted_memory.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

TEST(SteadyState, DescendingAndBacktrackingAgainAllocatesNothing) {
  const auto* kind = OpenModules().FindKind("enum int");
  KivOmbNetwork network;
  std::vector<KivOmbNetwork::VariableId> chain;
  Values values;
  for (int value = 0; value < 40; ++value) values.push_back(2 * value);
  for (int i = 0; i < 8; ++i) chain.push_back(Declare(network, {kind, values}));
  const auto* sum = OpenModules().operators.Resolve("+", {kind, kind});
  const auto* less = OpenModules().operators.Resolve("<", {kind, kind});
  for (std::size_t i = 0; i + 2 < chain.size(); ++i) {
    network.Post(*sum, chain[i], chain[i + 1], chain[i + 2]);
    network.Post(*less, chain[i], chain[i + 1], KivOmbNetwork::kNone);
  }
  ASSERT_EQ(network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);

  const auto descend = [&] {
    std::size_t depth = 0;
    for (const auto variable : chain) {
      network.PushLevel();
      ++depth;
      network.Update(variable, [](KivOmbiAny& domain) {
        auto& integer = static_cast<KivOmbiInteger&>(domain);
        integer.RemoveExactValue(integer.GetUpperBound());
      });
      if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) break;
    }
    for (; depth > 0; --depth) network.PopLevel();
    return depth;
  };
  for (int warm_up = 0; warm_up < 3; ++warm_up) descend();
  const std::size_t before = CountAllocations();
  for (int round = 0; round < 100; ++round) descend();
  EXPECT_EQ(CountAllocations(), before);
  EXPECT_GT(network.GetStatistics().saves, 100u);
}

}  // namespace
}  // namespace kiv::test
