#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/storage/slot_memory.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(Sum, OfSetsIsEverySumOfTheirValues) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcSumValue(Set({1, 2}), Set({10, 20})), 1);
  EXPECT_EQ(Text(z), "{ 11, 12, 21, 22 }");
  EXPECT_EQ(Flag(z), 0);
  EXPECT_EQ(z.CalcSumValue(Set({1, 2}), Set({10, 20})), 0);
}

TEST(Sum, NarrowsItsResult) {
  KivOmbEnumInteger z = Set({11, 30});
  EXPECT_EQ(z.CalcSumValue(Set({1, 2}), Set({10, 20})), 1);
  EXPECT_EQ(Text(z), "11");
  z = Set({5, 6});
  EXPECT_EQ(z.CalcSumValue(Set({1}), Set({1})), 1);
  EXPECT_EQ(z.CheckNil(), 1);
}

TEST(Sum, WithAnAnyOperandChangesNothing) {
  for (KivOmbEnumInteger z : {KivOmbEnumInteger(), NilSet(), Set({5})}) {
    const std::string before = Text(z);
    EXPECT_EQ(z.CalcSumValue(kAny, Set({1})), 0);
    EXPECT_EQ(z.CalcSumValue(Set({1}), kAny), 0);
    EXPECT_EQ(z.CalcSumValue(NilSet(), kAny), 0);
    EXPECT_EQ(Text(z), before);
  }
}

TEST(Sum, OfANilOperandIsNil) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcSumValue(NilSet(), Set({1})), 1);
  EXPECT_EQ(z.CheckNil(), 1);
  EXPECT_EQ(z.CalcSumValue(NilSet(), Set({1})), 0);
  EXPECT_EQ(z.CalcSumValue(Set({1}), Set({1})), 0);
  EXPECT_EQ(z.CheckNil(), 1);
}

TEST(Sum, WithMoreSumsThanTheCapChangesNothing) {
  KivOmbEnumInteger z = Set({-5});
  EXPECT_EQ(z.CalcSumValue(Range(0, 1023), Set({0, 1})), 0);
  EXPECT_EQ(Text(z), "-5");
}

TEST(Sum, WithAsManySumsAsTheCapIsASetWhenTheLastCandidateIsNew) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcSumValue(Set({0, 1}), Range(0, 1022)), 1);
  EXPECT_EQ(z.Count(), 1024u);
}

TEST(Difference, WithAsManyCandidatesAsTheCapIsAnyWhenTheLastOneIsARepetition) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Range(0, 1022).CalcFirstInverseSumValue(x, Set({0, 1})), 0);
  EXPECT_EQ(x.CheckAny(), 1);
}

TEST(Sum, SaturatesAtTheInfinities) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcSumValue(Set({kMax - 1}), Set({0, 1, 2})), 1);
  EXPECT_EQ(Text(z), "{ 2147483646,  Max }");
  z.Any();
  EXPECT_EQ(z.CalcSumValue(Set({kMin}), Set({-5, 5})), 1);
  EXPECT_EQ(Text(z), " Min");
}

TEST(Sum, OfOppositeInfinitiesIsWhatTheArithmeticMakesOfThem) {
  SDClearError();
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcSumValue(Set({kMin}), Set({kMax})), 1);
  EXPECT_EQ(Text(z), "0");
  EXPECT_NE(SDCheckError(), 0);
  SDClearError();
}

TEST(Sum, CombinesEveryOuterValueEvenWhenTheCollectionIsAny) {
  SDClearError();
  KivOmbEnumInteger x = Range(0, 1022);
  x.SimpleInsert(kMax);
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcSumValue(x, Set({0, 1, 2, 3})), 0);
  EXPECT_EQ(SDCheckError(), 0);
  // The sums of the finite values alone are too many; plus infinity comes after them.
  EXPECT_EQ(z.CalcSumValue(x, Set({kMin, 0, 1, 2, 3})), 0);
  EXPECT_NE(SDCheckError(), 0);
  SDClearError();
}

TEST(Difference, NarrowsTheFirstArgument) {
  KivOmbEnumInteger x = Range(1, 10);
  EXPECT_EQ(Set({5}).CalcFirstInverseSumValue(x, Set({1, 2})), 1);
  EXPECT_EQ(Text(x), "{ 3, 4 }");
  EXPECT_EQ(Set({5}).CalcFirstInverseSumValue(x, kAny), 0);
  EXPECT_EQ(NilSet().CalcFirstInverseSumValue(x, kAny), 0);
  EXPECT_EQ(Text(x), "{ 3, 4 }");
}

TEST(Difference, OfAnAnyReceiverCollectsNothing) {
  KivOmbEnumInteger x = Range(1, 10);
  EXPECT_EQ(kAny.CalcFirstInverseSumValue(x, Set({1})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(Difference, FromPlusInfinityIsPlusInfinity) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({kMax}).CalcFirstInverseSumValue(x, Set({1})), 1);
  EXPECT_EQ(Text(x), " Max");
}

TEST(Difference, NarrowsASingleArgument) {
  const KivOmbEnumInteger z = Set({5});
  KivOmbSingleInteger x;
  EXPECT_EQ(z.CalcFirstInverseSumValue(x, Set({1, 2})), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  EXPECT_EQ(z.CalcFirstInverseSumValue(x, kAny), 0);
  EXPECT_EQ(z.CalcFirstInverseSumValue(x, Set({2})), 1);
  EXPECT_EQ(Text(x), "3");
  x = KivOmbSingleInteger(4);
  EXPECT_EQ(z.CalcFirstInverseSumValue(x, Set({1, 2})), 0);
  EXPECT_EQ(Text(x), "4");
  x = KivOmbSingleInteger(7);
  EXPECT_EQ(z.CalcFirstInverseSumValue(x, Set({1, 2})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
  EXPECT_EQ(z.CalcFirstInverseSumValue(x, Set({1, 2})), 0);
}

TEST(Difference, WithTooManyCandidatesOrNoneForASingle) {
  KivOmbSingleInteger x(5000);
  EXPECT_EQ(Range(0, 1023).CalcFirstInverseSumValue(x, Set({0, 1})), 0);
  EXPECT_EQ(Text(x), "5000");
  EXPECT_EQ(NilSet().CalcFirstInverseSumValue(x, Set({0, 1})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(Difference, OfASingleNeedsNoMemory) {
  const KivOmbEnumInteger z = Range(0, 29);
  const KivOmbEnumInteger zero = Set({0});
  KivOmbSingleInteger inside(25);
  KivOmbSingleInteger outside(30);
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(z.CalcFirstInverseSumValue(inside, zero), 0);
  EXPECT_EQ(z.CalcFirstInverseSumValue(outside, zero), 1);
  EXPECT_EQ(outside.CheckNil(), 1);
}

TEST(Sum, WithoutMemoryForAllOfItIsNil) {
  const KivOmbEnumInteger x = Range(0, 29);
  const KivOmbEnumInteger y = Set({0, 2});
  KivOmbEnumInteger any;
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(any.CalcSumValue(x, y), 1);
  EXPECT_EQ(any.CheckNil(), 1);
}

}  // namespace
