#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

int SecondInverse(const KivOmbEnumInteger& z, const KivOmbiNumber& x, KivOmbiNumber& y) {
  return z.CalcSecondInverseModValue(x, y);
}

TEST(Remainder, HasTheSignOfTheDividend) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcModValue(Set({7, -7}), Set({3})), 1);
  EXPECT_EQ(Text(z), "{ -1, 1 }");
  z.Any();
  EXPECT_EQ(z.CalcModValue(Set({7}), Set({-3})), 1);
  EXPECT_EQ(Text(z), "1");
}

TEST(Remainder, WithAnAnyOperandChangesNothing) {
  KivOmbEnumInteger z = Set({77});
  EXPECT_EQ(z.CalcModValue(kAny, Set({3})), 0);
  EXPECT_EQ(z.CalcModValue(Set({3}), kAny), 0);
  EXPECT_EQ(Text(z), "77");
}

TEST(Remainder, WithAZeroAmongTheModuliChangesNothing) {
  KivOmbEnumInteger z = Set({77});
  EXPECT_EQ(z.CalcModValue(Set({7}), Set({0, 3})), 0);
  EXPECT_EQ(Text(z), "77");
  KivOmbEnumInteger x = Set({2, 3});
  EXPECT_EQ(Set({1}).CalcFirstInverseModValue(x, Set({0, 3})), 0);
  EXPECT_EQ(Text(x), "{ 2, 3 }");
  KivOmbSingleInteger single(3);
  EXPECT_EQ(Set({1}).CalcFirstInverseModValue(single, Set({0, 3})), 0);
  EXPECT_EQ(Text(single), "3");
}

TEST(Remainder, OfTheLeastIntegerByMinusOneIsZero) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcModValue(Set({INT32_MIN}), Set({-1})), 1);
  EXPECT_EQ(Text(z), "0");
  KivOmbEnumInteger x = Set({INT32_MIN, kMax});
  EXPECT_EQ(Set({0}).CalcFirstInverseModValue(x, Set({-1})), 0);
  EXPECT_EQ(Text(x), "{  Min,  Max }");
  KivOmbSingleInteger single(INT32_MIN);
  EXPECT_EQ(Set({0}).CalcFirstInverseModValue(single, Set({-1})), 0);
  KivOmbEnumInteger y = Set({-1, 2});
  EXPECT_EQ(Set({0}).CalcSecondInverseModValue(Set({INT32_MIN}), y), 1);
  EXPECT_EQ(Text(y), "-1");
}

TEST(RemainderDividend, KeepsThoseThatFitSomeModulus) {
  KivOmbEnumInteger x = Set({1, 2, 3, 4, 5, -2});
  EXPECT_EQ(Set({1}).CalcFirstInverseModValue(x, Set({3})), 1);
  EXPECT_EQ(Text(x), "{ 1, 4 }");
}

TEST(RemainderDividend, ThatIsAnyStays) {
  KivOmbEnumInteger x;
  EXPECT_EQ(Set({1}).CalcFirstInverseModValue(x, Set({3})), 0);
  EXPECT_EQ(x.CheckAny(), 1);
  KivOmbSingleInteger single;
  EXPECT_EQ(Set({1}).CalcFirstInverseModValue(single, Set({3})), 0);
  EXPECT_EQ(single.CheckAny(), 1);
}

TEST(RemainderDividend, OfASingleIsKeptByOneModulusThatFits) {
  const KivOmbEnumInteger z = Set({1});
  KivOmbSingleInteger x(4);
  EXPECT_EQ(z.CalcFirstInverseModValue(x, Set({2, 3})), 0);
  EXPECT_EQ(Text(x), "4");
  EXPECT_EQ(z.CalcFirstInverseModValue(x, kAny), 0);
  x.SetExactValue(6);
  EXPECT_EQ(z.CalcFirstInverseModValue(x, Set({2, 3})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(RemainderDividend, OfASingleWithoutModuliIsNil) {
  KivOmbSingleInteger x(6);
  EXPECT_EQ(Set({1}).CalcFirstInverseModValue(x, NilSet()), 1);
  EXPECT_EQ(x.CheckNil(), 1);
}

TEST(RemainderDividend, OfAFullSetThatAllFitsTwiceStaysAsItWas) {
  KivOmbEnumInteger x = Range(0, 1023);
  EXPECT_EQ(Range(0, 6).CalcFirstInverseModValue(x, Set({3, 7})), 0);
  EXPECT_EQ(x.Count(), 1024u);
}

// A set that was filled past the cap: the collection overflows at the 1025th dividend that fits, or
// at a second offer of the 1024th.
TEST(RemainderDividend, BeyondTheCapOverflowsItsCollection) {
  KivOmbEnumInteger x = Range(0, 1024);
  EXPECT_EQ(Range(0, 2).CalcFirstInverseModValue(x, Set({3})), 0);
  EXPECT_EQ(x.Count(), 1025u);
  EXPECT_EQ(Range(0, 1023).CalcFirstInverseModValue(x, Set({1500, 1501})), 0);
  EXPECT_EQ(x.Count(), 1025u);
  EXPECT_EQ(Range(0, 1023).CalcFirstInverseModValue(x, Set({1500})), 1);
  EXPECT_EQ(x.Count(), 1024u);
}

TEST(RemainderModulus, KeepsZeroUnconditionally) {
  KivOmbEnumInteger y = Set({0, 2, 3, 4, 5});
  EXPECT_EQ(Set({1}).CalcSecondInverseModValue(Set({7}), y), 1);
  EXPECT_EQ(Text(y), "{ 0, 2, 3 }");
}

TEST(RemainderModulus, WithAnAnyResultOrModulusStays) {
  KivOmbEnumInteger y = Set({2, 3});
  EXPECT_EQ(kAny.CalcSecondInverseModValue(Set({7}), y), 0);
  EXPECT_EQ(Text(y), "{ 2, 3 }");
  y.Any();
  EXPECT_EQ(Set({1}).CalcSecondInverseModValue(Set({7}), y), 0);
  EXPECT_EQ(y.CheckAny(), 1);
}

TEST(RemainderModulus, WithoutDividendsIsNilInTheCore) {
  KivOmbEnumInteger y = Set({0, 2});
  EXPECT_EQ(Set({1}).CalcSecondInverseModValue(NilSet(), y), 1);
  EXPECT_EQ(y.CheckNil(), 1);
}

TEST(RemainderModulus, ByTheEntryWithANilDividendIsNil) {
  KivOmbEnumInteger y = SetLeftAny({2, 3});
  EXPECT_EQ(SecondInverse(Set({1}), NilSingle(), y), 1);
  EXPECT_EQ(y.CheckNil(), 1);
  KivOmbSingleInteger single(2);
  EXPECT_EQ(SecondInverse(Set({1}), NilSet(), single), 1);
  EXPECT_EQ(single.CheckNil(), 1);
}

TEST(RemainderModulus, ByTheEntryWithAnAnyDividendStays) {
  KivOmbEnumInteger y = Set({2, 3});
  EXPECT_EQ(SecondInverse(Set({1}), KivOmbSingleInteger(), y), 0);
  EXPECT_EQ(Text(y), "{ 2, 3 }");
}

}  // namespace
