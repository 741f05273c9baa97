#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(Successor, IsOneMore) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNextValue(Set({1, 5})), 1);
  EXPECT_EQ(Text(z), "{ 2, 6 }");
  z = Set({2, 3});
  EXPECT_EQ(z.CalcNextValue(Set({1, 5})), 1);
  EXPECT_EQ(Text(z), "2");
  EXPECT_EQ(z.CalcNextValue(kAny), 0);
}

TEST(Successor, OfNilIsNil) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNextValue(NilSet()), 1);
  EXPECT_EQ(z.CheckNil(), 1);
}

TEST(Successor, OfInfinitiesAreThemselves) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNextValue(Set({kMin, 4, kMax})), 1);
  EXPECT_EQ(Text(z), "{  Min, 5,  Max }");
}

// The values are moved in place: an Any result takes the moved list as it is.
TEST(Successor, OfPlusInfinityAndItsPredecessorStandsTwice) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNextValue(Set({kMax - 1, kMax})), 1);
  EXPECT_EQ(Text(z), "{  Max,  Max }");
  z = Set({kMax});
  EXPECT_EQ(z.CalcNextValue(Set({kMax - 1, kMax})), 0);
  EXPECT_EQ(Text(z), " Max");
}

TEST(Predecessor, IsOneLess) {
  KivOmbEnumInteger x = Set({0, 1, 5});
  EXPECT_EQ(Set({2, 6}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(Text(x), "{ 1, 5 }");
}

TEST(Predecessor, DoesNotExistForMinusInfinity) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({kMin, 4}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(Text(x), "3");
  EXPECT_EQ(Set({kMin}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
  EXPECT_EQ(Set({kMin}).CalcInverseNextValue(x), 1);
}

TEST(Predecessor, OfAnyIsNotPlusInfinity) {
  KivOmbEnumInteger x = Set({1, kMax});
  EXPECT_EQ(kAny.CalcInverseNextValue(x), 1);
  EXPECT_EQ(Text(x), "1");
  EXPECT_EQ(kAny.CalcInverseNextValue(x), 0);
  EXPECT_EQ(Text(x), "1");
}

TEST(Predecessor, OfAnyAloneAtPlusInfinityFallsIntoItsLeftoverFlag) {
  KivOmbEnumInteger x = Set({kMax});
  EXPECT_EQ(kAny.CalcInverseNextValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
  x = SetLeftAny({kMax});
  EXPECT_EQ(kAny.CalcInverseNextValue(x), 1);
  EXPECT_EQ(x.CheckAny(), 1);
}

TEST(Predecessor, OfAnAnySingleTakesAnOnlyValue) {
  KivOmbSingleInteger x;
  EXPECT_EQ(Set({3, 7}).CalcInverseNextValue(x), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  EXPECT_EQ(Set({7}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(Text(x), "6");
  x.Any();
  EXPECT_EQ(Set({kMin}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(Predecessor, OfASingleIsTested) {
  KivOmbSingleInteger x(6);
  EXPECT_EQ(Set({3, 7}).CalcInverseNextValue(x), 0);
  EXPECT_EQ(Text(x), "6");
  EXPECT_EQ(Set({3, 8}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(Predecessor, IsNeverPlusInfinityInASingle) {
  KivOmbSingleInteger x(kMax);
  EXPECT_EQ(Set({kMin, kMax}).CalcInverseNextValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

}  // namespace
