#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(AbsoluteValue, UnitesTheMirroredHalves) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcAbsoluteValue(Set({-3, -1, 2})), 1);
  EXPECT_EQ(Text(z), "{ 1, 2, 3 }");
}

TEST(AbsoluteValue, OfAnyTakesAwayNegativeValues) {
  KivOmbEnumInteger z = Set({-4, 0, 4});
  EXPECT_EQ(z.CalcAbsoluteValue(kAny), 1);
  EXPECT_EQ(Text(z), "{ 0, 4 }");
  z.Any();
  EXPECT_EQ(z.CalcAbsoluteValue(kAny), 0);
  EXPECT_EQ(z.CheckAny(), 1);
}

// An emptied half whose leftover flag is Any may be anything.
TEST(AbsoluteValue, OfASetWithAnEmptyHalfDependsOnItsLeftoverFlag) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcAbsoluteValue(SetLeftAny({-3})), 0);
  EXPECT_EQ(z.CalcAbsoluteValue(SetLeftAny({3})), 0);
  EXPECT_EQ(z.CheckAny(), 1);
  EXPECT_EQ(z.CalcAbsoluteValue(Set({-3})), 1);
  EXPECT_EQ(Text(z), "3");
}

TEST(AbsoluteValue, GivesAnAnyResultTheFlagOfNil) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcAbsoluteValue(SetLeftAny({-3, 3})), 1);
  EXPECT_EQ(Text(z), "3");
  EXPECT_EQ(Flag(z), 0);
}

TEST(AbsoluteValue, WithAUnionOfAsManyValuesAsTheCapChangesNothing) {
  KivOmbEnumInteger z = Set({-5});
  EXPECT_EQ(z.CalcAbsoluteValue(Range(-1, 1022)), 1);
  EXPECT_EQ(z.CheckNil(), 1);
  z = Set({-5});
  KivOmbEnumInteger x = Range(2, 1024);
  x.SimpleInsert(-1);
  EXPECT_EQ(z.CalcAbsoluteValue(x), 0);
  EXPECT_EQ(Text(z), "-5");
}

TEST(AbsoluteValue, OfInfinitiesIsPlusInfinity) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcAbsoluteValue(Set({kMin, kMax})), 1);
  EXPECT_EQ(Text(z), " Max");
}

TEST(AbsoluteValueArgument, IsAnyRootOfTheValuesThatAreNotNegative) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({-2, 0, 3}).CalcInverseAbsoluteValue(x), 1);
  EXPECT_EQ(Text(x), "{ -3, 0, 3 }");
}

TEST(AbsoluteValueArgument, OfNegativeValuesIsNilWhateverItWas) {
  for (KivOmbEnumInteger x : {KivOmbEnumInteger(), NilSet(), Set({2})}) {
    EXPECT_EQ(Set({-2}).CalcInverseAbsoluteValue(x), 1);
    EXPECT_EQ(x.CheckNil(), 1);
  }
}

TEST(AbsoluteValueArgument, OfAnyStays) {
  KivOmbEnumInteger x = Set({-2});
  EXPECT_EQ(kAny.CalcInverseAbsoluteValue(x), 0);
  EXPECT_EQ(Text(x), "-2");
}

TEST(AbsoluteValueArgument, WithMoreRootsThanTheCapStays) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Range(0, 511).CalcInverseAbsoluteValue(x), 1);
  EXPECT_EQ(x.Count(), 1023u);
  x = Set({77777});
  EXPECT_EQ(Range(0, 512).CalcInverseAbsoluteValue(x), 0);
  EXPECT_EQ(Text(x), "77777");
}

TEST(AbsoluteValueArgument, OfASingleIsPinnedByZeroAlone) {
  KivOmbSingleInteger x;
  EXPECT_EQ(Set({5}).CalcInverseAbsoluteValue(x), 0);
  EXPECT_EQ(Set({0, 5}).CalcInverseAbsoluteValue(x), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  EXPECT_EQ(Set({0}).CalcInverseAbsoluteValue(x), 1);
  EXPECT_EQ(Text(x), "0");
}

TEST(AbsoluteValueArgument, OfASingleIsTested) {
  KivOmbSingleInteger x(-5);
  EXPECT_EQ(Set({5}).CalcInverseAbsoluteValue(x), 0);
  EXPECT_EQ(Text(x), "-5");
  x.SetExactValue(4);
  EXPECT_EQ(Set({5}).CalcInverseAbsoluteValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

}  // namespace
