#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/constraint_case.h"
#include "tests/support/modules.h"
#include "tests/support/operator_meaning.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Kind = const KivOmbiObjectDescriptor*;
using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;

bool IsQuotient(const Assignment& values) {
  return FindMeaning("div", 2)->holds(values[0], values[1], values[2]);
}

Kind FindKind(const char* name) { return OpenModules().FindKind(name); }

void PostDivision(KivOmbNetwork& network, VariableId x, VariableId y, VariableId z) {
  const auto* row =
      OpenModules().operators.Resolve("div", {&network.GetKind(x), &network.GetKind(y)});
  ASSERT_NE(row, nullptr);
  network.Post(*row, x, y, z);
}

// z near the quotients of x and y, so that many cases have solutions.
Declared NearQuotient(Generator& random, const Declared& x, const Declared& y) {
  Declared z = RandomVariable(random, Flavour::kHoles);
  const std::int32_t divisor = PickOf(random, y.values);
  if (divisor == 0) return z;
  const std::int64_t quotient = PickOf(random, x.values) / divisor;
  const std::int64_t shift = quotient - z.values.front();
  for (std::int32_t& value : z.values) {
    value = static_cast<std::int32_t>(std::clamp<std::int64_t>(value + shift, -kMost, kMost));
  }
  z.values.erase(std::unique(z.values.begin(), z.values.end()), z.values.end());
  return z;
}

TEST(TruncatingDivision, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  std::size_t with_solutions = 0;
  const std::size_t cases = Times(3000);
  for (std::uint64_t seed = first; seed < first + cases; ++seed) {
    Generator random(seed);
    const Declared x = RandomVariable(random);
    // What one divisor leaves is found in another way.
    const Declared y =
        OneIn(random, 3) ? RandomVariable(random, Flavour::kSingle) : RandomVariable(random);
    const Declared z =
        OneIn(random, 4) ? Declared{FindKind("interval int"), {}} : NearQuotient(random, x, y);
    static const std::vector<VariableId> kAliasings[] = {{0, 0, 2}, {0, 1, 0}, {0, 1, 1}};
    const bool alias = OneIn(random, 6);
    const ConstraintCase division{
        .name = "truncating division",
        .variables = {x, y, z},
        .arguments = alias ? PickOf(random, kAliasings) : std::vector<VariableId>{0, 1, 2},
        .post =
            [](KivOmbNetwork& network, auto arguments) {
              PostDivision(network, arguments[0], arguments[1], arguments[2]);
            },
        .holds = IsQuotient,
        .strength = Strength::kDomain};
    CheckConstraint(division, seed);
    if (testing::Test::HasFailure()) return;
    with_solutions += !EnumerateSolutions({x.values, y.values, z.values}, IsQuotient).empty();
  }
  EXPECT_GT(with_solutions, cases / 4) << "the cases are too hard to tell anything";
}

// What is left of x, y and z = x div y, as text.
std::string Narrowed(const std::vector<Declared>& declared) {
  KivOmbNetwork network;
  for (const Declared& variable : declared) Declare(network, variable);
  PostDivision(network, 0, 1, 2);
  const Outcome outcome = network.Propagate();
  if (outcome == Outcome::kContradiction) return "contradiction";
  if (outcome == Outcome::kOverflow) return "overflow";
  Kivostrstream out;
  for (VariableId i = 0; i < 3; ++i) {
    if (i > 0) out << "; ";
    network.GetDomain(i).PrintOn(out);
  }
  return out.Str();
}

// An interval between two values, which Declare makes from them.
Declared Interval(std::int32_t lower, std::int32_t upper) {
  return {FindKind("interval int"), {lower, upper}};
}
Declared Unknown() { return {FindKind("interval int"), {}}; }

TEST(TruncatingDivision, NarrowsWideIntervalsByTheirBounds) {
  EXPECT_EQ(Narrowed({Interval(-kMost, kMost), Interval(2, kMost), Unknown()}),
            "[-2147483646, 2147483646]; [2, 2147483646]; [-1073741823, 1073741823]");
  EXPECT_EQ(Narrowed({Interval(-kMost, kMost), Interval(1000, 2000), Interval(-3, 5)}),
            "[-7999, 11999]; [1000, 2000]; [-3, 5]");
  EXPECT_EQ(Narrowed({Interval(100000, 200000), Interval(-kMost, kMost), Interval(50, 60)}),
            "[100000, 200000]; [1640, 4000]; [50, 60]");
  EXPECT_EQ(Narrowed({Interval(-kMost, kMost), Interval(-1, -1), Unknown()}),
            "[-2147483646, 2147483646]; -1; [-2147483646, 2147483646]");
}

TEST(TruncatingDivision, NeverDividesByZero) {
  EXPECT_EQ(Narrowed({Interval(0, 9), Interval(0, 3), Unknown()}), "[0, 9]; [1, 3]; [0, 9]");
  EXPECT_EQ(Narrowed({Unknown(), Interval(0, 0), Unknown()}), "contradiction");
  EXPECT_EQ(Narrowed({Interval(5, 5), Interval(-1, 1), Interval(-4, 4)}), "contradiction");
}

TEST(TruncatingDivision, FindsAnUnknownDividend) {
  EXPECT_EQ(Narrowed({Unknown(), Interval(3, 3), Interval(4, 4)}), "[12, 14]; 3; 4");
  EXPECT_EQ(Narrowed({Unknown(), Interval(-3, -3), Interval(0, 0)}), "[-2, 2]; -3; 0");
  EXPECT_EQ(Narrowed({Unknown(), Interval(kMost, kMost), Interval(2, 2)}), "overflow");
  EXPECT_EQ(Narrowed({Interval(0, kMost), Interval(kMost, kMost), Interval(2, 2)}),
            "contradiction");
}

TEST(TruncatingDivision, AVariableDividedByItselfGivesOne) {
  for (const char* kind : {"interval int", "enum int"}) {
    KivOmbNetwork network;
    const auto x = Declare(network, {FindKind(kind), {-2, -1, 0, 1, 2}});
    const auto z = network.AddVariable(*FindKind("interval int"));
    PostDivision(network, x, x, z);
    EXPECT_EQ(SearchSolutions(network),
              (std::vector<Assignment>{{-2, 1}, {-1, 1}, {1, 1}, {2, 1}}));
  }
}

TEST(TruncatingDivision, AVariableCanBeItsOwnQuotientOrDivisor) {
  const Kind kind = FindKind("enum int");
  KivOmbNetwork quotient;
  const auto x = Declare(quotient, {kind, {-1, 0, 1, 5}});
  const auto y = Declare(quotient, {kind, {-1, 0, 1, 2}});
  PostDivision(quotient, x, y, x);
  EXPECT_EQ(SearchSolutions(quotient),
            (std::vector<Assignment>{{-1, 1}, {0, -1}, {0, 1}, {0, 2}, {1, 1}, {5, 1}}));
  KivOmbNetwork divisor;
  const auto a = Declare(divisor, {kind, {0, 3, 4, 9, 11, 12}});
  const auto b = Declare(divisor, {kind, {-3, -2, 0, 2, 3}});
  PostDivision(divisor, a, b, b);
  EXPECT_EQ(SearchSolutions(divisor),
            (std::vector<Assignment>{{4, -2}, {4, 2}, {9, -3}, {9, 3}, {11, -3}, {11, 3}}));
}

}  // namespace
}  // namespace kiv::test
