#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(EnumPower, IsIntersectedWithThePowersOfTheValues) {
  KivOmbEnumInteger z = Set({4, 5, 9});
  EXPECT_EQ(z.CalcPowerValue(Set({2, 3}), Set({2})), 1);
  EXPECT_EQ(Text(z), "{ 4, 9 }");
}

TEST(EnumPower, WithAnAnyOperandChangesNothing) {
  for (KivOmbEnumInteger z : {KivOmbEnumInteger(), NilSet(), Set({5})}) {
    const std::string before = Text(z);
    EXPECT_EQ(z.CalcPowerValue(kAny, Set({2})), 0);
    EXPECT_EQ(z.CalcPowerValue(Set({2}), kAny), 0);
    EXPECT_EQ(Text(z), before);
  }
}

TEST(EnumPower, OfANilBaseIsNil) {
  KivOmbEnumInteger z = Set({4});
  EXPECT_EQ(z.CalcPowerValue(NilSet(), Set({2})), 1);
  EXPECT_EQ(z.CheckNil(), 1);
}

TEST(EnumPower, PassesOverPairsWithoutAPower) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcPowerValue(Set({0, 1, 2}), Set({-1, 3})), 1);
  EXPECT_EQ(Text(z), "{ 0, 1, 8 }");
}

TEST(EnumPower, ThatIsNotKnownChangesNothing) {
  KivOmbEnumInteger z = Set({77});
  EXPECT_EQ(z.CalcPowerValue(Set({-2, 3}), Set({2, kMax})), 0);
  EXPECT_EQ(Text(z), "77");
}

TEST(EnumPower, ThatWouldNeedAValueBeyondTheCapChangesNothing) {
  KivOmbEnumInteger z = Set({-5});
  KivOmbEnumInteger x = Range(0, 1023);
  EXPECT_EQ(z.CalcPowerValue(x, Set({1})), 1);
  EXPECT_EQ(z.CheckNil(), 1);
  z = Set({-5});
  x.SimpleInsert(1024);
  EXPECT_EQ(z.CalcPowerValue(x, Set({1})), 0);
  EXPECT_EQ(Text(z), "-5");
}

TEST(EnumPowerBase, KeepsTheEndsOfTheRootsAlone) {
  KivOmbEnumInteger x = Range(-5, 5);
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, Set({2})), 1);
  EXPECT_EQ(Text(x), "{ -3, 3 }");
  // All of these are bases of 1.
  x = Range(-5, 5);
  EXPECT_EQ(Set({1}).CalcFirstInversePowerValue(x, Set({0})), 1);
  EXPECT_EQ(Text(x), "{ -5, 5 }");
}

TEST(EnumPowerBase, WithAnAnyExponentStays) {
  KivOmbEnumInteger x = Set({5});
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, kAny), 0);
  EXPECT_EQ(NilSet().CalcFirstInversePowerValue(x, kAny), 0);
  EXPECT_EQ(Text(x), "5");
}

TEST(EnumPowerBase, ForAnyBecomesTheRoots) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({8, 16}).CalcFirstInversePowerValue(x, Set({3, 4})), 1);
  EXPECT_EQ(Text(x), "{ -2, 2 }");
}

TEST(EnumPowerBase, OfAnyThatMayBeEverythingStays) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({1, 4}).CalcFirstInversePowerValue(x, Set({0, 2})), 0);
  EXPECT_EQ(x.CheckAny(), 1);
}

TEST(EnumPowerBase, WithoutRootsIsNil) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({3}).CalcFirstInversePowerValue(x, Set({2})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(EnumPowerBase, OfAnAnySingleTakesAnOnlyCandidate) {
  KivOmbSingleInteger x;
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, Set({2})), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  EXPECT_EQ(Set({8}).CalcFirstInversePowerValue(x, Set({3})), 1);
  EXPECT_EQ(Text(x), "2");
}

TEST(EnumPowerBase, OfASingleIsTested) {
  KivOmbSingleInteger x(-3);
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, Set({2})), 0);
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, kAny), 0);
  EXPECT_EQ(Text(x), "-3");
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, Set({3})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
  EXPECT_EQ(Set({9}).CalcFirstInversePowerValue(x, Set({3})), 0);
}

TEST(EnumPowerExponent, KeepsThoseThatSomeBaseAdmits) {
  KivOmbEnumInteger y = Range(-3, 9);
  EXPECT_EQ(Set({8, 9}).CalcSecondInversePowerValue(Set({2, 3}), y), 1);
  EXPECT_EQ(Text(y), "{ 2, 3 }");
}

TEST(EnumPowerExponent, AdmittedBySeveralBasesIsHeldOnce) {
  KivOmbEnumInteger y = Set({1, 2, 3});
  EXPECT_EQ(Set({4, 9}).CalcSecondInversePowerValue(Set({-3, -2, 2, 3}), y), 1);
  EXPECT_EQ(Text(y), "2");
}

TEST(EnumPowerExponent, WhosePowerIsNotKnownStays) {
  KivOmbEnumInteger y = Set({3, kMax});
  EXPECT_EQ(Set({5}).CalcSecondInversePowerValue(Set({-2}), y), 1);
  EXPECT_EQ(Text(y), " Max");
}

TEST(EnumPowerExponent, ThatIsAnyBecomesTheLogarithms) {
  KivOmbEnumInteger y;
  EXPECT_EQ(Set({8, 9}).CalcSecondInversePowerValue(Set({2, 3}), y), 1);
  EXPECT_EQ(Text(y), "{ 2, 3 }");
  EXPECT_EQ(Flag(y), 0);
  y.Any();
  EXPECT_EQ(Set({3}).CalcSecondInversePowerValue(Set({2}), y), 1);
  EXPECT_EQ(y.CheckNil(), 1);
}

TEST(EnumPowerExponent, ThatIsAnyStaysWhenTheyCannotBeListed) {
  KivOmbEnumInteger y;
  EXPECT_EQ(Set({8, kMax}).CalcSecondInversePowerValue(Set({2}), y), 0);
  EXPECT_EQ(Set({1}).CalcSecondInversePowerValue(Set({1}), y), 0);
  EXPECT_EQ(Set({4}).CalcSecondInversePowerValue(Set({-2}), y), 0);
  EXPECT_EQ(y.CheckAny(), 1);
}

TEST(EnumPowerExponent, OfAResultWithoutValuesIsNilInTheCore) {
  for (const KivOmbEnumInteger& z : {kAny, NilSet()}) {
    KivOmbEnumInteger y = Set({2});
    EXPECT_EQ(z.CalcSecondInversePowerValue(Set({2}), y), 1);
    EXPECT_EQ(y.CheckNil(), 1);
    KivOmbEnumInteger x = Set({2});
    EXPECT_EQ(z.CalcFirstInversePowerValue(x, Set({2})), 1);
    EXPECT_EQ(x.CheckNil(), 1);
  }
}

}  // namespace
