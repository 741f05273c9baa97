// What every kind of integer inherits: unequal, and the truth of a relation.

#include <gtest/gtest.h>

#include <memory>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "framework/numbers/single_boolean.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

// A domain of a kind given by name, owned by a network of its own.
class Domain {
 public:
  Domain(const char* kind, const Values& values)
      : variable_(Declare(network_, {OpenModules().FindKind(kind), values})) {}

  KivOmbiInteger& operator*() {
    KivOmbiAny* domain = nullptr;
    network_.Update(variable_, [&](KivOmbiAny& any) { domain = &any; });
    return static_cast<KivOmbiInteger&>(*domain);
  }
  KivOmbiInteger* operator->() { return &**this; }
  std::string Text() {
    Kivostrstream out;
    (**this).PrintOn(out);
    return out.Str();
  }

 private:
  KivOmbNetwork network_;
  KivOmbNetwork::VariableId variable_;
};

std::string Truth(const KivOmbiInteger& a, const KivOmbiInteger& b,
                  int (KivOmbiInteger::*relation)(const KivOmbiAny&, KivOmbiBoolean&) const) {
  KivOmbSingleBoolean truth;
  const int code = (a.*relation)(b, truth);
  EXPECT_EQ(code, truth.CheckAny() != 0 ? 0 : 1);
  EXPECT_EQ((a.*relation)(b, truth), 0) << "the second time nothing is new";
  Kivostrstream out;
  truth.PrintOn(out);
  return out.Str();
}

std::string IsEqual(Domain& a, Domain& b) { return Truth(*a, *b, &KivOmbiInteger::CalcIsEqual); }
std::string IsLessOrEqual(Domain& a, Domain& b) {
  return Truth(*a, *b, &KivOmbiInteger::CalcIsLessOrEqual);
}
std::string IsLess(Domain& a, Domain& b) {
  KivOmbSingleBoolean truth;
  a->CalcIsLess(*b, truth);
  Kivostrstream out;
  truth.PrintOn(out);
  return out.Str();
}

TEST(Unequal, RemovesTheValueOfAnOperandThatHoldsExactlyOne) {
  Domain set("enum int", {1, 2, 3});
  Domain one("int", {2});
  EXPECT_EQ(set->CalcUnequalValue(*one), 1);
  EXPECT_EQ(set.Text(), "{ 1, 3 }");
  EXPECT_EQ(set->CalcUnequalValue(*one), 0);
  EXPECT_EQ(one->CalcInverseUnequalValue(*set), 0);
}

TEST(Unequal, LeavesTheTargetWhenTheOperandHoldsMore) {
  Domain set("enum int", {1, 2, 3});
  Domain more("interval int", {1, 2});
  EXPECT_EQ(set->CalcUnequalValue(*more), 0);
  EXPECT_EQ(set->CalcInverseUnequalValue(*more), 0);
  EXPECT_EQ(set.Text(), "{ 1, 2, 3 }");
}

TEST(Unequal, TheInverseNarrowsTheOperand) {
  Domain five("enum int", {5});
  Domain range("interval int", {5, 9});
  EXPECT_EQ(five->CalcInverseUnequalValue(*range), 1);
  EXPECT_EQ(range.Text(), "[6, 9]");
}

TEST(Unequal, LosingTheLastValueIsAContradiction) {
  Domain a("enum int", {5});
  Domain b("enum int", {5});
  EXPECT_EQ(a->CalcUnequalValue(*b), 1);
  EXPECT_EQ(a->IsNil(), 1);
}

TEST(Unequal, AnOperandOfAnotherTypeMakesTheTargetNil) {
  Domain set("enum int", {1, 2, 3});
  KivOmbSingleBoolean truth(true);
  EXPECT_EQ(set->CalcInverseUnequalValue(truth), 1);
  EXPECT_EQ(truth.CheckNil(), 1);
  EXPECT_EQ(set->CalcUnequalValue(KivOmbSingleBoolean(true)), 1);
  EXPECT_EQ(set->IsNil(), 1);
  EXPECT_EQ(set->CalcUnequalValue(KivOmbSingleBoolean(true)), 0);
}

TEST(TruthOfEquality, IsDecidedByFixedAndByDisjointDomains) {
  Domain five("int", {5});
  Domain other_five("enum int", {5});
  Domain low("enum int", {1, 2});
  Domain holes("enum int", {4, 6});
  Domain range("interval int", {4, 6});
  EXPECT_EQ(IsEqual(five, other_five), "true");
  EXPECT_EQ(IsEqual(five, low), "false");
  EXPECT_EQ(IsEqual(low, holes), "false");
  EXPECT_EQ(IsEqual(holes, range), "Any");
  EXPECT_EQ(IsEqual(five, range), "Any");
}

TEST(TruthOfEquality, AHoleDecidesForAFixedValueOfAnyKind) {
  Domain five("int", {5});
  Domain fixed_range("interval int", {5});
  Domain holes("enum int", {4, 6});
  EXPECT_EQ(IsEqual(five, holes), "false");
  EXPECT_EQ(IsEqual(holes, five), "false");
  EXPECT_EQ(IsEqual(fixed_range, holes), "false");
  EXPECT_EQ(IsEqual(holes, fixed_range), "false");
}

TEST(TruthOfOrder, IsDecidedByBounds) {
  Domain low("enum int", {1, 3});
  Domain middle("interval int", {3, 5});
  Domain high("int", {6});
  EXPECT_EQ(IsLess(low, middle), "Any");
  EXPECT_EQ(IsLessOrEqual(low, middle), "true");
  EXPECT_EQ(IsLess(middle, high), "true");
  EXPECT_EQ(IsLess(middle, low), "false");
  EXPECT_EQ(IsLessOrEqual(middle, low), "Any");
  EXPECT_EQ(IsLessOrEqual(high, middle), "false");
  EXPECT_EQ(IsLess(high, high), "false");
  EXPECT_EQ(IsLessOrEqual(high, high), "true");
}

TEST(TruthOfARelation, OfAnUnknownIntegerIsOpen) {
  Domain unknown("enum int", {});
  Domain five("int", {5});
  EXPECT_EQ(IsEqual(unknown, five), "Any");
  EXPECT_EQ(IsLess(five, unknown), "Any");
  EXPECT_EQ(IsLessOrEqual(unknown, five), "Any");
}

TEST(TruthOfARelation, OfNilOrOfAnotherTypeIsNil) {
  Domain five("int", {5});
  Domain nil("enum int", {1});
  nil->SetNilValue();
  EXPECT_EQ(IsEqual(five, nil), "Nil");
  EXPECT_EQ(IsLess(nil, five), "Nil");
  KivOmbSingleBoolean truth;
  EXPECT_EQ(five->CalcIsEqual(KivOmbSingleBoolean(true), truth), 1);
  EXPECT_EQ(truth.CheckNil(), 1);
}

TEST(MayBe, IsMembershipForEveryKind) {
  Domain holes("enum int", {-5, 0, 7});
  for (const std::int32_t value : {-5, 0, 7}) EXPECT_TRUE(holes->MayBe(value));
  for (const std::int32_t value : {-6, -4, 1, 6, 8}) EXPECT_FALSE(holes->MayBe(value));
  Domain range("interval int", {-1, 2});
  EXPECT_TRUE(range->MayBe(0));
  EXPECT_FALSE(range->MayBe(3));
  Domain unknown("enum int", {});
  EXPECT_TRUE(unknown->MayBe(12345));
  unknown->SetNilValue();
  EXPECT_FALSE(unknown->MayBe(12345));
}

}  // namespace
}  // namespace kiv::test
