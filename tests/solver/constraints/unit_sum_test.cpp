#include "solver/constraints/unit_sum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "solver/constraints/linear_equation.h"
#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

// A sum of two or three terms with coefficients 1 and -1 = constant.
struct Sum {
  std::vector<const KivOmbiObjectDescriptor*> kinds;
  std::vector<Values> domains;
  std::vector<std::int64_t> signs;
  std::int64_t constant = 0;
};

// Domains out of so many integers, around anything, and a constant that some values meet, or
// nearly.
Sum RandomSum(Generator& random, int width) {
  Sum sum;
  const int count = Pick(random, 2, 3);
  for (int i = 0; i < count; ++i) {
    const int lower = Pick(random, -200, 200);
    const auto most = static_cast<std::size_t>(Pick(random, 1, 2 * width));
    sum.kinds.push_back(OneIn(random, 3) ? PickOf(random, IntegerKinds()) : Kind("enum int"));
    const Values pool = Range(lower, lower + Pick(random, 0, width - 1));
    sum.domains.push_back(RandomValues(random, *sum.kinds.back(), pool, most));
    sum.signs.push_back(OneIn(random, 2) ? 1 : -1);
    sum.constant += sum.signs.back() * PickOf(random, sum.domains.back());
  }
  if (OneIn(random, 3)) sum.constant += Pick(random, -3, 3);
  return sum;
}

// By position the values that are part of a solution, one choice of values after the other.
std::vector<std::set<std::int32_t>> SupportedValues(const Sum& sum) {
  std::vector<std::set<std::int32_t>> supported(sum.domains.size());
  const auto& last = sum.domains.back();
  const Values nothing{0};
  for (const std::int32_t x : sum.domains[0]) {
    for (const std::int32_t y : sum.domains.size() == 3 ? sum.domains[1] : nothing) {
      const std::int64_t before =
          sum.signs[0] * x + (sum.domains.size() == 3 ? sum.signs[1] : 0) * y;
      const std::int64_t z = (sum.constant - before) * sum.signs.back();
      if (z != static_cast<std::int32_t>(z)) continue;
      if (!std::ranges::binary_search(last, static_cast<std::int32_t>(z))) continue;
      supported[0].insert(x);
      if (sum.domains.size() == 3) supported[1].insert(y);
      supported.back().insert(static_cast<std::int32_t>(z));
    }
  }
  return supported;
}

// What the kind makes of the values that are left.
Values Held(const KivOmbiObjectDescriptor& kind, const std::set<std::int32_t>& values) {
  if (kind.HoldsGaps()) return {values.begin(), values.end()};
  return Range(*values.begin(), *values.rbegin());
}

Values ValuesOf(const KivOmbNetwork& network, VariableId variable) {
  const auto& domain = static_cast<const KivOmbiInteger&>(network.GetDomain(variable));
  const auto& summary = network.GetSummary(variable);
  Values values;
  for (std::int32_t v = summary.lower; v <= summary.upper; ++v) {
    if (domain.MayBe(v)) values.push_back(v);
  }
  return values;
}

void Check(const Sum& sum, const std::string& replay) {
  SCOPED_TRACE(replay);
  KivOmbNetwork network;
  std::vector<VariableId> arguments;
  for (std::size_t i = 0; i < sum.domains.size(); ++i) {
    arguments.push_back(Declare(network, {sum.kinds[i], sum.domains[i]}));
  }
  network.Emplace<LinearEquation>(arguments, sum.signs, sum.constant);
  const auto expected = SupportedValues(sum);
  const auto outcome = network.Propagate();
  ASSERT_EQ(outcome == Outcome::kContradiction, expected[0].empty());
  if (outcome == Outcome::kContradiction) return;
  ASSERT_EQ(network.GetStatistics().runs, 1u);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    ASSERT_EQ(ValuesOf(network, arguments[i]), Held(*sum.kinds[i], expected[i])) << i;
  }
}

class UnitSums : public testing::TestWithParam<int> {};

TEST_P(UnitSums, LeaveTheValuesThatArePartOfASolution) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(3000); ++seed) {
    Generator random(seed);
    Check(RandomSum(random, GetParam()), Replay(seed));
    if (HasFatalFailure()) return;
  }
}

// A few values, domains that fit a word, some that do and some that do not, and wide ones.
INSTANTIATE_TEST_SUITE_P(Widths, UnitSums, testing::Values(1, 6, 40, 64, 66, 130));

TEST(UnitSum, MeetsAtTheEndsOfTheIntegers) {
  constexpr std::int32_t kMost = 2147483646;
  const Sum sums[] = {
      {{Kind("enum int"), Kind("enum int")}, {{-kMost, 0, kMost}, {-kMost, 1}}, {1, 1}, 0},
      {{Kind("enum int"), Kind("enum int")}, {{-kMost, kMost}, {-kMost, kMost}}, {1, -1}, 0},
      {{Kind("enum int"), Kind("enum int")},
       {{kMost - 2, kMost}, {-kMost, -5}},
       {1, -1},
       4294967292},
      // The last number is beyond 32 bits.
      {{Kind("enum int"), Kind("enum int")},
       {{-kMost, kMost - 6, kMost}, {kMost - 10, kMost}},
       {1, -1},
       4},
  };
  for (Sum sum : sums) {
    for (Values& values : sum.domains) std::ranges::sort(values);
    const auto expected = SupportedValues(sum);
    KivOmbNetwork network;
    const std::array arguments{Declare(network, {sum.kinds[0], sum.domains[0]}),
                               Declare(network, {sum.kinds[1], sum.domains[1]})};
    network.Emplace<LinearEquation>(arguments, sum.signs, sum.constant);
    const auto outcome = network.Propagate();
    ASSERT_EQ(outcome == Outcome::kContradiction, expected[0].empty());
    if (expected[0].empty()) continue;
    for (std::size_t i = 0; i < 2; ++i) {
      EXPECT_EQ(network.GetSummary(arguments[i]).lower, *expected[i].begin());
      EXPECT_EQ(network.GetSummary(arguments[i]).upper, *expected[i].rbegin());
      EXPECT_EQ(network.GetSummary(arguments[i]).cardinality, expected[i].size());
    }
  }
}

// x + x = z, as it stands: narrowed less than could be, but no solution is lost.
TEST(UnitSum, LosesNothingWhereAVariableStandsInTwoTerms) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1000); ++seed) {
    Generator random(seed);
    Values x_values = RandomValues(random, *Kind("enum int"), Range(-9, 20), 12);
    Values z_values = RandomValues(random, *Kind("enum int"), Range(-20, 40), 30);
    const int distance = OneIn(random, 2) ? 1 : 997;  // far apart they are looked up one by one
    for (std::int32_t& value : x_values) value *= distance;
    for (std::int32_t& value : z_values) value *= distance;
    const std::array<std::int64_t, 3> signs{1, OneIn(random, 2) ? 1 : -1, -1};
    const int constant = distance * Pick(random, -3, 3);
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind("enum int"), x_values});
    const auto z = Declare(network, {Kind("enum int"), z_values});
    network.Emplace<LinearEquation>(
        std::array{x, x, z}, std::vector<std::int64_t>(signs.begin(), signs.end()), constant);
    const auto outcome = network.Propagate();
    for (const std::int32_t v : x_values) {
      const auto w = static_cast<std::int32_t>(signs[0] * v + signs[1] * v - constant);
      if (!std::ranges::binary_search(z_values, w)) continue;
      ASSERT_EQ(outcome, Outcome::kFixpoint) << Replay(seed);
      ASSERT_TRUE(static_cast<const KivOmbiInteger&>(network.GetDomain(x)).MayBe(v))
          << Replay(seed);
      ASSERT_TRUE(static_cast<const KivOmbiInteger&>(network.GetDomain(z)).MayBe(w))
          << Replay(seed);
    }
  }
}

}  // namespace
}  // namespace kiv::test
