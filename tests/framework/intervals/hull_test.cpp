// Reasoning about bounds against enumeration: of all small hulls, and of samples of large and
// unbounded ones.

#include "framework/intervals/hull.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <random>
#include <vector>

#include "tests/framework/intervals/printed_hull.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

constexpr std::int64_t kUnbounded = Hull::kUnbounded;
constexpr std::int64_t kGreatest = 2147483646;
constexpr Hull kAll{-kUnbounded, kUnbounded};

// Values are clamped, as bounds are.
using Value = std::optional<std::int64_t>;

Value Clamped(__int128 value) {
  return static_cast<std::int64_t>(std::clamp<__int128>(value, -kUnbounded, kUnbounded));
}

Value PowerValueOf(std::int64_t x, std::int64_t y) {
  if (y == 0 || x == 1) return 1;
  if (x == -1) return y % 2 == 0 ? 1 : -1;
  if (y < 0) return std::nullopt;
  if (x == 0) return 0;
  __int128 power = 1;
  for (std::int64_t i = 0; i < std::min<std::int64_t>(y, 64 + y % 2); ++i) {
    power = *Clamped(power * x);
  }
  return static_cast<std::int64_t>(power);
}

// What z = f(x, y) is, and the functions that reason about it; null where there is none.
struct Operation {
  const char* name;
  Value (*value)(std::int64_t x, std::int64_t y);
  Hull (*forward)(const Hull& x, const Hull& y);
  Hull (*narrow_x)(const Hull& x, const Hull& y, const Hull& z);
  Hull (*narrow_y)(const Hull& x, const Hull& y, const Hull& z);
  // Where least hulls are promised.
  bool (*is_forward_least)(const Hull& x, const Hull& y);
  bool (*is_x_least)(const Hull& y);
  bool is_y_least;
};

bool Always(const Hull&, const Hull&) { return true; }
bool AlwaysInverse(const Hull&) { return true; }
bool Never(const Hull&) { return false; }

std::int64_t GreatestMagnitude(const Hull& x) { return std::max(-x.lower, x.upper); }

bool IsOneModulus(const Hull& y) {
  return (y.lower == y.upper) || (y.lower == -1 && y.upper == 1) ||
         (y.lower == 0 && y.upper == 1) || (y.lower == -1 && y.upper == 0);
}

bool HasOneQuotient(const Hull& x, const Hull& y) {
  std::optional<std::int64_t> quotient;
  for (std::int64_t a = x.lower; a <= x.upper; ++a) {
    for (std::int64_t b = y.lower; b <= y.upper; ++b) {
      if (b != 0 && quotient.value_or(std::abs(a / b)) != std::abs(a / b)) return false;
      if (b != 0) quotient = std::abs(a / b);
    }
  }
  return true;
}

bool IsRemainderLeast(const Hull& x, const Hull& y) {
  const std::int64_t least = x.Contains(0) ? 0 : std::min(std::abs(x.lower), std::abs(x.upper));
  return IsOneModulus(y) || GreatestMagnitude(y) > least || HasOneQuotient(x, y);
}

const Operation kOperations[] = {
    {"sum", [](auto x, auto y) { return Clamped(__int128{x} + y); }, Sum, nullptr, nullptr, Always,
     Never, false},
    {"difference", [](auto x, auto y) { return Clamped(__int128{x} - y); }, Difference, nullptr,
     nullptr, Always, Never, false},
    {"product", [](auto x, auto y) { return Clamped(__int128{x} * y); }, Product, Factor,
     [](auto& x, auto& y, auto& z) { return Factor(y, x, z); }, Always, Never, false},
    {"quotient", [](auto x, auto y) { return y == 0 ? Value() : Value(x / y); }, TruncatedQuotient,
     TruncatedDividend, TruncatedDivisor, Always, AlwaysInverse, true},
    {"remainder", [](auto x, auto y) { return y == 0 ? Value() : Value(x % y); }, Remainder,
     Dividend, Modulus, IsRemainderLeast, IsOneModulus, false},
    {"minimum", [](auto x, auto y) { return Value(std::min(x, y)); }, Minimum, MinimumOperand,
     [](auto& x, auto& y, auto& z) { return MinimumOperand(y, x, z); }, Always, AlwaysInverse,
     true},
    {"maximum", [](auto x, auto y) { return Value(std::max(x, y)); }, Maximum, MaximumOperand,
     [](auto& x, auto& y, auto& z) { return MaximumOperand(y, x, z); }, Always, AlwaysInverse,
     true},
    {"power", PowerValueOf, kiv::Power, Base, Exponent, Always, AlwaysInverse, true}};

// Those that have inverses of their own.
std::vector<Operation> Invertible() {
  std::vector<Operation> operations;
  std::ranges::copy_if(kOperations, std::back_inserter(operations),
                       [](const Operation& o) { return o.narrow_x != nullptr; });
  return operations;
}

// All hulls with ends of `ends`, which rise, one of them empty.
std::vector<Hull> HullsOf(const std::vector<std::int64_t>& ends) {
  std::vector<Hull> hulls{kEmptyHull};
  for (std::size_t i = 0; i < ends.size(); ++i) {
    for (std::size_t j = i; j < ends.size(); ++j) hulls.push_back({ends[i], ends[j]});
  }
  return hulls;
}

constexpr std::int64_t kEnd = 6;

std::vector<Hull> SmallHulls() {
  std::vector<std::int64_t> ends;
  for (std::int64_t end = -kEnd; end <= kEnd; ++end) ends.push_back(end);
  return HullsOf(ends);
}

// The results that tell small operands apart.
std::vector<Hull> Results() {
  return HullsOf({-kUnbounded, -37, -30, -9, -5, -3, -2, -1, 0,    1,
                  2,           3,   4,   6,  8,  9,  25, 36, 1000, kUnbounded});
}

// The hull of a set of the values -kEnd .. kEnd, a bit each.
using Set = std::uint32_t;

Set BitOf(std::int64_t value) { return Set{1} << (value + kEnd); }

Set SetOf(const Hull& x) {
  Set set = 0;
  for (std::int64_t value = x.lower; value <= x.upper; ++value) set |= BitOf(value);
  return set;
}

Hull HullOf(Set set) {
  if (set == 0) return kEmptyHull;
  return {std::countr_zero(set) - kEnd, std::bit_width(set) - 1 - kEnd};
}

bool IsWithin(const Hull& inner, const Hull& outer) {
  return inner.IsEmpty() || (outer.lower <= inner.lower && inner.upper <= outer.upper);
}

// Whether `narrowed` has all solutions, nothing that was not there before, and no more than the
// hull of the solutions when it is least.
bool IsNarrowed(const Hull& narrowed, const Hull& before, const Hull& solutions, bool is_least) {
  return IsWithin(solutions, narrowed) && IsWithin(narrowed, is_least ? solutions : before);
}

std::string Trace(const Hull& x, const Hull& y, const Hull& z) {
  return testing::PrintToString(x) + " with " + testing::PrintToString(y) + " gives " +
         testing::PrintToString(z);
}

std::string NameOf(const testing::TestParamInfo<Operation>& operation) {
  return operation.param.name;
}

class SmallHull : public testing::TestWithParam<Operation> {};

INSTANTIATE_TEST_SUITE_P(Operations, SmallHull, testing::ValuesIn(kOperations), NameOf);

TEST_P(SmallHull, HasTheResultsOfItsValues) {
  const Operation& operation = GetParam();
  const std::vector<Hull> hulls = SmallHulls();
  for (const Hull& x : hulls) {
    for (const Hull& y : hulls) {
      Hull results = kEmptyHull;
      for (std::int64_t a = x.lower; a <= x.upper; ++a) {
        for (std::int64_t b = y.lower; b <= y.upper; ++b) {
          if (const Value c = operation.value(a, b)) results = Union(results, {*c, *c});
        }
      }
      const Hull found = operation.forward(x, y);
      ASSERT_TRUE(IsNarrowed(found, kAll, results, operation.is_forward_least(x, y)))
          << Trace(x, y, results) << ", not " << testing::PrintToString(found);
    }
  }
}

// Compares narrow(target, known, z) with the solutions for all hulls, value(target, known) being
// what z is.
template <class ValueOf, class Narrow, class IsLeast>
void CheckInverse(ValueOf&& value_of, Narrow&& narrow, IsLeast&& is_least) {
  const std::vector<Hull> hulls = SmallHulls();
  for (const Hull& z : Results()) {
    for (const Hull& known : hulls) {
      Set solutions = 0;
      for (std::int64_t target = -kEnd; target <= kEnd; ++target) {
        for (std::int64_t other = known.lower; other <= known.upper; ++other) {
          const Value value = value_of(target, other);
          if (value && z.Contains(*value)) solutions |= BitOf(target);
        }
      }
      for (const Hull& target : hulls) {
        const Hull expected = HullOf(solutions & SetOf(target));
        const Hull narrowed = narrow(target, known, z);
        ASSERT_TRUE(IsNarrowed(narrowed, target, expected, is_least(known)))
            << Trace(target, known, z) << " for " << testing::PrintToString(expected) << ", not "
            << testing::PrintToString(narrowed);
      }
    }
  }
}

class SmallHullInverse : public testing::TestWithParam<Operation> {};

INSTANTIATE_TEST_SUITE_P(Operations, SmallHullInverse, testing::ValuesIn(Invertible()), NameOf);

TEST_P(SmallHullInverse, KeepsTheFirstOperandsOfItsResults) {
  CheckInverse(GetParam().value, GetParam().narrow_x, GetParam().is_x_least);
}

TEST_P(SmallHullInverse, KeepsTheSecondOperandsOfItsResults) {
  const Operation& operation = GetParam();
  CheckInverse([&](auto y, auto x) { return operation.value(x, y); },
               [&](auto& y, auto& x, auto& z) { return operation.narrow_y(x, y, z); },
               [&](auto&) { return operation.is_y_least; });
}

// Some real number y of its hull gives z when the integers between x * y.lower and x * y.upper are
// not all outside of z.
TEST(SmallHull, FactorsHaveARealFactorBesideThem) {
  for (const Hull& z : Results()) {
    for (const Hull& y : SmallHulls()) {
      for (const Hull& x : SmallHulls()) {
        const Hull factors = Factor(x, y, z);
        if (factors.IsEmpty()) continue;
        for (const std::int64_t end : {factors.lower, factors.upper}) {
          ASSERT_FALSE(Intersection(Product({end, end}, y), z).IsEmpty()) << Trace(x, y, z);
        }
      }
    }
  }
}

struct Function {
  const char* name;
  std::int64_t (*value)(std::int64_t x);
  Hull (*forward)(const Hull& x);
  Hull (*narrow)(const Hull& x, const Hull& z);
};

const Function kFunctions[] = {
    {"negation", [](auto x) { return -x; }, Negation,
     [](auto& x, auto& z) { return Intersection(x, Negation(z)); }},
    {"absolute", [](auto x) { return std::abs(x); }, Absolute, AbsoluteOperand},
    {"sign", [](auto x) { return std::int64_t{x > 0} - (x < 0); }, Sign, SignOperand}};

TEST(SmallHull, HasTheResultsOfItsValuesAlone) {
  for (const Function& function : kFunctions) {
    for (const Hull& x : SmallHulls()) {
      Hull results = kEmptyHull;
      for (std::int64_t a = x.lower; a <= x.upper; ++a) {
        results = Union(results, {function.value(a), function.value(a)});
      }
      ASSERT_TRUE(IsNarrowed(function.forward(x), kAll, results, true))
          << function.name << " of " << testing::PrintToString(x);
    }
    CheckInverse(
        [&](auto x, auto) { return Value(function.value(x)); },
        [&](auto& x, auto& y, auto& z) { return y.IsEmpty() ? kEmptyHull : function.narrow(x, z); },
        [](auto&) { return true; });
  }
}

TEST(SmallHull, MeetsAndJoinsOthers) {
  for (const Hull& x : SmallHulls()) {
    for (const Hull& y : SmallHulls()) {
      const Hull common = HullOf(SetOf(x) & SetOf(y));
      const Hull found = Intersection(x, y);
      ASSERT_EQ(found.IsEmpty() ? kEmptyHull : found, common);
      ASSERT_EQ(Union(x, y), HullOf(SetOf(x) | SetOf(y)));
    }
  }
}

constexpr Hull Exactly(std::int64_t value) { return {value, value}; }
constexpr Hull From(std::int64_t value) { return {value, kUnbounded}; }
constexpr Hull To(std::int64_t value) { return {-kUnbounded, value}; }

TEST(UnboundedHull, HasNoInfiniteValue) {
  EXPECT_EQ(Product(kAll, Exactly(0)), Exactly(0));
  EXPECT_EQ(Product(From(2), {0, 3}), From(0));
  EXPECT_EQ(Product(To(-2), {-3, 3}), kAll);
  EXPECT_EQ(Sum(From(2), To(3)), kAll);
  EXPECT_EQ(Difference(From(2), To(3)), From(-1));
  EXPECT_EQ(Power(kAll, Exactly(0)), Exactly(1));
  EXPECT_EQ(Power({0, 1}, From(1)), (Hull{0, 1}));
  EXPECT_EQ(Power({0, 2}, From(1)), From(0));
  EXPECT_EQ(Power(Exactly(-1), kAll), (Hull{-1, 1}));
  EXPECT_EQ(Power(Exactly(-2), From(3)), kAll);
  EXPECT_EQ(Power(kAll, Exactly(2)), From(0));
  EXPECT_EQ(Power(From(2), To(-1)), kEmptyHull);
}

TEST(UnboundedHull, DividesIntoEverythingUpToItself) {
  EXPECT_EQ(TruncatedQuotient({5, 9}, From(2)), (Hull{0, 4}));
  EXPECT_EQ(TruncatedQuotient(From(5), {2, 4}), From(1));
  EXPECT_EQ(TruncatedQuotient(kAll, kAll), kAll);
  EXPECT_EQ(TruncatedQuotient(kAll, Exactly(0)), kEmptyHull);
  EXPECT_EQ(Remainder({5, 9}, From(2)), (Hull{0, 9}));
  EXPECT_EQ(Remainder({5, 9}, From(10)), (Hull{5, 9}));
  EXPECT_EQ(Remainder(kAll, {2, 4}), (Hull{-3, 3}));
  EXPECT_EQ(Remainder(kAll, kAll), kAll);
}

TEST(UnboundedHull, IsNarrowedByItsResult) {
  EXPECT_EQ(Factor(kAll, {2, 4}, {5, 9}), (Hull{2, 4}));
  EXPECT_EQ(Factor(kAll, kAll, {5, 9}), (Hull{-9, 9}));
  EXPECT_EQ(Factor(From(0), kAll, Exactly(-1)), Exactly(1));
  EXPECT_EQ(Factor(kAll, Exactly(0), Exactly(0)), kAll);
  EXPECT_EQ(TruncatedDividend(kAll, {2, 4}, {5, 9}), (Hull{10, 39}));
  EXPECT_EQ(TruncatedDivisor({10, 39}, kAll, {5, 9}), (Hull{2, 7}));
  EXPECT_EQ(Dividend(kAll, {2, 4}, Exactly(3)), From(3));
  EXPECT_EQ(Dividend({-9, 12}, Exactly(7), Exactly(3)), (Hull{3, 10}));
  EXPECT_EQ(Modulus(Exactly(17), From(1), Exactly(3)), (Hull{5, 14}));
  EXPECT_EQ(Modulus(Exactly(3), kAll, Exactly(3)), kAll);
  EXPECT_EQ(Modulus(Exactly(3), From(-5), Exactly(3)), From(-5));
  EXPECT_EQ(Base(kAll, Exactly(2), {10, 30}), (Hull{-5, 5}));
  EXPECT_EQ(Base(kAll, From(2), {-9, -8}), Exactly(-2));
  EXPECT_EQ(Exponent(Exactly(2), kAll, {5, 40}), (Hull{3, 5}));
  EXPECT_EQ(Exponent(Exactly(-1), kAll, Exactly(-1)), kAll);
  EXPECT_EQ(Exponent({2, 9}, kAll, From(100)), From(3));
  EXPECT_EQ(MinimumOperand(kAll, From(5), {2, 4}), (Hull{2, 4}));
  EXPECT_EQ(AbsoluteOperand(kAll, {2, 4}), (Hull{-4, 4}));
  EXPECT_EQ(SignOperand(kAll, To(-1)), To(-1));
}

TEST(UnboundedHull, BeginsWhereResultsAreClamped) {
  EXPECT_EQ(Product({-kGreatest, kGreatest}, {0, kGreatest}), kAll);
  EXPECT_EQ(Product(Exactly(kGreatest), Exactly(kGreatest)), Exactly(kUnbounded));
  EXPECT_EQ(Power(Exactly(2), Exactly(59)), Exactly(std::int64_t{1} << 59));
  EXPECT_EQ(Power(Exactly(-2), Exactly(61)), Exactly(-kUnbounded));
  EXPECT_EQ(Sum(Exactly(kUnbounded - 1), Exactly(kUnbounded - 1)), Exactly(kUnbounded));
  EXPECT_EQ(Factor(From(0), Exactly(kGreatest), Exactly(kUnbounded)), From(536870913));
}

// Random integers of all magnitudes, and hulls around them with ends that may be unbounded.
class LargeHull : public testing::TestWithParam<Operation> {
 protected:
  std::int64_t Uniform(std::int64_t lower, std::int64_t upper) {
    return std::uniform_int_distribution<std::int64_t>(lower, upper)(random_);
  }

  std::int64_t Number() {
    static constexpr std::int64_t kNotable[] = {
        0, 1, 2, kGreatest - 1, kGreatest, kGreatest + 1, kUnbounded / 2, kUnbounded - 1};
    const std::int64_t magnitude = Uniform(0, 3) == 0
                                       ? kNotable[Uniform(0, std::ssize(kNotable) - 1)]
                                       : Uniform(0, (std::int64_t{1} << Uniform(1, 60)) - 1);
    return Uniform(0, 1) == 0 ? magnitude : -magnitude;
  }

  Hull Around(std::int64_t value) {
    const auto end = [&](int direction) {
      if (Uniform(0, 5) == 0) return direction * kUnbounded;
      const std::int64_t distance = Uniform(0, 2) == 0 ? 0 : std::abs(Number());
      return *Clamped(__int128{value} + __int128{direction} * distance);
    };
    return {end(-1), end(1)};
  }

  const std::uint64_t seed_ = Seed(std::random_device()());
  testing::ScopedTrace trace_{__FILE__, __LINE__, Replay(seed_)};
  std::mt19937_64 random_{seed_};
};

INSTANTIATE_TEST_SUITE_P(Operations, LargeHull, testing::ValuesIn(kOperations), NameOf);

TEST_P(LargeHull, LosesNoSample) {
  const Operation& operation = GetParam();
  const bool is_power = operation.value == PowerValueOf;
  for (int i = 0; i < 20000; ++i) {
    const std::int64_t a = is_power && Uniform(0, 3) > 0 ? Uniform(-50, 50) : Number();
    const std::int64_t b = is_power && Uniform(0, 3) > 0 ? Uniform(-3, 66) : Number();
    const Value c = operation.value(a, b);
    if (!c) continue;
    const Hull x = Around(a);
    const Hull y = Around(b);
    const Hull z = Around(*c);
    SCOPED_TRACE(testing::PrintToString(a) + " of " + Trace(x, y, z));
    ASSERT_TRUE(operation.forward(x, y).Contains(*c));
    if (operation.narrow_x == nullptr) continue;
    ASSERT_TRUE(operation.narrow_x(x, y, z).Contains(a));
    ASSERT_TRUE(operation.narrow_y(x, y, z).Contains(b));
    // An operand loses ends, it wins none.
    const Hull narrowed = operation.narrow_x(x, y, z);
    ASSERT_TRUE(IsWithin(narrowed, x));
    ASSERT_TRUE(IsWithin(operation.narrow_x(narrowed, y, z), narrowed));
  }
}

// A hull that grows loses nothing.
TEST_P(LargeHull, GrowsWithItsOperands) {
  const Operation& operation = GetParam();
  for (int i = 0; i < 20000; ++i) {
    const Hull x = Around(Number());
    const Hull y = Around(Number());
    const Hull wider = Union(x, Around(Number()));
    ASSERT_TRUE(IsWithin(operation.forward(x, y), operation.forward(wider, y)))
        << testing::PrintToString(x) << " in " << testing::PrintToString(wider) << " with "
        << testing::PrintToString(y);
  }
}

}  // namespace
}  // namespace kiv::test
