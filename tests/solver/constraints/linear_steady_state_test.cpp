// Linear constraints allocate nothing from the heap once a search is under way.

#include <gtest/gtest.h>

#include "solver/constraints/linear_posting.h"
#include "tests/support/counted_memory.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

TEST(LinearSteadyState, RunsAllocateNothing) {
  const auto* kind = OpenModules().FindKind("enum int");
  KivOmbNetwork network;
  std::vector<LinearTerm> terms;
  Values values;
  for (int value = 0; value < 40; ++value) values.push_back(3 * value);
  for (int i = 0; i < 8; ++i) terms.push_back({i + 1, Declare(network, {kind, values})});
  const auto truth = Declare(network, {OpenModules().FindKind("bool"), {0, 1}});
  PostLinear(network, terms, LinearRelation::kEqual, 1200);
  PostLinear(network, terms, LinearRelation::kUnequal, 1200, LinearTruth{truth});
  PostLinear(network, terms, LinearRelation::kUnequal, 1000);
  PostLinear(network, terms, LinearRelation::kLessOrEqual, 1300);
  PostLinear(network, std::span(terms).first(3), LinearRelation::kEqual, 240);
  ASSERT_EQ(network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);

  const auto descend = [&] {
    for (const LinearTerm& term : terms) {
      network.PushLevel();
      network.Update(term.variable, [](KivOmbiAny& domain) {
        auto& integer = static_cast<KivOmbiInteger&>(domain);
        integer.RemoveExactValue(integer.GetUpperBound());
      });
      if (network.Propagate() != KivOmbNetwork::Outcome::kFixpoint) break;
    }
    while (network.GetLevel() > 0) network.PopLevel();
  };
  for (int warm_up = 0; warm_up < 3; ++warm_up) descend();
  const std::size_t before = CountAllocations();
  const auto runs = network.GetStatistics().runs;
  for (int round = 0; round < 100; ++round) descend();
  EXPECT_EQ(CountAllocations(), before);
  EXPECT_GT(network.GetStatistics().runs, runs + 100);
}

}  // namespace
}  // namespace kiv::test
