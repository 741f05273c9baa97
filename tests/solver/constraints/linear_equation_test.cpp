#include "solver/constraints/linear_equation.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <limits>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/linear_posting.h"
#include "solver/constraints/linear_support.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

const KivOmbiObjectDescriptor* Kind(const char* name) { return OpenModules().FindKind(name); }

class Equation : public testing::Test {
 protected:
  VariableId Enum(const Values& values) { return Declare(network_, {Kind("enum int"), values}); }
  VariableId Interval(std::int32_t lower, std::int32_t upper) {
    return Declare(network_, {Kind("interval int"), {lower, upper}});
  }
  VariableId Unknown(const char* kind) { return Declare(network_, {Kind(kind), {}}); }
  void PostEqual(std::vector<LinearTerm> terms, std::int64_t constant) {
    PostLinear(network_, terms, LinearRelation::kEqual, constant);
  }
  std::string Text(VariableId variable) const { return test::Text(network_, variable); }

  KivOmbNetwork network_;
};

TEST_F(Equation, OfNothingHoldsForZeroAlone) {
  PostEqual({}, 0);
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
  PostEqual({}, 1);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Equation, OfOneTermFixesIt) {
  for (const char* kind : kIntegerKinds) {
    SCOPED_TRACE(kind);
    const auto x = Unknown(kind);
    PostEqual({{-3, x}}, 21);
    ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(Text(x), "-7");
  }
}

TEST_F(Equation, BoundsAreRoundedInwards) {
  const auto x = Interval(-1000000, 1000000);
  const auto y = Interval(-1000000, 1000000);
  const auto z = Interval(0, 1);
  PostEqual({{7, x}, {-11, y}, {3, z}}, 5);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  // y <= (7 * 1000000 + 3 - 5) / 11, so x <= (5 + 11 * 636363) / 7, so y <= (7 * 999999 - 2) / 11,
  // so x <= (5 + 11 * 636362) / 7.
  EXPECT_EQ(Text(x), "[-1000000, 999998]");
  EXPECT_EQ(Text(y), "[-636364, 636362]");
}

TEST_F(Equation, TheOneUnboundedTermGetsBounds) {
  const auto x = Interval(0, 1000000);
  const auto y = Interval(-5, 1000000);
  const auto z = Unknown("interval int");
  PostEqual({{2, x}, {-3, y}, {1, z}}, 10);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(z), "[-2000005, 3000010]");
}

TEST_F(Equation, TwoUnboundedTermsKeepEachOtherOpen) {
  const auto x = Interval(0, 10);
  const auto y = Unknown("interval int");
  const auto z = Unknown("enum int");
  PostEqual({{1, x}, {1, y}, {1, z}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(y) + " " + Text(z), "Any Any");
  Restrict(network_, y, {3, 4});
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(z), "{ -14, -13, -12, -11, -10, -9, -8, -7, -6, -5, -4, -3 }");
}

TEST_F(Equation, AHalfOpenTermIsOpenOnThatSideOnly) {
  const auto x = Interval(0, SubIntBase::kMax);
  const auto y = Interval(0, SubIntBase::kMax);
  const auto z = Interval(0, 1000000);
  PostEqual({{1, x}, {1, y}, {-1, z}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(y) + " " + Text(z), "[0, 1000000] [0, 1000000] [0, 1000000]");
}

TEST_F(Equation, IsAtItsFixpointAfterOneRun) {
  std::vector<LinearTerm> terms;
  for (const int coefficient : {3, -5, 7, -11, 13}) {
    terms.push_back({coefficient, Interval(-1000, 1000 + coefficient)});
  }
  PostEqual(terms, 17);
  network_.Propagate();
  EXPECT_EQ(network_.GetStatistics().runs, 1u);
}

// Each bound of an n-ary equation is met over the reals by the hulls of the others.
TEST_F(Equation, OfManyTermsIsConsistentOverTheReals) {
  const std::uint64_t first = Seed(1);
  std::size_t narrowed = 0;
  for (std::uint64_t seed = first; seed < first + Times(500); ++seed) {
    SCOPED_TRACE(Replay(seed));
    Generator random(seed);
    KivOmbNetwork network;
    std::vector<LinearTerm> terms;
    for (int i = 0; i < 6; ++i) {
      const int coefficient = Pick(random, 1, 40) * (Pick(random, 0, 1) == 0 ? 1 : -1);
      const int lower = Pick(random, -100, 100);
      const Values values{lower, lower + Pick(random, 0, 300)};
      const char* kind = kIntegerKinds[Pick(random, 1, 2)];
      terms.push_back({coefficient, Declare(network, {Kind(kind), values})});
    }
    const int constant = Pick(random, -8000, 8000);
    PostLinear(network, terms, LinearRelation::kEqual, constant);
    if (network.Propagate() != Outcome::kFixpoint) continue;
    narrowed += network.GetStatistics().runs;
    for (const LinearTerm& judged : terms) {
      std::int64_t least = 0;
      std::int64_t most = 0;
      for (const LinearTerm& term : terms) {
        if (term == judged) continue;
        const auto& summary = network.GetSummary(term.variable);
        const std::int64_t ends[] = {term.coefficient * summary.lower,
                                     term.coefficient * summary.upper};
        least += std::min(ends[0], ends[1]);
        most += std::max(ends[0], ends[1]);
      }
      for (const std::int64_t bound :
           {network.GetSummary(judged.variable).lower, network.GetSummary(judged.variable).upper}) {
        const std::int64_t rest = constant - judged.coefficient * bound;
        EXPECT_TRUE(least <= rest && rest <= most) << judged.variable;
      }
    }
  }
  EXPECT_GT(narrowed, Times(500) / 5);
}

TEST_F(Equation, OfThreeTermsLooksAtValues) {
  const auto x = Enum({0, 10, 20});
  const auto y = Enum({0, 1, 7});
  const auto z = Enum({1, 2, 3, 11, 12, 17, 19, 21, 30});
  PostEqual({{1, x}, {1, y}, {-1, z}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(y) + " " + Text(z), "{ 0, 10, 20 } { 1, 7 } { 1, 11, 17, 21 }");
}

TEST_F(Equation, AnUnknownTermTakesExactlyTheSums) {
  const auto x = Enum({0, 1000000});
  const auto y = Enum({0, 7});
  const auto z = Unknown("enum int");
  PostEqual({{3, x}, {-1, y}, {1, z}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(z), "{ -3000000, -2999993, 0, 7 }");
}

TEST_F(Equation, AWideTermGetsBoundsThatValuesSupport) {
  const auto x = Enum({0, 10});
  const auto y = Enum({0, 5});
  const auto z = Interval(1, 1000000000);
  PostEqual({{100000000, x}, {-1000, y}, {-1, z}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(y) + " " + Text(z), "10 { 0, 5 } [999995000, 1000000000]");
}

// Every pair of values is looked at up to the limit; one more value, and bounds have to do.
TEST_F(Equation, ValuesAreLookedAtUpToALimit) {
  const auto odd_values_left = [](std::uint32_t pairs_of_64) {
    KivOmbNetwork network;
    Values even;
    for (std::uint32_t i = 0; i < pairs_of_64; ++i) even.push_back(static_cast<int>(2 * i));
    const Values first(even.begin(), even.begin() + 64);
    const auto x = Declare(network, {Kind("enum int"), first});
    const auto y = Declare(network, {Kind("enum int"), even});
    const auto z = Declare(network, {Kind("enum int"), Range(1, 400)});
    const LinearTerm terms[] = {{1, x}, {1, y}, {-1, z}};
    PostLinear(network, terms, LinearRelation::kEqual, 0);
    network.Propagate();
    return static_cast<const KivOmbiInteger&>(network.GetDomain(z)).MayBe(9);
  };
  static_assert(kMostPairs == 64 * 64);
  EXPECT_FALSE(odd_values_left(64));
  EXPECT_TRUE(odd_values_left(65));
}

TEST_F(Equation, CountsInWideNumbersWhereItMust) {
  constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
  const auto x = Interval(-kMost, kMost);
  const auto y = Interval(-kMost, kMost);
  const auto z = Interval(-kMost, kMost);
  const auto u = Interval(5, 6);
  PostEqual({{kHuge, x}, {kHuge - 1, y}, {-kHuge, z}, {1, u}}, 5);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "[-2147483646, 2147483646]");
  Restrict(network_, x, {kMost});
  Restrict(network_, z, {-kMost});
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Equation, ABoundBeyondTheRangeIsNone) {
  const auto x = Interval(1000000000, 2000000000);
  const auto y = Interval(1000000000, 2000000000);
  const auto z = Unknown("interval int");
  PostEqual({{1, x}, {1, y}, {-1, z}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + " " + Text(z), "[1000000000, 2000000000] [2000000000, Max]");
}

TEST_F(Equation, AValueBeyondTheRangeIsAnOverflowUnlessItIsExcluded) {
  for (const char* kind : {"enum int", "interval int"}) {
    SCOPED_TRACE(kind);
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind("enum int"), {1500000000, 2000000000}});
    const auto y = Declare(network, {Kind("interval int"), {1000000000, 2000000000}});
    const auto z = Declare(network, {Kind(kind), {}});
    const LinearTerm terms[] = {{1, x}, {1, y}, {-1, z}};
    PostLinear(network, terms, LinearRelation::kEqual, 0);
    EXPECT_EQ(network.Propagate(), Outcome::kOverflow);
    EXPECT_EQ(network.GetCulprit(), 0u);
  }
  const auto x = Enum({1500000000, 2000000000});
  const auto y = Interval(1000000000, 2000000000);
  const auto z = Interval(-kMost, kMost);
  PostEqual({{1, x}, {1, y}, {-1, z}}, 0);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

// Bounds that only follow each other would need a thousand million rounds, or a million.
TEST_F(Equation, BoundsThatCrawlLeapOverWhatHasNoPartner) {
  const auto x = Interval(1, 2000000000);
  const auto y = Interval(1, 2000000000);
  const auto one = Declare(network_, {Kind("int"), {1}});
  const auto other_one = Declare(network_, {Kind("int"), {1}});
  PostEqual({{1000003, x}, {-1000033, y}, {5, one}, {-5, other_one}}, 0);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "[1000033, 1999065967]");
  EXPECT_EQ(Text(y), "[1000003, 1999005997]");
  EXPECT_EQ(network_.GetStatistics().runs, 1u);
  const auto u = Interval(1, 1000000000);
  const auto v = Interval(1, 1000000000);
  PostEqual({{1000000007, u}, {-1000000009, v}}, 0);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Equation, ALongCrawlCanBeStopped) {
  const auto x = Interval(1, 1000000000);
  const auto y = Interval(1, 1000000000);
  const auto z = Interval(0, 1);
  PostEqual({{1000000007, x}, {-1000000009, y}, {1, z}}, 0);
  std::atomic<bool> stop = true;
  network_.SetStopFlag(&stop);
  EXPECT_EQ(network_.Propagate(), Outcome::kStopped);
}

TEST_F(Equation, TellsItsGroundTruthBeyond64Bits) {
  constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
  const LinearEquation equation({kHuge, -kHuge, 2}, 6);
  EXPECT_TRUE(equation.Holds(std::array<std::int64_t, 3>{kMost, kMost, 3}));
  EXPECT_FALSE(equation.Holds(std::array<std::int64_t, 3>{kMost, kMost - 1, 3}));
}

}  // namespace
}  // namespace kiv::test
