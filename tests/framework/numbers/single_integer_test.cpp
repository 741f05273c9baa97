#include "framework/numbers/single_integer.h"

#include <gtest/gtest.h>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

using Single = KivOmbSingleInteger;

Single NilSingle() {
  Single nil;
  nil.Nil();
  return nil;
}

TEST(SingleInteger, IsAnyByDefaultAndStoresZeroThen) {
  const Single any;
  EXPECT_EQ(any.CheckAny(), 1);
  EXPECT_EQ(any.IsUndefined(), 1);
  EXPECT_EQ(any.CheckNil(), 0);
  EXPECT_EQ(any.GetValue(), 0);
  EXPECT_EQ(any.GetUnicalcValue(), SubIntBase(0));
  EXPECT_EQ(any.GetLowerBound(), kMin);
  EXPECT_EQ(any.GetUpperBound(), kMax);
  EXPECT_EQ(any.GetCardinality(), ~std::uint32_t{0});
}

TEST(SingleInteger, IsConstructedFromAValue) {
  const Single five(SubIntBase(5));
  EXPECT_EQ(five.CheckAny(), 0);
  EXPECT_EQ(five.CheckNil(), 0);
  EXPECT_EQ(five.GetValue(), 5);
  EXPECT_EQ(five.GetUnicalcValue(), SubIntBase(5));
  EXPECT_EQ(five.GetLowerBound(), 5);
  EXPECT_EQ(five.GetUpperBound(), 5);
  EXPECT_EQ(five.GetCardinality(), 1u);
  EXPECT_EQ(Single(INT32_MIN).GetValue(), kMin);
  EXPECT_EQ(Single::sNC_INT_MIN, -2147483647);
  EXPECT_EQ(Single::sNC_INT_MAX, 2147483647);
}

TEST(SingleInteger, NilEmptiesAndReturnsOneEveryTime) {
  Single domain(5);
  EXPECT_EQ(domain.Nil(), 1);
  EXPECT_EQ(domain.Nil(), 1);
  EXPECT_EQ(domain.IsNil(), 1);
  EXPECT_EQ(domain.IsUndefined(), 0);
  EXPECT_EQ(domain.GetCardinality(), 0u);
  EXPECT_EQ(domain.GetValue(), 0);
  EXPECT_EQ(domain.GetLowerBound(), kMax);
  EXPECT_EQ(domain.GetUpperBound(), kMin);
  domain.Any();
  EXPECT_EQ(domain.CheckAny(), 1);
  EXPECT_EQ(domain.GetValue(), 0);
  domain.SetNilValue();
  EXPECT_EQ(domain.CheckNil(), 1);
  domain.SetUndefinedValue();
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(SingleInteger, CopiesItsValueAndNotItsOwner) {
  Single original(5);
  Listener listener(original);
  Single copy(original);
  copy.SetExactValue(6);
  EXPECT_EQ(listener.announcements, 0);
  EXPECT_EQ(original.GetValue(), 5);
  original = copy;
  EXPECT_EQ(listener.announcements, 1);
  EXPECT_EQ(original.GetValue(), 6);
}

TEST(SingleInteger, TakesExactValues) {
  Single domain;
  for (const std::int32_t value : {0, -1, 1, kMin, kMax}) {
    domain.SetExactValue(value);
    EXPECT_EQ(domain.GetCardinality(), 1u);
    EXPECT_EQ(domain.GetValue(), value);
  }
  domain.SetExactValue(INT32_MIN);
  EXPECT_EQ(domain.GetValue(), kMin);
  domain.Nil();
  domain.SetExactValue(3);
  EXPECT_EQ(Text(domain), "3");
}

TEST(SingleInteger, ASecondValueInsertedMakesItAny) {
  Single domain = NilSingle();
  domain.InsertExactValue(4);
  EXPECT_EQ(Text(domain), "4");
  domain.InsertExactValue(4);
  EXPECT_EQ(Text(domain), "4");
  domain.InsertExactValue(5);
  EXPECT_EQ(Text(domain), "Any");
  domain.InsertExactValue(0);  // what an Any stores
  EXPECT_EQ(Text(domain), "Any");
}

TEST(SingleInteger, RemovingItsValueMakesItNil) {
  Single domain(4);
  EXPECT_EQ(domain.RemoveExactValue(3), 0);
  EXPECT_EQ(domain.RemoveExactValue(4), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.RemoveExactValue(4), 0);
  Single any;
  EXPECT_EQ(any.RemoveExactValue(0), 0);
  EXPECT_EQ(Text(any), "Any");
  Single least(kMin);
  EXPECT_EQ(least.RemoveExactValue(INT32_MIN), 1);
}

TEST(SingleInteger, AValueBeyondABoundBecomesNil) {
  Single domain(4);
  domain.SetLowerBound(4);
  domain.SetUpperBound(4);
  EXPECT_EQ(Text(domain), "4");
  domain.SetLowerBound(5);
  EXPECT_EQ(Text(domain), "Nil");
  domain.SetLowerBound(0);
  EXPECT_EQ(Text(domain), "Nil");
  domain = Single(4);
  domain.SetUpperBound(3);
  EXPECT_EQ(Text(domain), "Nil");
  Single any;
  any.SetLowerBound(kMax);
  any.SetUpperBound(kMin);
  EXPECT_EQ(Text(any), "Any");
}

TEST(SingleInteger, FindsTheNextAndThePreviousValue) {
  const Single domain(4);
  EXPECT_EQ(domain.GetNextExactValue(kMin), 4);
  EXPECT_EQ(domain.GetNextExactValue(3), 4);
  EXPECT_NE(domain.GetNextExactValue(4), 4);
  EXPECT_NE(domain.GetNextExactValue(kMax), 4);
  EXPECT_EQ(domain.GetPrevExactValue(kMax), 4);
  EXPECT_EQ(domain.GetPrevExactValue(5), 4);
  EXPECT_NE(domain.GetPrevExactValue(4), 4);
  EXPECT_NE(domain.GetPrevExactValue(INT32_MIN), 4);
  const Single any;
  EXPECT_EQ(any.GetNextExactValue(-5), -4);
  EXPECT_EQ(any.GetNextExactValue(kMax), kMax);
  EXPECT_EQ(any.GetPrevExactValue(5), 4);
  EXPECT_EQ(any.GetPrevExactValue(INT32_MIN), kMin);
  EXPECT_EQ(NilSingle().GetNextExactValue(3), 3);
  EXPECT_EQ(NilSingle().GetPrevExactValue(3), 3);
}

TEST(SingleInteger, AssignsWhatOneValueCanHold) {
  Single domain(9);
  domain.Assign(Single(3));
  EXPECT_EQ(Text(domain), "3");
  domain.Assign(Interval(4, 4));
  EXPECT_EQ(Text(domain), "4");
  domain.Assign(Interval(4, 5));
  EXPECT_EQ(Text(domain), "Any");
  domain.Assign(*MakeInteger("enum int", {6}));
  EXPECT_EQ(Text(domain), "6");
  domain.Assign(*MakeInteger("enum int", {6, 8}));
  EXPECT_EQ(Text(domain), "Any");
  domain.Assign(*MakeInteger("enum int", {}));
  EXPECT_EQ(Text(domain), "Nil");
  domain.Assign(*MakeAny("enum int"));
  EXPECT_EQ(Text(domain), "Any");
  domain.Assign(KivOmbSingleBoolean(true));
  EXPECT_EQ(Text(domain), "Nil");
}

TEST(SingleInteger, UnitesToAnyUnlessTheValuesAreOne) {
  for (const auto* kind : {"int", "interval int", "enum int"}) {
    SCOPED_TRACE(kind);
    Single domain = NilSingle();
    domain.Unite(*MakeInteger(kind, {}));
    EXPECT_EQ(Text(domain), "Nil");
    domain.Unite(*MakeInteger(kind, {5}));
    EXPECT_EQ(Text(domain), "5");
    domain.Unite(*MakeInteger(kind, {5}));
    domain.Unite(*MakeInteger(kind, {}));
    EXPECT_EQ(Text(domain), "5");
    domain.Unite(*MakeInteger(kind, {6}));
    EXPECT_EQ(Text(domain), "Any");
    domain.Unite(*MakeInteger(kind, {0}));
    EXPECT_EQ(Text(domain), "Any");
    domain = Single(5);
    domain.Unite(*MakeAny(kind));
    EXPECT_EQ(Text(domain), "Any");
  }
  Single domain(5);
  domain.Unite(KivOmbSingleBoolean(true));
  EXPECT_EQ(Text(domain), "5");
  domain.Unite(Interval(5, 8));
  EXPECT_EQ(Text(domain), "Any");
}

// Known only by its virtual operations: the enumerated kind belongs to another library.
TEST(SingleInteger, EqualsAnOperandOfAnyKind) {
  for (const auto* kind : {"int", "interval int", "enum int"}) {
    SCOPED_TRACE(kind);
    Single any;
    EXPECT_EQ(any.CalcEqualValue(*MakeAny(kind)), 0);
    EXPECT_EQ(any.CalcEqualValue(*MakeInteger(kind, {7})), 1);
    EXPECT_EQ(Text(any), "7");
    EXPECT_EQ(any.CalcEqualValue(*MakeInteger(kind, {7})), 0);
    EXPECT_EQ(any.CalcEqualValue(*MakeAny(kind)), 0);
    EXPECT_EQ(any.CalcEqualValue(*MakeInteger(kind, {8})), 1);
    EXPECT_EQ(Text(any), "Nil");
    EXPECT_EQ(any.CalcEqualValue(*MakeInteger(kind, {})), 0);
    Single nil(7);
    EXPECT_EQ(nil.CalcEqualValue(*MakeInteger(kind, {})), 1);
    EXPECT_EQ(Text(nil), "Nil");
  }
  Single four(4);
  EXPECT_EQ(four.CalcEqualValue(*MakeInteger("enum int", {3, 4, 9})), 0);
  EXPECT_EQ(four.CalcEqualValue(*MakeInteger("enum int", {3, 5, 9})), 1);
  EXPECT_EQ(Text(four), "Nil");
  Single any;
  EXPECT_EQ(any.CalcEqualValue(Interval(1, 2)), 0);
  EXPECT_EQ(any.CalcEqualValue(*MakeInteger("enum int", {1, 5})), 0);
  EXPECT_EQ(Text(any), "Any");
  EXPECT_EQ(any.CalcEqualValue(KivOmbSingleBoolean(true)), 1);
  EXPECT_EQ(Text(any), "Nil");
}

TEST(SingleInteger, IntersectsLikeEqual) {
  Single domain;
  domain.Intersect(*MakeInteger("enum int", {3}));
  EXPECT_EQ(Text(domain), "3");
  domain.Intersect(Interval(4, 9));
  EXPECT_EQ(Text(domain), "Nil");
}

TEST(SingleInteger, KnowsWithWhomItMeets) {
  EXPECT_EQ(Single(3).IsIntersected(*MakeInteger("enum int", {1, 3, 5})), 1);
  EXPECT_EQ(Single(4).IsIntersected(*MakeInteger("enum int", {1, 3, 5})), 0);
  EXPECT_EQ(Single(4).IsIntersected(*MakeAny("enum int")), 1);
  EXPECT_EQ(Single(4).IsIntersected(Interval(1, 5)), 1);
  EXPECT_EQ(Single(6).IsIntersected(Interval(1, 5)), 0);
  EXPECT_EQ(Single(6).IsIntersected(Single(6)), 1);
  EXPECT_EQ(Single(6).IsIntersected(Single(7)), 0);
  EXPECT_EQ(Single().IsIntersected(Interval(1, 5)), 1);
  EXPECT_EQ(Single().IsIntersected(NilSingle()), 0);
  EXPECT_EQ(NilSingle().IsIntersected(Single()), 0);
  EXPECT_EQ(Single().IsIntersected(KivOmbSingleBoolean()), 0);
}

TEST(SingleInteger, OneValueGoesAsAWhole) {
  using enum KivOmbiAny::ValueSelection;
  for (const auto selection : {kLowerHalf, kSmallest, kGreatest}) {
    Single domain(-3);
    Single other;
    domain.Bisect(other, selection);
    EXPECT_EQ(Text(domain) + " " + Text(other), "Nil -3");
  }
  Single domain(-3);
  Single other;
  domain.Bisect(other, kUpperHalf);
  EXPECT_EQ(Text(domain) + " " + Text(other), "-3 Nil");
}

TEST(SingleInteger, BisectionLeavesAnyAndNilAloneAndEndsAtStrangers) {
  using enum KivOmbiAny::ValueSelection;
  Single other(8);
  Single any;
  any.Bisect(other, kLowerHalf);
  EXPECT_EQ(Text(any) + " " + Text(other), "Any 8");
  Single nil = NilSingle();
  nil.Bisect(other, kLowerHalf);
  EXPECT_EQ(Text(nil) + " " + Text(other), "Nil 8");
  Single domain(5);
  KivOmbIntervalInteger stranger = Interval(1, 2);
  domain.Bisect(stranger, kLowerHalf);
  EXPECT_EQ(Text(domain) + " " + Text(stranger), "Nil [1, 2]");
}

TEST(SingleInteger, NarrowsToConstants) {
  Single any;
  EXPECT_EQ(any.CalcZeroValue(), 1);
  EXPECT_EQ(Text(any), "0");
  EXPECT_EQ(any.CalcZeroValue(), 0);
  EXPECT_EQ(any.CalcOneValue(), 1);
  EXPECT_EQ(Text(any), "Nil");
  EXPECT_EQ(any.CalcOneValue(), 0);
  Single one;
  EXPECT_EQ(one.CalcOneValue(), 1);
  EXPECT_EQ(Text(one), "1");
  Single least;
  EXPECT_EQ(least.CalcMinValue(), 1);
  EXPECT_EQ(Text(least), "Min");
  Single most;
  EXPECT_EQ(most.CalcMaxValue(), 1);
  EXPECT_EQ(Text(most), "Max");
}

TEST(SingleInteger, SumsSaturate) {
  Single sum;
  EXPECT_EQ(sum.CalcSumValue(Single(kMax - 1), Single(5)), 1);
  EXPECT_EQ(Text(sum), "Max");
  Single term;
  EXPECT_EQ(Single(kMin + 1).CalcFirstInverseSumValue(term, Single(5)), 1);
  EXPECT_EQ(Text(term), "Min");
  Single open;
  EXPECT_EQ(open.CalcSumValue(Single(kMax), Single(kMin)), 0);
  EXPECT_EQ(Text(open), "Any");
}

}  // namespace
}  // namespace kiv::test
