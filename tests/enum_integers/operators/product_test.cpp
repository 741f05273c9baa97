#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(Product, OfSetsIsEveryProductOfTheirValues) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcProdValue(Set({-2, 3}), Set({0, 5})), 1);
  EXPECT_EQ(Text(z), "{ -10, 0, 15 }");
  EXPECT_EQ(Flag(z), 0);
  EXPECT_EQ(z.CalcProdValue(Set({-2, 3}), Set({0, 5})), 0);
}

TEST(Product, WithAnAnyOperandChangesNothing) {
  for (KivOmbEnumInteger z : {KivOmbEnumInteger(), NilSet(), Set({5})}) {
    const std::string before = Text(z);
    EXPECT_EQ(z.CalcProdValue(kAny, Set({0})), 0);
    EXPECT_EQ(z.CalcProdValue(Set({0}), kAny), 0);
    EXPECT_EQ(Text(z), before);
  }
}

TEST(Product, SaturatesAtTheInfinities) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcProdValue(Set({-65536, 65536}), Set({65536})), 1);
  EXPECT_EQ(Text(z), "{  Min,  Max }");
}

TEST(Product, OfTheTargetWithItself) {
  KivOmbEnumInteger z = Set({-1, 0, 1, 2});
  EXPECT_EQ(z.CalcProdValue(z, z), 0);
  z = Set({1, 2, 4});
  EXPECT_EQ(z.CalcProdValue(z, z), 0);
  z = Set({2, 3, 4});
  EXPECT_EQ(z.CalcProdValue(z, z), 1);
  EXPECT_EQ(Text(z), "4");
}

TEST(Quotient, WithZeroInDivisorAndResultChangesNothing) {
  KivOmbEnumInteger x = Set({1, 2, 3});
  EXPECT_EQ(Set({0, 4}).CalcFirstInverseProdValue(x, Set({0})), 0);
  EXPECT_EQ(Text(x), "{ 1, 2, 3 }");
}

TEST(Quotient, ByZeroAloneIsNil) {
  SDClearError();
  KivOmbEnumInteger x = Set({1, 2, 3});
  EXPECT_EQ(Set({4}).CalcFirstInverseProdValue(x, Set({0})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
  EXPECT_EQ(SDCheckError(), 0);
}

TEST(Quotient, PassesOverAZeroAmongTheDivisors) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({4, 6}).CalcFirstInverseProdValue(x, Set({0, 2})), 1);
  EXPECT_EQ(Text(x), "{ 2, 3 }");
}

TEST(Quotient, IsKeptEvenWithARemainder) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({7}).CalcFirstInverseProdValue(x, Set({2})), 1);
  EXPECT_EQ(Text(x), "3");
  x.Any();
  EXPECT_EQ(Set({-7}).CalcFirstInverseProdValue(x, Set({2})), 1);
  EXPECT_EQ(Text(x), "-3");
}

TEST(Quotient, ByAnyChangesNothing) {
  for (const KivOmbEnumInteger& z : {KivOmbEnumInteger(), NilSet(), Set({0}), Set({5})}) {
    KivOmbEnumInteger x = Set({1, 2});
    EXPECT_EQ(z.CalcFirstInverseProdValue(x, kAny), 0);
    EXPECT_EQ(Text(x), "{ 1, 2 }");
  }
}

TEST(Quotient, NarrowsASingleFactor) {
  KivOmbSingleInteger x;
  EXPECT_EQ(Set({6}).CalcFirstInverseProdValue(x, Set({1, 2})), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  EXPECT_EQ(Set({6}).CalcFirstInverseProdValue(x, Set({2})), 1);
  EXPECT_EQ(Text(x), "3");
  EXPECT_EQ(Set({0, 6}).CalcFirstInverseProdValue(x, Set({0})), 0);
  EXPECT_EQ(Set({6}).CalcFirstInverseProdValue(x, Set({1, 2})), 0);
  EXPECT_EQ(Set({8}).CalcFirstInverseProdValue(x, Set({1, 2})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(Quotient, ReachesTheArithmeticsErrorOnlyByTwoInfinities) {
  SDClearError();
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({kMax}).CalcFirstInverseProdValue(x, Set({-2, 5})), 1);
  EXPECT_EQ(Text(x), "{  Min,  Max }");
  EXPECT_EQ(SDCheckError(), 0);
  x.Any();
  EXPECT_EQ(Set({kMax}).CalcFirstInverseProdValue(x, Set({kMin})), 1);
  EXPECT_EQ(Text(x), "0");
  EXPECT_NE(SDCheckError(), 0);
  SDClearError();
}

}  // namespace
