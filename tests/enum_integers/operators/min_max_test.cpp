#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(Minimum, IsAValueOfEitherUpToTheLesserUpperBound) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcMinValue(Set({1, 5, 9}), Set({3, 4})), 1);
  EXPECT_EQ(Text(z), "{ 1, 3, 4 }");
  EXPECT_EQ(Flag(z), 0);
  z = Set({2, 3, 7});
  EXPECT_EQ(z.CalcMinValue(Set({1, 3}), Set({5, 7})), 1);
  EXPECT_EQ(Text(z), "3");
}

TEST(Maximum, IsAValueOfEitherFromTheGreaterLowerBound) {
  KivOmbEnumInteger z;
  EXPECT_EQ(z.CalcMaxValue(Set({1, 5, 9}), Set({3, 4})), 1);
  EXPECT_EQ(Text(z), "{ 3, 4, 5, 9 }");
}

TEST(Minimum, WithAnAnyOperandIsCutAtTheOther) {
  for (const bool any_first : {true, false}) {
    const KivOmbEnumInteger b = Set({4, 6});
    KivOmbEnumInteger z = Set({1, 5, 7});
    EXPECT_EQ(any_first ? z.CalcMinValue(kAny, b) : z.CalcMinValue(b, kAny), 1);
    EXPECT_EQ(Text(z), "{ 1, 5 }");
    z = Set({1, 5, 7});
    EXPECT_EQ(any_first ? z.CalcMaxValue(kAny, b) : z.CalcMaxValue(b, kAny), 1);
    EXPECT_EQ(Text(z), "{ 5, 7 }");
  }
  KivOmbEnumInteger z = Set({1});
  EXPECT_EQ(z.CalcMinValue(kAny, kAny), 0);
  EXPECT_EQ(z.CalcMaxValue(kAny, kAny), 0);
  EXPECT_EQ(Text(z), "1");
}

TEST(Minimum, WithAUnionOfAsManyValuesAsTheCapChangesNothing) {
  KivOmbEnumInteger z = Set({-5});
  EXPECT_EQ(z.CalcMinValue(Range(0, 1022), Set({2000})), 0);
  EXPECT_EQ(Text(z), "-5");
  EXPECT_EQ(z.CalcMinValue(Range(0, 1021), Set({2000})), 1);
  EXPECT_EQ(z.CheckNil(), 1);
}

TEST(MinimumArgument, IsAtLeastTheResult) {
  const KivOmbEnumInteger z = Set({3, 8});
  KivOmbEnumInteger x = Set({1, 3, 9});
  EXPECT_EQ(z.CalcFirstInverseMinValue(x, Set({5})), 1);
  EXPECT_EQ(Text(x), "{ 3, 9 }");
  KivOmbSingleInteger single(3);
  EXPECT_EQ(z.CalcFirstInverseMinValue(single, Set({5})), 0);
  EXPECT_EQ(Text(single), "3");
  single.SetExactValue(2);
  EXPECT_EQ(z.CalcFirstInverseMinValue(single, Set({5})), 1);
  EXPECT_EQ(single.CheckNil(), 1);
  single.Any();
  EXPECT_EQ(z.CalcFirstInverseMinValue(single, Set({5})), 0);
  EXPECT_EQ(single.CheckAny(), 1);
}

TEST(MaximumArgument, IsAtMostTheResult) {
  const KivOmbEnumInteger z = Set({3, 8});
  KivOmbEnumInteger x = Set({1, 9});
  EXPECT_EQ(z.CalcFirstInverseMaxValue(x, Set({5})), 1);
  EXPECT_EQ(Text(x), "1");
  KivOmbSingleInteger single(8);
  EXPECT_EQ(z.CalcFirstInverseMaxValue(single, Set({5})), 0);
  EXPECT_EQ(Text(single), "8");
  single.SetExactValue(9);
  EXPECT_EQ(z.CalcFirstInverseMaxValue(single, Set({5})), 1);
  EXPECT_EQ(single.CheckNil(), 1);
  single.Any();
  EXPECT_EQ(z.CalcFirstInverseMaxValue(single, Set({5})), 0);
  EXPECT_EQ(single.CheckAny(), 1);
}

TEST(MinimumArgument, DoesNotConsultTheOtherOne) {
  const KivOmbEnumInteger z = Set({3, 8});
  KivOmbEnumInteger x = Set({3, 4});
  EXPECT_EQ(z.CalcFirstInverseMinValue(x, Set({100})), 0);
  EXPECT_EQ(z.CalcFirstInverseMaxValue(x, kAny), 0);
  EXPECT_EQ(Text(x), "{ 3, 4 }");
}

TEST(Minimum, OfAnIntervalIsNil) {
  KivOmbEnumInteger z = Set({3});
  EXPECT_EQ(z.CalcMinValue(Interval(1, 9), Set({3})), 1);
  EXPECT_EQ(z.CheckNil(), 1);
}

}  // namespace
