#include "solver/search/tree_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <set>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/all_different.h"
#include "solver/constraints/linear_posting.h"
#include "solver/search/bisection_search.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// Holds for no values, but lets every run pass as if it held for all.
class Deceiver final : public KivOmbiConstraint {
 public:
  Deceiver() : KivOmbiConstraint(&sDescriptor) {}

  std::int64_t Filter(const KivOmbiObjectEnvironment&, std::int64_t) override {
    return kKivAtFixpoint;
  }
  bool Holds(std::span<const std::int64_t>) const override { return false; }

 private:
  static const KivOmbiConstraintDescriptor sDescriptor;
};
const KivOmbiConstraintDescriptor Deceiver::sDescriptor("Deceiver", 1, 0, true);

class Search : public testing::Test {
 protected:
  VariableId Add(const char* kind, const Values& values) {
    return Declare(network_, {OpenModules().FindKind(kind), values});
  }
  VariableId Enum(const Values& values) { return Add("enum int", values); }
  void PostAllDifferent(const std::vector<VariableId>& variables) {
    network_.Emplace<AllDifferent>(variables);
  }

  // Runs a search and notes the values at each leaf, in the order of the variables' numbers.
  SearchResult Run(std::vector<VariableId> decisions) {
    leaves_.clear();
    complete_.clear();
    return BisectionSearch(network_, std::move(decisions)).Run([&](const SearchLeaf& leaf) {
      complete_.push_back(leaf.complete);
      Assignment& values = leaves_.emplace_back();
      for (VariableId id = 0; id < network_.CountVariables(); ++id) {
        values.push_back(network_.GetSummary(id).lower);
      }
      return ++seen_ != stop_after_;
    });
  }

  KivOmbNetwork network_;
  std::vector<Assignment> leaves_;
  std::vector<bool> complete_;
  std::size_t seen_ = 0;
  std::size_t stop_after_ = 0;  // leaves; 0 for none
};

TEST_F(Search, FindsEverySolutionOnce) {
  std::vector<VariableId> variables;
  for (int i = 0; i < 5; ++i) variables.push_back(Enum({1, 2, 3, 4, 5}));
  PostAllDifferent(variables);
  const SearchResult result = Run(variables);
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.solutions, 120u);
  EXPECT_EQ(result.statistics.unknowns, 0u);
  EXPECT_FALSE(result.culprit);
  EXPECT_EQ(std::set(leaves_.begin(), leaves_.end()).size(), 120u);
  EXPECT_EQ(leaves_.size(), 120u);
  for (const Assignment& leaf : leaves_) {
    EXPECT_EQ(std::set(leaf.begin(), leaf.end()).size(), 5u);
  }
  EXPECT_EQ(std::ranges::count(complete_, true), 120);
}

TEST_F(Search, SplitsEveryKindAndGoesThroughItsValuesInAscendingOrder) {
  for (const char* kind : {"enum int", "interval int"}) {
    SCOPED_TRACE(kind);
    KivOmbNetwork network;
    const auto x = Declare(network, {OpenModules().FindKind(kind), {-3, -2, -1, 0, 1, 2, 3}});
    Values found;
    BisectionSearch(network, {x}).Run([&](const SearchLeaf&) {
      found.push_back(network.GetSummary(x).lower);
      return true;
    });
    EXPECT_EQ(found, (Values{-3, -2, -1, 0, 1, 2, 3}));
  }
  Add("bool", {0, 1});
  Run({0});
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{0}, {1}}));
}

TEST_F(Search, SplitsAnIntervalOverAllIntegers) {
  constexpr std::int32_t kMost = 2147483646;
  const auto x = Add("interval int", {-kMost, kMost});
  const auto z = Add("enum int", {-2 * (kMost / 2), 14, 2 * (kMost / 2)});
  const LinearTerm terms[] = {{2, x}, {-1, z}};
  PostLinear(network_, terms, LinearRelation::kEqual, 0);
  EXPECT_EQ(Run({x}).statistics.solutions, 3u);
  EXPECT_EQ(leaves_, (std::vector<Assignment>{
                         {-(kMost / 2), -2 * (kMost / 2)}, {7, 14}, {kMost / 2, 2 * (kMost / 2)}}));
}

TEST_F(Search, SplitsDecisionsBeforeOtherVariables) {
  Enum({1, 2});
  const auto y = Enum({1, 2, 3});
  Run({y});
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{1, 1}, {2, 1}, {1, 2}, {2, 2}, {1, 3}, {2, 3}}));
}

TEST_F(Search, SplitsTheFewestValuesFirst) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({1, 2});
  Run({x, y});
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{1, 1}, {2, 1}, {3, 1}, {1, 2}, {2, 2}, {3, 2}}));
}

TEST_F(Search, SplitsTheFirstOfEqualsFirst) {
  const auto x = Enum({1, 2});
  const auto y = Enum({1, 2});
  Run({x, y});
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{1, 1}, {1, 2}, {2, 1}, {2, 2}}));
  Run({y, x});
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{1, 1}, {2, 1}, {1, 2}, {2, 2}}));
}

TEST_F(Search, SplitsTheFirstOfEqualsWithMoreValuesFirst) {
  Enum({1, 2, 3});
  Enum({1, 2, 3});
  Run({0, 1});
  // The first is split in { 1, 2 } and 3, then again, before the second is.
  EXPECT_EQ(leaves_, (std::vector<Assignment>{
                         {1, 1}, {1, 2}, {1, 3}, {2, 1}, {2, 2}, {2, 3}, {3, 1}, {3, 2}, {3, 3}}));
}

// A variable that is fixed at a node may be open again at the next.
TEST_F(Search, ComesBackToVariablesThatWereFixedElsewhere) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({1, 2, 3});
  const auto z = Enum({1, 2, 3});
  PostAllDifferent({x, y});
  const SearchResult result = Run({x, y, z});
  EXPECT_EQ(result.statistics.solutions, 18u);
  EXPECT_EQ(std::set(leaves_.begin(), leaves_.end()).size(), 18u);
}

TEST_F(Search, ADecisionMayBeNamedTwice) {
  const auto x = Enum({1, 2});
  EXPECT_EQ(Run({x, x}).statistics.solutions, 2u);
}

TEST_F(Search, CountsNodesAndFailures) {
  Enum({1, 2, 3});
  SearchResult result = Run({0});
  EXPECT_EQ(result.statistics.nodes, 4u);  // { 1, 2 }, 1, 2, 3
  EXPECT_EQ(result.statistics.failures, 0u);
  EXPECT_EQ(result.statistics.solutions, 3u);
}

TEST_F(Search, CountsAFailureForEachContradiction) {
  PostAllDifferent({Enum({1, 2}), Enum({1, 2}), Enum({1, 2})});
  const SearchResult result = Run({0, 1, 2});
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.nodes, 2u);
  EXPECT_EQ(result.statistics.failures, 2u);
  EXPECT_EQ(result.statistics.solutions, 0u);
  EXPECT_TRUE(leaves_.empty());
}

TEST_F(Search, AContradictionAtTheRootIsOneFailure) {
  PostAllDifferent({Enum({1}), Enum({1})});
  const SearchResult result = Run({0, 1});
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.nodes, 0u);
  EXPECT_EQ(result.statistics.failures, 1u);
  EXPECT_EQ(result.statistics.solutions, 0u);
}

TEST_F(Search, WithoutVariablesHasTheOneEmptySolution) {
  const SearchResult result = Run({});
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.solutions, 1u);
  EXPECT_EQ(result.statistics.nodes, 0u);
  EXPECT_EQ(leaves_, std::vector<Assignment>{{}});
  EXPECT_EQ(complete_, std::vector<bool>{true});
}

TEST_F(Search, LeavesTheNetworkAtItsLevel) {
  const auto x = Enum({1, 2, 3, 4});
  const auto y = Enum({1, 2, 3, 4});
  PostAllDifferent({x, y});
  network_.Propagate();
  network_.PushLevel();
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).RemoveExactValue(1); });
  for (const std::size_t stop_after : {0u, 1u, 4u}) {
    seen_ = 0;
    stop_after_ = stop_after;
    const SearchResult result = Run({x, y});
    EXPECT_EQ(result.end, stop_after == 0 ? SearchEnd::kExhausted : SearchEnd::kStopped);
    EXPECT_EQ(network_.GetLevel(), 1u);
    EXPECT_EQ(ValuesOf(network_, x), (Values{2, 3, 4}));
    EXPECT_EQ(ValuesOf(network_, y), (Values{1, 2, 3, 4}));
    EXPECT_EQ(result.statistics.solutions, stop_after == 0 ? 9u : stop_after);
  }
  network_.PopLevel();
  seen_ = stop_after_ = 0;
  EXPECT_EQ(Run({x, y}).statistics.solutions, 12u);
}

TEST_F(Search, TheStopFlagEndsItWithinANode) {
  const auto x = Enum({1, 2, 3, 4});
  const auto y = Enum({1, 2, 3, 4});
  PostAllDifferent({x, y});
  std::atomic<bool> stop = false;
  network_.SetStopFlag(&stop);
  const SearchResult result = BisectionSearch(network_, {x, y}).Run([&](const SearchLeaf&) {
    stop = true;
    return true;
  });
  EXPECT_EQ(result.end, SearchEnd::kStopped);
  EXPECT_GE(result.statistics.solutions, 1u);
  EXPECT_LT(result.statistics.solutions, 12u);
  EXPECT_EQ(network_.GetLevel(), 0u);
  stop = false;
  EXPECT_EQ(Run({x, y}).statistics.solutions, 12u);
}

TEST_F(Search, TheStopFlagEndsItWhereNothingPropagates) {
  for (int i = 0; i < 200; ++i) Add("bool", {0, 1});
  std::atomic<bool> stop = false;
  network_.SetStopFlag(&stop);
  const SearchResult result = BisectionSearch(network_, {}).Run([&](const SearchLeaf&) {
    stop = true;
    return ++seen_ < 1000;
  });
  EXPECT_EQ(result.end, SearchEnd::kStopped);
  EXPECT_EQ(result.statistics.solutions, 1u);
}

TEST_F(Search, AStopBeforeTheStartLeavesNothingHalfDone) {
  PostAllDifferent({Enum({1, 2}), Enum({1})});
  std::atomic<bool> stop = true;
  network_.SetStopFlag(&stop);
  const SearchResult stopped = Run({0});
  EXPECT_EQ(stopped.end, SearchEnd::kStopped);
  EXPECT_EQ(stopped.statistics.nodes + stopped.statistics.solutions + stopped.statistics.failures +
                stopped.statistics.unknowns,
            0u);
  stop = false;
  EXPECT_EQ(Run({0}).statistics.solutions, 1u);
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{2, 1}}));
}

TEST_F(Search, AnUnknownVariableMakesNoSolution) {
  Enum({1, 2});
  Enum({});
  const SearchResult result = Run({1, 0});
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  EXPECT_EQ(result.statistics.solutions, 0u);
  EXPECT_EQ(result.statistics.unknowns, 2u);
  EXPECT_EQ(complete_, (std::vector<bool>{false, false}));
}

TEST_F(Search, AVariableWithoutAnUpperBoundIsUnknown) {
  const auto x = Add("interval int", {5, SubIntBase::kMax});
  EXPECT_EQ(Run({x}).statistics.unknowns, 1u);
  const auto y = Add("interval int", {SubIntBase::kMin, 5});
  const SearchResult result = Run({x, y});
  EXPECT_EQ(result.statistics.solutions, 0u);
  EXPECT_EQ(result.statistics.unknowns, 1u);
}

// The unknown is looked for behind all variables that are fixed.
TEST_F(Search, AVariableThatBecomesKnownBelowIsSplitThere) {
  const auto z = Enum({});
  const auto x = Add("interval int", {1, 2000});
  const LinearTerm terms[] = {{3, x}, {-1, z}};
  PostLinear(network_, terms, LinearRelation::kEqual, 0);
  const SearchResult result = Run({z, x});
  EXPECT_EQ(result.statistics.solutions, 2000u);
  EXPECT_EQ(result.statistics.unknowns, 0u);
}

TEST_F(Search, AnOverflowNamesItsConstraint) {
  const auto x = Enum({1, 2147483});
  const auto z = Enum({});
  PostAllDifferent({x});
  const LinearTerm terms[] = {{1000000, x}, {-1, z}};
  const auto product = PostLinear(network_, terms, LinearRelation::kEqual, 0);
  const SearchResult result = Run({x});
  EXPECT_EQ(result.end, SearchEnd::kOverflow);
  EXPECT_EQ(result.culprit, product);
  EXPECT_EQ(result.statistics.solutions, 1u);
  EXPECT_EQ(leaves_, (std::vector<Assignment>{{1, 1000000}}));
  EXPECT_EQ(network_.GetLevel(), 0u);
  EXPECT_EQ(network_.GetSummary(x).cardinality, 2u);
}

TEST_F(Search, AWrongSolutionIsAnErrorThatNamesItsConstraint) {
  const auto x = Enum({1, 2});
  const auto y = Enum({1, 2});
  PostAllDifferent({x, y});
  const auto deceiver = network_.Emplace<Deceiver>(std::span(&y, 1));
  const SearchResult result = Run({x, y});
  EXPECT_EQ(result.end, SearchEnd::kViolated);
  EXPECT_EQ(result.culprit, deceiver);
  EXPECT_EQ(result.statistics.solutions, 0u);
  EXPECT_TRUE(leaves_.empty());
  EXPECT_EQ(network_.GetLevel(), 0u);
}

TEST_F(Search, ALeafWithAnUnknownIsJudgedByTheGroundTruthToo) {
  Enum({});
  const auto y = Enum({1});
  const auto deceiver = network_.Emplace<Deceiver>(std::span(&y, 1));
  const SearchResult result = Run({y});
  EXPECT_EQ(result.end, SearchEnd::kViolated);
  EXPECT_EQ(result.culprit, deceiver);
  EXPECT_EQ(result.statistics.unknowns, 0u);
}

// Each node looks at open variables only until one has the fewest values possible: to look at all
// of them at every node would take minutes here.
TEST_F(Search, GoesAsDeepAsThereAreVariables) {
  constexpr std::size_t kVariables = 200000;
  std::vector<VariableId> variables;
  for (std::size_t i = 0; i < kVariables; ++i) variables.push_back(Add("bool", {0, 1}));
  stop_after_ = 1;
  const SearchResult result = Run(variables);
  EXPECT_EQ(result.end, SearchEnd::kStopped);
  EXPECT_EQ(result.statistics.solutions, 1u);
  EXPECT_EQ(result.statistics.nodes, kVariables);
  EXPECT_EQ(leaves_, std::vector<Assignment>{Assignment(kVariables, 0)});
  EXPECT_EQ(network_.GetLevel(), 0u);
  EXPECT_EQ(network_.GetSummary(variables.back()).cardinality, 2u);
}

}  // namespace
}  // namespace kiv::test
