// In the steady state of a search, constraints over arrays allocate nothing from the heap.

#include <gtest/gtest.h>

#include "solver/constraints/clause.h"
#include "solver/constraints/cumulative.h"
#include "solver/constraints/element_of_constants.h"
#include "solver/constraints/element_of_variables.h"
#include "solver/constraints/extremum.h"
#include "solver/constraints/junction.h"
#include "solver/constraints/lexicographic_order.h"
#include "solver/constraints/membership.h"
#include "solver/constraints/parity.h"
#include "solver/constraints/table.h"
#include "tests/solver/constraints/random_case.h"
#include "tests/support/counted_memory.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

TEST(SteadyState, ConstraintsOverArraysAllocateNothing) {
#ifndef NDEBUG
  GTEST_SKIP() << "the checks of what constraints claim take memory of their own";
#endif
  KivOmbNetwork network;
  std::vector<VariableId> integers;
  for (int i = 0; i < 13; ++i) {
    integers.push_back(Declare(network, {Kind(kIntegerKinds[1 + i % 2]), Range(0, 12)}));
  }
  std::vector<VariableId> booleans;
  for (int i = 0; i < 9; ++i) booleans.push_back(Declare(network, {Kind("bool"), {0, 1}}));
  const std::span x(integers);
  const std::span t(booleans);

  Values cells;
  for (int i = 0; i < 13 * 13; ++i) cells.insert(cells.end(), {i / 13, i % 13, (i * i) % 13});
  network.Emplace<Table>(x.first(3), 3u, std::size_t{13 * 13}, cells);
  network.Emplace<ElementOfConstants>(x.subspan(2, 2), Range(-3, 15), -1);
  network.Emplace<ElementOfVariables>(x.subspan(1, 7), 0);
  network.Emplace<Extremum>(x.subspan(7, 6), Extremum::kGreatest);
  network.Emplace<LexicographicOrder>(x, 6u, LexicographicOrder::kExcluded);
  network.Emplace<Cumulative>(x, 4u);
  network.Emplace<Clause>(t, 5u);
  network.Emplace<Junction>(t.first(5), Junction::kAny);
  network.Emplace<Parity>(t, Parity::kOdd);
  const VariableId member[] = {x[7], t[2]};
  network.Emplace<ReifiedMembership>(member, Values{1, 4, 6});
  ASSERT_EQ(network.Propagate(), KivOmbNetwork::Outcome::kFixpoint);

  const auto descend = [&] {
    std::size_t failures = 0;
    for (VariableId id = 0; id < network.CountVariables(); ++id) {
      network.PushLevel();
      network.Update(id, [&](KivOmbiAny& domain) {
        auto& rest = static_cast<KivOmbiAny&>(network.Scratch(network.GetKind(id), 0));
        domain.Bisect(rest, id % 3 == 0 ? KivOmbiAny::kUpperHalf : KivOmbiAny::kLowerHalf);
      });
      if (network.Propagate() == KivOmbNetwork::Outcome::kFixpoint) continue;
      network.PopLevel();
      ++failures;
    }
    while (network.GetLevel() > 0) network.PopLevel();
    return failures;
  };
  for (int warm_up = 0; warm_up < 3; ++warm_up) descend();
  const std::size_t before = CountAllocations();
  const std::uint64_t runs_before = network.GetStatistics().runs;
  for (int round = 0; round < 50; ++round) EXPECT_LT(descend(), network.CountVariables());
  EXPECT_EQ(CountAllocations(), before);
  EXPECT_GT(network.GetStatistics().runs, runs_before + 50 * 10);
}

}  // namespace
}  // namespace kiv::test
