#include "framework/numbers/interval_integer.h"

#include <gtest/gtest.h>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

using Single = KivOmbSingleInteger;

KivOmbIntervalInteger NilInterval() { return Interval(1, 0); }

TEST(IntervalInteger, TheWidestIntervalIsAny) {
  for (const KivOmbIntervalInteger& any :
       {KivOmbIntervalInteger(), Interval(kMin, kMax), Interval(INT32_MIN, kMax)}) {
    EXPECT_EQ(any.CheckAny(), 1);
    EXPECT_EQ(any.IsUndefined(), 1);
    EXPECT_EQ(any.IsNil(), 0);
    EXPECT_EQ(any.GetLowerBound(), kMin);
    EXPECT_EQ(any.GetUpperBound(), kMax);
    EXPECT_EQ(any.GetCardinality(), ~std::uint32_t{0});
  }
  EXPECT_EQ(Interval(kMin, kMax - 1).CheckAny(), 0);
  EXPECT_EQ(Interval(kMin + 1, kMax).CheckAny(), 0);
}

TEST(IntervalInteger, AnEmptyIntervalIsNil) {
  for (const KivOmbIntervalInteger& nil : {Interval(3, 2), Interval(kMax, kMin)}) {
    EXPECT_EQ(nil.CheckNil(), 1);
    EXPECT_EQ(nil.IsNil(), 1);
    EXPECT_EQ(nil.IsUndefined(), 0);
    EXPECT_EQ(nil.GetLowerBound(), kMax);
    EXPECT_EQ(nil.GetUpperBound(), kMin);
    EXPECT_EQ(nil.GetCardinality(), 0u);
  }
}

TEST(IntervalInteger, CountsItsValues) {
  EXPECT_EQ(Interval(-2, 2).GetCardinality(), 5u);
  EXPECT_EQ(Interval(7, 7).GetCardinality(), 1u);
  EXPECT_EQ(Interval(kMin + 1, kMax - 1).GetCardinality(), 4294967293u);
}

TEST(IntervalInteger, NilEmptiesAndReturnsOneEveryTime) {
  KivOmbIntervalInteger domain = Interval(1, 5);
  EXPECT_EQ(domain.Nil(), 1);
  EXPECT_EQ(domain.Nil(), 1);
  EXPECT_EQ(Text(domain), "Nil");
  domain.Any();
  EXPECT_EQ(Text(domain), "Any");
  domain.SetNilValue();
  EXPECT_EQ(Text(domain), "Nil");
  domain.SetUndefinedValue();
  EXPECT_EQ(Text(domain), "Any");
}

TEST(IntervalInteger, CopiesItsValueAndNotItsOwner) {
  KivOmbIntervalInteger original = Interval(1, 5);
  Listener listener(original);
  KivOmbIntervalInteger copy(original);
  copy.SetExactValue(3);
  EXPECT_EQ(listener.announcements, 0);
  original = copy;
  EXPECT_EQ(listener.announcements, 1);
  EXPECT_EQ(Text(original), "3");
}

TEST(IntervalInteger, IntersectsWithAClosedInterval) {
  KivOmbIntervalInteger domain;
  EXPECT_EQ(domain.Intersect(SubdefInt(kMin, kMax)), 0);
  EXPECT_EQ(domain.Intersect(SubdefInt(-3, 9)), 1);
  EXPECT_EQ(Text(domain), "[-3, 9]");
  EXPECT_EQ(domain.Intersect(SubdefInt(-3, 9)), 0);
  EXPECT_EQ(domain.Intersect(SubdefInt(-9, 5)), 1);
  EXPECT_EQ(Text(domain), "[-3, 5]");
  EXPECT_EQ(domain.Intersect(SubdefInt(5, 7)), 1);
  EXPECT_EQ(Text(domain), "5");
  EXPECT_EQ(domain.Intersect(SubdefInt(6, 7)), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.Intersect(SubdefInt(6, 7)), 0);
}

TEST(IntervalInteger, IntersectingWithAnEmptyIntervalGivesNil) {
  KivOmbIntervalInteger any;
  EXPECT_EQ(any.Intersect(SubdefInt(5, 4)), 1);
  EXPECT_EQ(Text(any), "Nil");
  KivOmbIntervalInteger domain = Interval(1, 9);
  EXPECT_EQ(domain.Intersect(SubdefInt(kMax, kMin)), 1);
  EXPECT_EQ(Text(domain), "Nil");
}

TEST(IntervalInteger, OnlyABoundCanBeRemoved) {
  KivOmbIntervalInteger domain = Interval(1, 5);
  EXPECT_EQ(domain.RemoveExactValue(3), 0);
  EXPECT_EQ(domain.RemoveExactValue(0), 0);
  EXPECT_EQ(domain.RemoveExactValue(6), 0);
  EXPECT_EQ(Text(domain), "[1, 5]");
  EXPECT_EQ(domain.RemoveExactValue(1), 1);
  EXPECT_EQ(domain.RemoveExactValue(5), 1);
  EXPECT_EQ(Text(domain), "[2, 4]");
  domain = Interval(3, 3);
  EXPECT_EQ(domain.RemoveExactValue(3), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.RemoveExactValue(3), 0);
}

TEST(IntervalInteger, BoundsCanBeRemovedAtTheEndsOfTheIntegers) {
  KivOmbIntervalInteger domain = Interval(kMin, 0);
  EXPECT_EQ(domain.RemoveExactValue(INT32_MIN), 1);
  EXPECT_EQ(domain.GetLowerBound(), kMin + 1);
  domain = Interval(0, kMax);
  EXPECT_EQ(domain.RemoveExactValue(kMax), 1);
  EXPECT_EQ(domain.GetUpperBound(), kMax - 1);
  KivOmbIntervalInteger any;
  for (const std::int32_t value : {5, kMin, kMax}) EXPECT_EQ(any.RemoveExactValue(value), 0);
  EXPECT_EQ(Text(any), "Any");
}

TEST(IntervalInteger, InsertionGivesTheHull) {
  KivOmbIntervalInteger domain = NilInterval();
  domain.InsertExactValue(4);
  EXPECT_EQ(Text(domain), "4");
  domain.InsertExactValue(-2);
  EXPECT_EQ(Text(domain), "[-2, 4]");
  domain.InsertExactValue(1);
  EXPECT_EQ(Text(domain), "[-2, 4]");
  domain.InsertExactValue(INT32_MIN);
  EXPECT_EQ(Text(domain), "[Min, 4]");
  domain.InsertExactValue(kMax);
  EXPECT_EQ(Text(domain), "Any");
}

TEST(IntervalInteger, SetsExactValuesAndBounds) {
  KivOmbIntervalInteger domain;
  domain.SetLowerBound(-5);
  EXPECT_EQ(Text(domain), "[-5, Max]");
  domain.SetUpperBound(5);
  EXPECT_EQ(Text(domain), "[-5, 5]");
  domain.SetLowerBound(-9);
  domain.SetUpperBound(9);
  EXPECT_EQ(Text(domain), "[-5, 5]");
  domain.SetLowerBound(5);
  EXPECT_EQ(Text(domain), "5");
  domain.SetUpperBound(4);
  EXPECT_EQ(Text(domain), "Nil");
  domain.SetLowerBound(0);
  domain.SetUpperBound(0);
  EXPECT_EQ(Text(domain), "Nil");
  domain.SetExactValue(INT32_MIN);
  EXPECT_EQ(domain.GetUpperBound(), kMin);
  domain.SetExactValue(6);
  EXPECT_EQ(Text(domain), "6");
}

TEST(IntervalInteger, FindsTheNextAndThePreviousValue) {
  const KivOmbIntervalInteger domain = Interval(-2, 3);
  EXPECT_EQ(domain.GetNextExactValue(kMin), -2);
  EXPECT_EQ(domain.GetNextExactValue(-3), -2);
  EXPECT_EQ(domain.GetNextExactValue(-2), -1);
  EXPECT_EQ(domain.GetNextExactValue(2), 3);
  EXPECT_GT(domain.GetNextExactValue(3), 3);
  EXPECT_EQ(domain.GetPrevExactValue(kMax), 3);
  EXPECT_EQ(domain.GetPrevExactValue(4), 3);
  EXPECT_EQ(domain.GetPrevExactValue(-1), -2);
  EXPECT_LT(domain.GetPrevExactValue(-2), -2);
  EXPECT_EQ(KivOmbIntervalInteger().GetNextExactValue(kMax), kMax);
  EXPECT_EQ(KivOmbIntervalInteger().GetPrevExactValue(INT32_MIN), kMin);
  EXPECT_EQ(NilInterval().GetNextExactValue(3), 3);
  EXPECT_EQ(NilInterval().GetPrevExactValue(3), 3);
}

TEST(IntervalInteger, TakesTheHullOfAnyKind) {
  KivOmbIntervalInteger domain;
  domain.Assign(*MakeInteger("enum int", {-4, 1, 9}));
  EXPECT_EQ(Text(domain), "[-4, 9]");
  domain.Assign(Single(3));
  EXPECT_EQ(Text(domain), "3");
  domain.Assign(Interval(1, 2));
  EXPECT_EQ(Text(domain), "[1, 2]");
  domain.Assign(*MakeAny("enum int"));
  EXPECT_EQ(Text(domain), "Any");
  domain.Assign(*MakeInteger("enum int", {}));
  EXPECT_EQ(Text(domain), "Nil");
  domain.Any();
  domain.Assign(KivOmbSingleBoolean(true));
  EXPECT_EQ(Text(domain), "Nil");
}

TEST(IntervalInteger, UnitesToTheHull) {
  for (const auto* kind : {"int", "interval int", "enum int"}) {
    SCOPED_TRACE(kind);
    KivOmbIntervalInteger domain = NilInterval();
    domain.Unite(*MakeInteger(kind, {}));
    EXPECT_EQ(Text(domain), "Nil");
    domain.Unite(*MakeInteger(kind, {5}));
    EXPECT_EQ(Text(domain), "5");
    domain.Unite(*MakeInteger(kind, {-1}));
    EXPECT_EQ(Text(domain), "[-1, 5]");
    domain.Unite(*MakeInteger(kind, {}));
    domain.Unite(*MakeInteger(kind, {2}));
    EXPECT_EQ(Text(domain), "[-1, 5]");
    domain.Unite(*MakeAny(kind));
    EXPECT_EQ(Text(domain), "Any");
  }
  KivOmbIntervalInteger domain = Interval(1, 2);
  domain.Unite(KivOmbSingleBoolean(true));
  EXPECT_EQ(Text(domain), "[1, 2]");
}

TEST(IntervalInteger, EqualsTheHullOfAnyKind) {
  KivOmbIntervalInteger domain = Interval(0, 9);
  EXPECT_EQ(domain.CalcEqualValue(*MakeAny("enum int")), 0);
  EXPECT_EQ(domain.CalcEqualValue(*MakeInteger("enum int", {-4, 1, 8, 20})), 0);
  EXPECT_EQ(domain.CalcEqualValue(*MakeInteger("enum int", {2, 8})), 1);
  EXPECT_EQ(Text(domain), "[2, 8]");
  EXPECT_EQ(domain.CalcEqualValue(Interval(-1, 7)), 1);
  EXPECT_EQ(domain.CalcEqualValue(Single()), 0);
  EXPECT_EQ(domain.CalcEqualValue(Single(4)), 1);
  EXPECT_EQ(Text(domain), "4");
  EXPECT_EQ(domain.CalcEqualValue(Single(5)), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.CalcEqualValue(Single(5)), 0);
  KivOmbIntervalInteger any;
  any.Intersect(*MakeInteger("enum int", {2, 8}));
  EXPECT_EQ(Text(any), "[2, 8]");
  EXPECT_EQ(any.CalcEqualValue(KivOmbSingleBoolean(true)), 1);
  EXPECT_EQ(Text(any), "Nil");
}

TEST(IntervalInteger, KnowsWithWhomItMeets) {
  const KivOmbIntervalInteger domain = Interval(2, 4);
  EXPECT_EQ(domain.IsIntersected(Interval(4, 9)), 1);
  EXPECT_EQ(domain.IsIntersected(Interval(0, 2)), 1);
  EXPECT_EQ(domain.IsIntersected(Interval(5, 9)), 0);
  EXPECT_EQ(domain.IsIntersected(Interval(0, 1)), 0);
  EXPECT_EQ(domain.IsIntersected(*MakeInteger("enum int", {0, 3, 9})), 1);
  EXPECT_EQ(domain.IsIntersected(*MakeInteger("enum int", {0, 1})), 0);
  EXPECT_EQ(domain.IsIntersected(*MakeAny("enum int")), 1);
  EXPECT_EQ(domain.IsIntersected(*MakeInteger("enum int", {})), 0);
  EXPECT_EQ(domain.IsIntersected(Single(2)), 1);
  EXPECT_EQ(domain.IsIntersected(Single(5)), 0);
  EXPECT_EQ(Interval(3, 3).IsIntersected(*MakeInteger("enum int", {1, 5})), 0);
  EXPECT_EQ(Interval(3, 3).IsIntersected(*MakeInteger("enum int", {1, 3, 5})), 1);
  EXPECT_EQ(NilInterval().IsIntersected(KivOmbIntervalInteger()), 0);
  EXPECT_EQ(KivOmbIntervalInteger().IsIntersected(KivOmbSingleBoolean()), 0);
}

TEST(IntervalInteger, SplitsAtTheFloorOfTheMiddle) {
  using enum KivOmbiAny::ValueSelection;
  const auto split = [](std::int32_t lower, std::int32_t upper,
                        KivOmbiAny::ValueSelection selection) {
    KivOmbIntervalInteger domain = Interval(lower, upper);
    KivOmbIntervalInteger other = Interval(70, 80);
    domain.Bisect(other, selection);
    return Text(domain) + " gave " + Text(other);
  };
  EXPECT_EQ(split(1, 4, kLowerHalf), "[3, 4] gave [1, 2]");
  EXPECT_EQ(split(1, 4, kUpperHalf), "[1, 2] gave [3, 4]");
  EXPECT_EQ(split(1, 5, kLowerHalf), "[4, 5] gave [1, 3]");
  EXPECT_EQ(split(-5, -2, kLowerHalf), "[-3, -2] gave [-5, -4]");
  EXPECT_EQ(split(-1, 0, kLowerHalf), "0 gave -1");
  EXPECT_EQ(split(-1, 0, kUpperHalf), "-1 gave 0");
  EXPECT_EQ(split(-5, 5, kSmallest), "[-4, 5] gave -5");
  EXPECT_EQ(split(-5, 5, kGreatest), "[-5, 4] gave 5");
  EXPECT_EQ(split(kMin + 1, kMax - 1, kLowerHalf), "[1, 2147483646] gave [-2147483646, 0]");
  for (const auto selection : {kLowerHalf, kSmallest, kGreatest}) {
    EXPECT_EQ(split(-3, -3, selection), "Nil gave -3");
  }
  EXPECT_EQ(split(-3, -3, kUpperHalf), "-3 gave Nil");
}

TEST(IntervalInteger, BisectionLeavesAnyAndNilAloneAndEndsAtStrangers) {
  using enum KivOmbiAny::ValueSelection;
  KivOmbIntervalInteger other = Interval(7, 8);
  KivOmbIntervalInteger any;
  any.Bisect(other, kUpperHalf);
  EXPECT_EQ(Text(any) + " " + Text(other), "Any [7, 8]");
  KivOmbIntervalInteger nil = NilInterval();
  nil.Bisect(other, kUpperHalf);
  EXPECT_EQ(Text(nil) + " " + Text(other), "Nil [7, 8]");
  KivOmbIntervalInteger domain = Interval(1, 5);
  Single stranger(9);
  domain.Bisect(stranger, kUpperHalf);
  EXPECT_EQ(Text(domain) + " " + Text(stranger), "Nil 9");
}

TEST(IntervalInteger, NarrowsToConstants) {
  KivOmbIntervalInteger domain = Interval(-1, 1);
  EXPECT_EQ(domain.CalcZeroValue(), 1);
  EXPECT_EQ(Text(domain), "0");
  EXPECT_EQ(domain.CalcZeroValue(), 0);
  EXPECT_EQ(domain.CalcOneValue(), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.CalcOneValue(), 0);
  KivOmbIntervalInteger one;
  EXPECT_EQ(one.CalcOneValue(), 1);
  EXPECT_EQ(Text(one), "1");
  KivOmbIntervalInteger least;
  EXPECT_EQ(least.CalcMinValue(), 1);
  EXPECT_EQ(Text(least), "Min");
  KivOmbIntervalInteger most;
  EXPECT_EQ(most.CalcMaxValue(), 1);
  EXPECT_EQ(Text(most), "Max");
}

TEST(IntervalInteger, AnInfiniteBoundOfAnOperandBoundsNothing) {
  KivOmbIntervalInteger domain = Interval(1, kMax);
  EXPECT_EQ(domain.CalcLessValue(Interval(0, kMax)), 0);
  EXPECT_EQ(domain.CalcLessOrEqualValue(*MakeAny("enum int")), 0);
  domain = Interval(kMin, 1);
  EXPECT_EQ(domain.CalcNotLessAndUnequalValue(Interval(kMin, 0)), 0);
  EXPECT_EQ(Interval(0, kMax).CalcInverseNotLessAndUnequalValue(domain), 0);
  EXPECT_EQ(Interval(kMin, 0).CalcInverseLessValue(domain), 0);
  EXPECT_EQ(Text(domain), "[Min, 1]");
}

TEST(IntervalInteger, NothingIsBeyondAnExactInfinity) {
  KivOmbIntervalInteger above = Interval(5, kMax);
  EXPECT_EQ(above.CalcNotLessAndUnequalValue(Single(kMax)), 1);
  EXPECT_EQ(Text(above), "Nil");
  above = Interval(5, kMax);
  EXPECT_EQ(Single(kMax).CalcInverseLessValue(above), 1);
  EXPECT_EQ(Text(above), "Nil");
  KivOmbIntervalInteger below = Interval(kMin, 5);
  EXPECT_EQ(below.CalcLessValue(Interval(kMin, kMin)), 1);
  EXPECT_EQ(Text(below), "Nil");
  below = Interval(kMin, 5);
  EXPECT_EQ(Interval(kMin, kMin).CalcInverseNotLessAndUnequalValue(below), 1);
  EXPECT_EQ(Text(below), "Nil");
}

TEST(IntervalInteger, AnExactInfinityItselfIsExcludedByStrictOrder) {
  KivOmbIntervalInteger domain = Interval(5, kMax);
  EXPECT_EQ(domain.CalcLessValue(Single(kMax)), 1);
  EXPECT_EQ(Text(domain), "[5, 2147483646]");
  domain = Interval(5, kMax);
  EXPECT_EQ(Interval(kMax, kMax).CalcInverseNotLessAndUnequalValue(domain), 1);
  EXPECT_EQ(Text(domain), "[5, 2147483646]");
  domain = Interval(kMin, 5);
  EXPECT_EQ(domain.CalcNotLessAndUnequalValue(Single(kMin)), 1);
  EXPECT_EQ(Text(domain), "[-2147483646, 5]");
  domain = Interval(kMin, 5);
  EXPECT_EQ(Interval(kMin, kMin).CalcInverseLessValue(domain), 1);
  EXPECT_EQ(Text(domain), "[-2147483646, 5]");
}

TEST(IntervalInteger, SumsKeepInfiniteBoundsAndSaturate) {
  KivOmbIntervalInteger sum;
  EXPECT_EQ(sum.CalcSumValue(Interval(kMin, 5), Interval(2, 3)), 1);
  EXPECT_EQ(Text(sum), "[Min, 8]");
  sum.Any();
  EXPECT_EQ(sum.CalcSumValue(Interval(5, kMax), Interval(-3, -2)), 1);
  EXPECT_EQ(Text(sum), "[2, Max]");
  sum.Any();
  EXPECT_EQ(sum.CalcSumValue(Interval(1, 10), Interval(kMax - 3, kMax - 2)), 1);
  EXPECT_EQ(Text(sum), "[2147483645, Max]");
  sum.Any();
  EXPECT_EQ(sum.CalcSumValue(Single(kMax), Interval(-3, -2)), 1);
  EXPECT_EQ(Text(sum), "Max");
  sum.Any();
  EXPECT_EQ(sum.CalcSumValue(Single(kMin), Interval(2, 3)), 1);
  EXPECT_EQ(Text(sum), "Min");
  sum.Any();
  EXPECT_EQ(sum.CalcSumValue(Single(kMin), Single(kMax)), 0);
  EXPECT_EQ(Text(sum), "Any");
}

TEST(IntervalInteger, DifferencesKeepInfiniteBounds) {
  KivOmbIntervalInteger term;
  EXPECT_EQ(Interval(3, 9).CalcFirstInverseSumValue(term, Interval(2, kMax)), 1);
  EXPECT_EQ(Text(term), "[Min, 7]");
  term.Any();
  EXPECT_EQ(Interval(3, kMax).CalcFirstInverseSumValue(term, Interval(1, 2)), 1);
  EXPECT_EQ(Text(term), "[1, Max]");
  term.Any();
  EXPECT_EQ(KivOmbIntervalInteger().CalcFirstInverseSumValue(term, Single(3)), 0);
  EXPECT_EQ(Text(term), "Any");
}

}  // namespace
}  // namespace kiv::test
