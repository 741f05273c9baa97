#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(Negation, MirrorsEveryValue) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNegativeValue(Set({-3, 1, 4})), 1);
  EXPECT_EQ(Text(z), "{ -4, -1, 3 }");
  EXPECT_EQ(z.CalcNegativeValue(kAny), 0);
}

TEST(Negation, ExchangesTheInfinities) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNegativeValue(Set({kMin})), 1);
  EXPECT_EQ(Text(z), " Max");
}

TEST(Negation, GivesAnAnyResultTheLeftoverFlagOfItsArgument) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNegativeValue(SetLeftAny({1})), 1);
  EXPECT_EQ(Flag(z), 1);
}

TEST(Negation, OfNilIsNil) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcNegativeValue(NilSet()), 1);
  EXPECT_EQ(z.CheckNil(), 1);
}

TEST(NegationArgument, IsTheMirroredResult) {
  KivOmbEnumInteger x = Set({-4, 3, 4});
  EXPECT_EQ(Set({-3, 4}).CalcInverseNegativeValue(x), 1);
  EXPECT_EQ(Text(x), "{ -4, 3 }");
  EXPECT_EQ(kAny.CalcInverseNegativeValue(x), 0);
}

TEST(NegationArgument, OfAnAnySingleTakesAnOnlyValue) {
  KivOmbSingleInteger x;
  EXPECT_EQ(Set({7, 8}).CalcInverseNegativeValue(x), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  EXPECT_EQ(Set({7}).CalcInverseNegativeValue(x), 1);
  EXPECT_EQ(Text(x), "-7");
}

TEST(NegationArgument, OfASingleIsTested) {
  KivOmbSingleInteger x(-7);
  EXPECT_EQ(Set({7, 8}).CalcInverseNegativeValue(x), 0);
  EXPECT_EQ(Text(x), "-7");
  EXPECT_EQ(Set({-7, 8}).CalcInverseNegativeValue(x), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

}  // namespace
