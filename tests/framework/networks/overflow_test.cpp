// Values at and beyond the ends of the integers: never a wrong answer.

#include <gtest/gtest.h>

#include <tuple>

#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/linear_posting.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;

constexpr std::int32_t kMost = 2147483646;

class Overflow : public testing::TestWithParam<const char*> {
 protected:
  KivOmbNetwork::VariableId Add(const Values& values) {
    return Declare(network_, {OpenModules().FindKind(GetParam()), values});
  }
  void PostSum(KivOmbNetwork::VariableId x, KivOmbNetwork::VariableId y,
               KivOmbNetwork::VariableId z) {
    const auto* kind = OpenModules().FindKind(GetParam());
    network_.Post(*OpenModules().operators.Resolve("+", {kind, kind}), x, y, z);
  }

  KivOmbNetwork network_;
};

TEST_P(Overflow, AnUnknownSumThatCanOnlyBeBeyondTheRangeIsAnOverflow) {
  PostSum(Add({kMost - 1, kMost}), Add({1000}), Add({}));
  EXPECT_EQ(network_.Propagate(), Outcome::kOverflow);
  EXPECT_EQ(network_.GetCulprit(), 0u);
}

TEST_P(Overflow, ABoundedSumExcludesWhatIsBeyondTheRange) {
  PostSum(Add({kMost - 1, kMost}), Add({1000}), Add({5, 6}));
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_P(Overflow, AnUnknownSumThatMayBeBeyondTheRangeStaysOpenAbove) {
  const auto x = Add({kMost - 1, kMost});
  const auto z = Add({});
  PostSum(x, Add({0, 1}), z);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network_.GetSummary(z).upper, SubIntBase::kMax);
  EXPECT_EQ(network_.GetSummary(x).cardinality, 2u);
}

TEST_P(Overflow, AContradictionElsewhereComesBeforeAnOverflow) {
  PostSum(Add({kMost}), Add({kMost}), Add({}));
  const auto* kind = OpenModules().FindKind(GetParam());
  network_.Post(*OpenModules().operators.Resolve("=", {kind, kind}), Add({1}), Add({2}),
                KivOmbNetwork::kNone);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_P(Overflow, AnOverflowIsForgottenWithItsLevel) {
  const auto x = Add({1, kMost});
  const auto z = Add({});
  PostSum(x, Add({1000}), z);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  network_.PushLevel();
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(kMost); });
  EXPECT_EQ(network_.Propagate(), Outcome::kOverflow);
  network_.PopLevel();
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(1); });
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network_.GetSummary(z).lower, 1001);
}

TEST_P(Overflow, AScaledValueBeyondTheRangeIsAnOverflowToo) {
  const LinearTerm terms[] = {{1000000000, Add({3})}, {-1, Add({})}};
  PostLinear(network_, terms, LinearRelation::kEqual, 0);
  EXPECT_EQ(network_.Propagate(), Outcome::kOverflow);
}

TEST_P(Overflow, SumsAtTheVeryEndsAreExact) {
  const auto x = Add({-kMost});
  const auto z = Add({});
  PostSum(x, Add({kMost}), z);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network_.GetSummary(z).lower, 0);
  EXPECT_TRUE(network_.GetSummary(z).IsFixed());
}

TEST_P(Overflow, ProductsPowersAndSuccessorsBeyondTheRangeAreToldAsWell) {
  const auto* kind = OpenModules().FindKind(GetParam());
  for (const auto& [symbol, left, right] :
       {std::tuple{"*", 65536, 65536}, {"*", -65536, 65536}, {"^", 2, 31}, {"^", -3, 21}}) {
    SCOPED_TRACE(symbol);
    for (const bool bounded : {false, true}) {
      KivOmbNetwork network;
      const auto x = Declare(network, {kind, {left}});
      const auto y = Declare(network, {kind, {right}});
      const auto z = Declare(network, {kind, bounded ? Values{-7, 7} : Values{}});
      network.Post(*OpenModules().operators.Resolve(symbol, {kind, kind}), x, y, z);
      EXPECT_EQ(network.Propagate(), bounded ? Outcome::kContradiction : Outcome::kOverflow);
    }
  }
  network_.Post(*OpenModules().operators.Resolve("next", {kind}), Add({kMost}),
                KivOmbNetwork::kNone, Add({}));
  EXPECT_EQ(network_.Propagate(), Outcome::kOverflow);
}

TEST(OpenEnd, KeepsItsLastValueSoThatNothingBeyondTheRangeIsTakenForOne) {
  const auto* kind = OpenModules().FindKind("interval int");
  KivOmbNetwork network;
  const auto x = Declare(network, {kind, {}});
  const auto y = Declare(network, {kind, {kMost}});
  const auto row = [&](const char* symbol) {
    return OpenModules().operators.Resolve(symbol, {kind, kind});
  };
  network.Post(*row(">="), x, y, KivOmbNetwork::kNone);
  network.Post(*row("<>"), x, y, KivOmbNetwork::kNone);
  ASSERT_EQ(network.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network.GetSummary(x).lower, kMost);
  EXPECT_FALSE(network.GetSummary(x).IsFixed());
}

INSTANTIATE_TEST_SUITE_P(Kinds, Overflow, testing::Values("enum int", "interval int"),
                         [](const auto& kind) {
                           return std::string(kind.param) == "enum int" ? "EnumInt" : "IntervalInt";
                         });

}  // namespace
}  // namespace kiv::test
