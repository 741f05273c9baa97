#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "framework/numbers/single_boolean.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

// A relation's core and its inverse cores, for tests that run over several relations.
using Forward = int (KivOmbEnumInteger::*)(const KivOmbEnumInteger&);
using Inverse = int (KivOmbEnumInteger::*)(KivOmbEnumInteger&) const;
using SingleInverse = int (KivOmbEnumInteger::*)(KivOmbSingleInteger&) const;

struct Outcome {
  int code;
  std::string domain;

  friend bool operator==(const Outcome&, const Outcome&) = default;
  friend void PrintTo(const Outcome& o, std::ostream* out) { *out << o.code << ' ' << o.domain; }
};

Outcome Narrow(Forward relation, KivOmbEnumInteger target, const KivOmbEnumInteger& x) {
  const int code = (target.*relation)(x);
  return {code, Text(target)};
}

Outcome NarrowOperand(Inverse relation, const KivOmbEnumInteger& known, KivOmbEnumInteger x) {
  const int code = (known.*relation)(x);
  return {code, Text(x)};
}

Outcome NarrowSingle(SingleInverse relation, const KivOmbEnumInteger& known,
                     KivOmbSingleInteger x) {
  const int code = (known.*relation)(x);
  return {code, Text(x)};
}

constexpr Forward kLessOrEqual = &KivOmbEnumInteger::CalcLessOrEqualValue;
constexpr Forward kLess = &KivOmbEnumInteger::CalcLessValue;
constexpr Forward kNotLess = &KivOmbEnumInteger::CalcNotLessValue;
constexpr Forward kGreater = &KivOmbEnumInteger::CalcNotLessAndUnequalValue;
constexpr Inverse kInverseLessOrEqual = &KivOmbEnumInteger::CalcInverseLessOrEqualValue;
constexpr Inverse kInverseLess = &KivOmbEnumInteger::CalcInverseLessValue;
constexpr Inverse kInverseNotLess = &KivOmbEnumInteger::CalcInverseNotLessValue;
constexpr Inverse kInverseGreater = &KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue;
constexpr SingleInverse kSingleLessOrEqual = &KivOmbEnumInteger::CalcInverseLessOrEqualValue;
constexpr SingleInverse kSingleLess = &KivOmbEnumInteger::CalcInverseLessValue;
constexpr SingleInverse kSingleNotLess = &KivOmbEnumInteger::CalcInverseNotLessValue;
constexpr SingleInverse kSingleGreater = &KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue;

const KivOmbEnumInteger kAny;

TEST(LessOrEqual, KeepsWhatIsAtMostTheGreatestOfTheOther) {
  EXPECT_EQ(Narrow(kLessOrEqual, Set({1, 5, 9}), Set({2, 7})), (Outcome{1, "{ 1, 5 }"}));
  EXPECT_EQ(Narrow(kLessOrEqual, Set({1, 5, 9}), Set({2, 5})), (Outcome{1, "{ 1, 5 }"}));
  EXPECT_EQ(Narrow(kLessOrEqual, Set({1, 5, 9}), Set({9, 10})), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(Narrow(kLessOrEqual, Set({1, 5, 9}), kAny), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(Narrow(kLessOrEqual, kAny, Set({1})), (Outcome{0, "Any"}));
}

TEST(LessOrEqual, InverseKeepsWhatIsAtLeastTheLeastOfThis) {
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, Set({5, 8}), Set({1, 5, 9})),
            (Outcome{1, "{ 5, 9 }"}));
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, Set({4}), Set({1, 5, 9})), (Outcome{1, "{ 5, 9 }"}));
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, Set({1}), Set({1, 5, 9})),
            (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, kAny, Set({1})), (Outcome{0, "1"}));
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, Set({1}), kAny), (Outcome{0, "Any"}));
}

TEST(LessOrEqual, CutToNothingLeavesTheStateToTheLeftoverFlag) {
  EXPECT_EQ(Narrow(kLessOrEqual, Set({5, 9}), Set({3})), (Outcome{1, "Nil"}));
  EXPECT_EQ(Narrow(kLessOrEqual, SetLeftAny({5, 9}), Set({3})), (Outcome{1, "Any"}));
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, Set({20}), Set({5, 9})), (Outcome{1, "Nil"}));
  EXPECT_EQ(NarrowOperand(kInverseLessOrEqual, Set({20}), SetLeftAny({5, 9})), (Outcome{1, "Any"}));
}

TEST(Less, CutsAtTheGreatestOfTheOther) {
  EXPECT_EQ(Narrow(kLess, Set({1, 5, 9}), Set({9})), (Outcome{1, "{ 1, 5 }"}));
  EXPECT_EQ(Narrow(kLess, Set({1, 5, 9}), Set({10})), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(Narrow(kLess, Set({1, 5, 9}), kAny), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(Narrow(kLess, Set({1, kMax}), kAny), (Outcome{0, "{ 1,  Max }"}));
  EXPECT_EQ(Narrow(kLess, kAny, Set({1})), (Outcome{0, "Any"}));
}

TEST(Less, CutsOneMoreWhenTheBoundIsNotAValue) {
  EXPECT_EQ(Narrow(kLess, Set({1, 5, 9}), Set({7})), (Outcome{1, "1"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({3}), Set({1, 5, 9})), (Outcome{1, "9"}));
}

TEST(Less, WithNothingOnTheNearSideIsNilWhateverTheLeftoverFlag) {
  EXPECT_EQ(Narrow(kLess, Set({1, 5, 9}), Set({0})), (Outcome{1, "Nil"}));
  EXPECT_EQ(Narrow(kLess, SetLeftAny({1, 5, 9}), Set({0})), (Outcome{1, "Nil"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({9}), Set({1, 5})), (Outcome{1, "Nil"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({9}), SetLeftAny({1, 5})), (Outcome{1, "Nil"}));
}

TEST(Less, CutToNothingLeavesTheStateToTheLeftoverFlag) {
  EXPECT_EQ(Narrow(kLess, Set({5, 9}), Set({7})), (Outcome{1, "Nil"}));
  EXPECT_EQ(Narrow(kLess, SetLeftAny({5, 9}), Set({7})), (Outcome{1, "Any"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({7}), SetLeftAny({5, 9})), (Outcome{1, "Any"}));
}

TEST(Less, InverseCutsAtTheLeastOfThis) {
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({5}), Set({1, 5, 9})), (Outcome{1, "9"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({0}), Set({1, 5, 9})), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, Set({0}), kAny), (Outcome{0, "Any"}));
}

TEST(Less, InverseOfAnyTakesAwayMinusInfinityAlone) {
  EXPECT_EQ(NarrowOperand(kInverseLess, kAny, Set({kMin, 4})), (Outcome{1, "4"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, kAny, Set({3, 4})), (Outcome{0, "{ 3, 4 }"}));
  EXPECT_EQ(NarrowOperand(kInverseLess, kAny, kAny), (Outcome{0, "Any"}));
}

TEST(NotLess, IsTheMirrorOfLessOrEqual) {
  EXPECT_EQ(Narrow(kNotLess, Set({1, 5, 9}), Set({4, 7})), (Outcome{1, "{ 5, 9 }"}));
  EXPECT_EQ(Narrow(kNotLess, Set({1, 5, 9}), kAny), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(NarrowOperand(kInverseNotLess, Set({2, 7}), Set({1, 5, 9})), (Outcome{1, "{ 1, 5 }"}));
}

TEST(NotLessAndUnequal, IsTheMirrorOfLess) {
  EXPECT_EQ(Narrow(kGreater, Set({1, 5, 9}), Set({5, 7})), (Outcome{1, "9"}));
  EXPECT_EQ(Narrow(kGreater, Set({1, 5, 9}), Set({3})), (Outcome{1, "9"}));
  EXPECT_EQ(Narrow(kGreater, Set({1, 5, 9}), Set({0})), (Outcome{0, "{ 1, 5, 9 }"}));
  EXPECT_EQ(Narrow(kGreater, Set({kMin, 5}), kAny), (Outcome{1, "5"}));
  EXPECT_EQ(NarrowOperand(kInverseGreater, Set({2, 7}), Set({1, 5, 9})), (Outcome{1, "1"}));
  EXPECT_EQ(NarrowOperand(kInverseGreater, kAny, Set({kMin, 5})), (Outcome{0, "{  Min, 5 }"}));
}

TEST(Relations, OfADomainWithItself) {
  KivOmbEnumInteger domain = Set({1, 5, 9});
  EXPECT_EQ(domain.CalcLessOrEqualValue(domain), 0);
  EXPECT_EQ(domain.CalcNotLessValue(domain), 0);
  EXPECT_EQ(domain.CalcLessValue(domain), 1);
  EXPECT_EQ(Text(domain), "{ 1, 5 }");
  EXPECT_EQ(domain.CalcNotLessAndUnequalValue(domain), 1);
  EXPECT_EQ(Text(domain), "5");
}

TEST(Relations, OnASingleAreExact) {
  const KivOmbEnumInteger set = Set({3, 7});
  EXPECT_EQ(NarrowSingle(kSingleLess, set, SubIntBase(3)), (Outcome{1, "Nil"}));
  EXPECT_EQ(NarrowSingle(kSingleLess, set, SubIntBase(4)), (Outcome{0, "4"}));
  EXPECT_EQ(NarrowSingle(kSingleLessOrEqual, set, SubIntBase(3)), (Outcome{0, "3"}));
  EXPECT_EQ(NarrowSingle(kSingleLessOrEqual, set, SubIntBase(2)), (Outcome{1, "Nil"}));
  EXPECT_EQ(NarrowSingle(kSingleGreater, set, SubIntBase(7)), (Outcome{1, "Nil"}));
  EXPECT_EQ(NarrowSingle(kSingleGreater, set, SubIntBase(6)), (Outcome{0, "6"}));
  EXPECT_EQ(NarrowSingle(kSingleNotLess, set, SubIntBase(7)), (Outcome{0, "7"}));
  EXPECT_EQ(NarrowSingle(kSingleNotLess, set, SubIntBase(8)), (Outcome{1, "Nil"}));
  for (const SingleInverse relation :
       {kSingleLess, kSingleLessOrEqual, kSingleGreater, kSingleNotLess}) {
    EXPECT_EQ(NarrowSingle(relation, set, KivOmbSingleInteger()), (Outcome{0, "Any"}));
  }
}

TEST(Equal, IntersectsWithEveryIntegerKind) {
  KivOmbEnumInteger domain = Set({1, 5, 7, 9});
  EXPECT_EQ(domain.CalcEqualValue(Interval(2, 9)), 1);
  EXPECT_EQ(domain.CalcEqualValue(Set({5, 7})), 1);
  EXPECT_EQ(domain.CalcEqualValue(KivOmbSingleInteger(7)), 1);
  EXPECT_EQ(Text(domain), "7");
  EXPECT_EQ(domain.CalcEqualValue(KivOmbEnumInteger()), 0);
}

TEST(Equal, WithAnUnrelatedKindIsNil) {
  KivOmbEnumInteger domain = Set({1});
  EXPECT_EQ(domain.CalcEqualValue(KivOmbSingleBoolean(true)), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.CalcEqualValue(KivOmbSingleBoolean(true)), 1);
}

TEST(Equal, InverseNarrowsEveryIntegerKind) {
  const KivOmbEnumInteger known = Set({5, 7});
  KivOmbEnumInteger set = Set({5, 6});
  EXPECT_EQ(known.CalcInverseEqualValue(set), 1);
  EXPECT_EQ(Text(set), "5");
  KivOmbSingleInteger single(6);
  EXPECT_EQ(known.CalcInverseEqualValue(single), 1);
  EXPECT_EQ(single.CheckNil(), 1);
  KivOmbIntervalInteger interval = Interval(0, 6);
  EXPECT_EQ(known.CalcInverseEqualValue(interval), 1);
  EXPECT_EQ(interval.GetLowerBound(), 5);
  EXPECT_EQ(interval.GetUpperBound(), 5);
}

TEST(Equal, InverseMakesAnUnrelatedKindNil) {
  KivOmbSingleBoolean boolean(true);
  EXPECT_EQ(Set({1}).CalcInverseEqualValue(boolean), 1);
  EXPECT_EQ(boolean.CheckNil(), 1);
}

}  // namespace
