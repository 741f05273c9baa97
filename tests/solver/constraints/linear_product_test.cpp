// Products with constants, z = c * x, as linear equations.

#include <gtest/gtest.h>

#include <algorithm>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/linear_posting.h"
#include "tests/support/constraint_case.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

constexpr std::int32_t kMost = 2147483646;
constexpr std::int32_t kMax = SubIntBase::kMax;

const KivOmbiObjectDescriptor* Kind(const char* name) { return OpenModules().FindKind(name); }

void PostProduct(KivOmbNetwork& network, VariableId x, std::int32_t coefficient, VariableId z) {
  const LinearTerm terms[] = {{coefficient, x}, {-1, z}};
  PostLinear(network, terms, LinearRelation::kEqual, 0);
}

ConstraintCase ProductOf(std::vector<Declared> variables, std::vector<VariableId> arguments,
                         std::int32_t coefficient) {
  return {.name = "product with " + std::to_string(coefficient),
          .variables = std::move(variables),
          .arguments = std::move(arguments),
          .post =
              [=](KivOmbNetwork& network, auto posted_over) {
                PostProduct(network, posted_over[0], coefficient, posted_over[1]);
              },
          .holds =
              [=](const Assignment& values) {
                return values[1] == std::int64_t{coefficient} * values[0];
              },
          .strength = Strength::kDomain};
}

// `values`, their products with `coefficient` and the neighbours of both that are integers.
Values AroundProducts(const Values& values, std::int64_t coefficient) {
  Values around;
  for (const std::int64_t value : values) {
    for (const std::int64_t center : {value, value * coefficient}) {
      for (std::int64_t near = center - 1; near <= center + 1; ++near) {
        if (-kMost <= near && near <= kMost) around.push_back(static_cast<std::int32_t>(near));
      }
    }
  }
  std::ranges::sort(around);
  return around;
}

TEST(LinearProduct, StandsUnderBruteForce) {
  static constexpr std::int32_t kCoefficients[] = {
      0, 1, -1, 2, -2, 3, -3, 7, -12, 1000000007, -1000000007, kMost, -kMost, kMax, INT32_MIN};
  const Values small = Range(-7, 7);
  const Values ends = {-kMost, -kMost + 1, -kMost + 2,    -kMost / 2 - 1, -kMost / 2, -1,   0,
                       1,      kMost / 2,  kMost / 2 + 1, kMost - 2,      kMost - 1,  kMost};
  const std::uint64_t first = Seed(1);
  std::size_t with_solutions = 0;
  for (std::uint64_t seed = first; seed < first + Times(3000); ++seed) {
    Generator random(seed);
    const std::int32_t coefficient = PickOf(random, kCoefficients);
    const Values& values = OneIn(random, 4) ? ends : small;
    const ConstraintCase product =
        ProductOf({RandomVariable(random, PickOf(random, kIntegerKinds), values, 6),
                   RandomVariable(random, PickOf(random, kIntegerKinds),
                                  AroundProducts(values, coefficient), 20)},
                  {0, 1}, coefficient);
    CheckConstraint(product, seed);
    if (testing::Test::HasFailure()) return;
    KivOmbNetwork network;
    for (const Declared& variable : product.variables) Declare(network, variable);
    product.post(network, product.arguments);
    with_solutions += network.Propagate() == Outcome::kFixpoint;
  }
  EXPECT_GT(with_solutions, Times(3000) / 10);
}

TEST(LinearProduct, OfAVariableByItselfLeavesZeroOrEverything) {
  for (const char* kind : kIntegerKinds) {
    for (const std::int32_t coefficient : {0, 1, -1, 2, -2, 5, kMax, INT32_MIN}) {
      SCOPED_TRACE(std::string(kind) + " " + std::to_string(coefficient));
      std::vector<Values> domains{{0}, {3}};
      if (std::string_view(kind) != "int") {
        domains = {Range(-5, 5), Range(1, 6), Range(-6, -1), {0}, {3}};
      }
      for (const Values& values : domains) {
        CheckConstraint(ProductOf({{Kind(kind), values}}, {0, 0}, coefficient), Seed(1));
      }
    }
  }
}

TEST(LinearProduct, OfAWideIntervalByItselfComesToAnEnd) {
  for (const std::int32_t coefficient : {-1, 2, -2, 3, kMax}) {
    SCOPED_TRACE(coefficient);
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind("interval int"), {1, kMost}});
    PostProduct(network, x, coefficient, x);
    EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
  }
}

TEST(LinearProduct, NarrowsWideIntervalsByTheirBounds) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("interval int"), {-1000000, 2000000}});
  const auto z = Declare(network, {Kind("interval int"), {-5000001, 4000001}});
  PostProduct(network, x, -3, z);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "[-1000000, 1666667]");
  EXPECT_EQ(Text(network, z), "[-5000001, 3000000]");
}

// So wide that no value is looked at.
TEST(LinearProduct, BoundsAreRoundedInwards) {
  const auto quotients = [](std::int32_t coefficient, const Values& products) {
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind("interval int"), {-1000000000, 1000000000}});
    const auto z = Declare(network, {Kind("interval int"), products});
    PostProduct(network, x, coefficient, z);
    network.Propagate();
    return Text(network, x);
  };
  EXPECT_EQ(quotients(3, {-5000000, 5000000}), "[-1666666, 1666666]");
  EXPECT_EQ(quotients(-3, {-5000000, 5000000}), "[-1666666, 1666666]");
  EXPECT_EQ(quotients(3, {4000000, 90000001}), "[1333334, 30000000]");
  EXPECT_EQ(quotients(-3, {4000000, 90000001}), "[-30000000, -1333334]");
  EXPECT_EQ(quotients(2000000000, {1, 1999999999}), "Nil");
  EXPECT_EQ(quotients(-2000000000, {1, 1999999999}), "Nil");
}

TEST(LinearProduct, NothingUnknownIsBetweenTwoProducts) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {}});
  const auto z = Declare(network, {Kind("interval int"), {1, 1999999999}});
  PostProduct(network, x, 2000000000, z);
  EXPECT_EQ(network.Propagate(), Outcome::kContradiction);
}

TEST(LinearProduct, AnUnknownVariableTakesTheImageOfTheOther) {
  for (const char* kind : kIntegerKinds) {
    SCOPED_TRACE(kind);
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind("enum int"), {-1, 2, 5}});
    const auto products = Declare(network, {Kind(kind), {}});
    PostProduct(network, x, 3, products);
    const auto z = Declare(network, {Kind("enum int"), {-7, -6, 0, 5, 9}});
    const auto quotients = Declare(network, {Kind(kind), {}});
    PostProduct(network, quotients, -3, z);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    const std::string_view name = kind;
    EXPECT_EQ(Text(network, products), name == "enum int"       ? "{ -3, 6, 15 }"
                                       : name == "interval int" ? "[-3, 15]"
                                                                : "Any");
    EXPECT_EQ(Text(network, quotients), name == "enum int"       ? "{ -3, 0, 2 }"
                                        : name == "interval int" ? "[-3, 2]"
                                                                 : "Any");
    EXPECT_EQ(Text(network, z), "{ -6, 0, 9 }");
  }
}

TEST(LinearProduct, AnUnknownSingleTakesTheOneValueThereIs) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {4}});
  const auto z = Declare(network, {Kind("int"), {}});
  PostProduct(network, x, -5, z);
  const auto y = Declare(network, {Kind("int"), {}});
  PostProduct(network, y, 2, x);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, z), "-20");
  EXPECT_EQ(Text(network, y), "2");
}

TEST(LinearProduct, ByZeroGivesZeroWhateverTheOther) {
  for (const char* kind : kIntegerKinds) {
    SCOPED_TRACE(kind);
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind(kind), {}});
    const auto z = Declare(network, {Kind(kind), {}});
    PostProduct(network, x, 0, z);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(Text(network, x), "Any");
    EXPECT_EQ(Text(network, z), "0");
  }
}

TEST(LinearProduct, AnImageThatAKindCannotHoldStaysUnknown) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("interval int"), {1, 3000}});
  const auto z = Declare(network, {Kind("enum int"), {}});
  PostProduct(network, x, 2, z);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, z), "Any");
  Restrict(network, x, {7, 9});
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, z), "{ 14, 16, 18 }");
}

class LinearProductOverflow : public testing::TestWithParam<const char*> {};

// Products beyond the range are excluded by a bounded variable only; for an open one they stay
// possible, and the search has to say so.
TEST_P(LinearProductOverflow, AnOpenProductExcludesNoFactor) {
  for (const std::int32_t sign : {1, -1}) {
    SCOPED_TRACE(sign);
    KivOmbNetwork network;
    const auto x = Declare(network, {Kind("enum int"), {1, 2, 2500}});
    const auto z = Declare(network, {Kind(GetParam()), {}});
    PostProduct(network, x, sign * 1000000, z);
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(network.GetSummary(x).cardinality, 3u);
    network.PushLevel();
    Restrict(network, x, {2500});
    EXPECT_EQ(network.Propagate(), Outcome::kOverflow);
    network.PopLevel();
    Restrict(network, x, {2});
    ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
    EXPECT_EQ(network.GetSummary(z).lower, sign * 2000000);
  }
}

TEST_P(LinearProductOverflow, ABoundedProductExcludesFactors) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {1, 2, 2500}});
  const auto z = Declare(network, {Kind(GetParam()), {2000000, kMost}});
  PostProduct(network, x, 1000000, z);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, x), "2");
}

INSTANTIATE_TEST_SUITE_P(Kinds, LinearProductOverflow, testing::Values("enum int", "interval int"),
                         [](const auto& kind) {
                           return std::string(kind.param) == "enum int" ? "EnumInt" : "IntervalInt";
                         });

// A product known from below alone must not be closed from above by looking at its few "values".
TEST(LinearProduct, AProductNearTheEndStaysOpen) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("enum int"), {1073741822, 1073741823, 1073741830}});
  const auto z = Declare(network, {Kind("interval int"), {}});
  PostProduct(network, x, 2, z);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(network, z), "[2147483644, Max]");
  EXPECT_EQ(network.GetSummary(x).cardinality, 3u);
  Restrict(network, x, {1073741830});
  EXPECT_EQ(network.Propagate(), Outcome::kOverflow);
}

}  // namespace
}  // namespace kiv::test
