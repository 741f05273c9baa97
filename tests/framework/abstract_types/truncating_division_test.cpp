#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/operator_meaning.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Kind = const KivOmbiObjectDescriptor*;
using Outcome = KivOmbNetwork::Outcome;
using Random = std::mt19937_64;

constexpr std::int32_t kMost = 2147483646;

int Pick(Random& random, int lower, int upper) {
  return std::uniform_int_distribution<int>(lower, upper)(random);
}

bool IsQuotient(const Assignment& values) {
  return FindMeaning("div", 2)->holds(values[0], values[1], values[2]);
}

Kind FindKind(const char* name) { return OpenModules().FindKind(name); }

// x, y and z as variables 0, 1 and 2, and z = x div y.
void Post(KivOmbNetwork& network, const std::vector<Declared>& declared) {
  for (const Declared& variable : declared) Declare(network, variable);
  const auto* row = OpenModules().operators.Resolve("div", {declared[0].kind, declared[1].kind});
  ASSERT_NE(row, nullptr);
  network.Post(*row, 0, 1, 2);
}

// Values that the kind holds exactly, of one flavour: around zero, with one sign, or large.
Values RandomValues(Random& random, Kind kind) {
  const std::string& name = kind->GetName();
  const int flavour = Pick(random, 0, 3);
  const int base = flavour == 0 ? 0 : flavour == 1 ? 20 : flavour == 2 ? -20 : 100000;
  std::set<std::int32_t> values;
  const int count = name == "int" ? 1 : Pick(random, 1, 6);
  std::int32_t value = base + Pick(random, -4, 4);
  for (int i = 0; i < count; ++i) {
    values.insert(value);
    value += name == "enum int" ? Pick(random, 1, 5) : 1;
  }
  return {values.begin(), values.end()};
}

std::vector<Declared> RandomVariables(Random& random) {
  std::vector<Declared> declared;
  for (int i = 0; i < 3; ++i) {
    const char* kinds[] = {"int", "interval int", "enum int", "enum int"};
    const Kind kind = FindKind(kinds[Pick(random, 0, 3)]);
    declared.push_back({kind, RandomValues(random, kind)});
  }
  // A quotient near what there is, so that many cases have solutions.
  const int x = declared[0].values[0], y = declared[1].values.back();
  if (y != 0 && Pick(random, 0, 3) != 0) {
    Values& quotients = declared[2].values;
    const std::int32_t shift = x / y - quotients[0];
    for (std::int32_t& value : quotients) value += shift;
  }
  return declared;
}

std::vector<Values> DomainsOf(const std::vector<Declared>& declared) {
  std::vector<Values> domains;
  for (const Declared& variable : declared) domains.push_back(variable.values);
  return domains;
}

TEST(TruncatingDivision, HasTheSolutionsOfEnumeration) {
  const std::uint64_t seed = Seed(1);
  Random random(seed);
  std::size_t solutions = 0;
  for (int round = 0; round < 3000; ++round) {
    const std::vector<Declared> declared = RandomVariables(random);
    SCOPED_TRACE(Print(declared) + ", " + Replay(seed));
    KivOmbNetwork network;
    Post(network, declared);
    const auto expected = EnumerateSolutions(DomainsOf(declared), IsQuotient);
    ASSERT_EQ(SearchSolutions(network), expected);
    solutions += expected.size();
  }
  EXPECT_GT(solutions, 3000u) << "the cases are too hard to tell anything";
}

TEST(TruncatingDivision, FindsTheQuotientsOfAnUnknownResult) {
  const std::uint64_t seed = Seed(2);
  Random random(seed);
  for (int round = 0; round < 1000; ++round) {
    std::vector<Declared> declared = RandomVariables(random);
    declared[2] = {FindKind("interval int"), {}};
    SCOPED_TRACE(Print(declared) + ", " + Replay(seed));
    std::set<std::int32_t> quotients;
    for (const std::int32_t x : declared[0].values) {
      for (const std::int32_t y : declared[1].values) {
        if (y != 0) quotients.insert(x / y);
      }
    }
    std::vector<Values> domains = DomainsOf(declared);
    domains[2] = {quotients.begin(), quotients.end()};
    KivOmbNetwork network;
    Post(network, declared);
    ASSERT_EQ(SearchSolutions(network), EnumerateSolutions(domains, IsQuotient));
  }
}

// A domain of a kind that keeps no holes keeps its bounds alone free of values without support.
TEST(TruncatingDivision, KeepsOnlyValuesOfSolutionsWhereDomainsAreSmall) {
  const std::uint64_t seed = Seed(3);
  Random random(seed);
  for (int round = 0; round < 3000; ++round) {
    const std::vector<Declared> declared = RandomVariables(random);
    SCOPED_TRACE(Print(declared) + ", " + Replay(seed));
    KivOmbNetwork network;
    Post(network, declared);
    const Outcome outcome = network.Propagate();
    if (EnumerateSolutions(DomainsOf(declared), IsQuotient).empty()) {
      ASSERT_EQ(outcome, Outcome::kContradiction);
      continue;
    }
    ASSERT_EQ(outcome, Outcome::kFixpoint);
    std::vector<Values> left;
    for (KivOmbNetwork::VariableId i = 0; i < 3; ++i) left.push_back(ValuesOf(network, i));
    const auto solutions = EnumerateSolutions(left, IsQuotient);
    for (std::size_t i = 0; i < 3; ++i) {
      for (const std::int32_t value : left[i]) {
        const bool is_bound = value == left[i].front() || value == left[i].back();
        if (declared[i].kind != FindKind("enum int") && !is_bound) continue;
        ASSERT_TRUE(std::ranges::any_of(
            solutions, [&](const Assignment& solution) { return solution[i] == value; }))
            << "variable " << i << " keeps " << value;
      }
    }
  }
}

// What is left of x, y and z = x div y, as text.
std::string Narrowed(const std::vector<Declared>& declared) {
  KivOmbNetwork network;
  Post(network, declared);
  const Outcome outcome = network.Propagate();
  if (outcome == Outcome::kContradiction) return "contradiction";
  if (outcome == Outcome::kOverflow) return "overflow";
  Kivostrstream out;
  for (KivOmbNetwork::VariableId i = 0; i < 3; ++i) {
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
    network.Post(*OpenModules().operators.Resolve("div", {FindKind(kind), FindKind(kind)}), x, x,
                 z);
    EXPECT_EQ(SearchSolutions(network),
              (std::vector<Assignment>{{-2, 1}, {-1, 1}, {1, 1}, {2, 1}}));
  }
}

TEST(TruncatingDivision, AVariableCanBeItsOwnQuotientOrDivisor) {
  const Kind kind = FindKind("enum int");
  const auto* row = OpenModules().operators.Resolve("div", {kind, kind});
  KivOmbNetwork quotient;
  const auto x = Declare(quotient, {kind, {-1, 0, 1, 5}});
  const auto y = Declare(quotient, {kind, {-1, 0, 1, 2}});
  quotient.Post(*row, x, y, x);
  EXPECT_EQ(SearchSolutions(quotient),
            (std::vector<Assignment>{{-1, 1}, {0, -1}, {0, 1}, {0, 2}, {1, 1}, {5, 1}}));
  KivOmbNetwork divisor;
  const auto a = Declare(divisor, {kind, {0, 3, 4, 9, 11, 12}});
  const auto b = Declare(divisor, {kind, {-3, -2, 0, 2, 3}});
  divisor.Post(*row, a, b, b);
  EXPECT_EQ(SearchSolutions(divisor),
            (std::vector<Assignment>{{4, -2}, {4, 2}, {9, -3}, {9, 3}, {11, -3}, {11, 3}}));
}

}  // namespace
}  // namespace kiv::test
