#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

const KivOmbEnumInteger kAny;

TEST(Sign, OfASetIsTheSetOfItsSigns) {
  KivOmbEnumInteger s;
  EXPECT_EQ(Set({-4, 0, 9}).CalcSignumValue(s), 1);
  EXPECT_EQ(Text(s), "{ -1, 0, 1 }");
  s = Range(-5, 5);
  EXPECT_EQ(Set({-4, 9}).CalcSignumValue(s), 1);
  EXPECT_EQ(Text(s), "{ -1, 1 }");
  s.Any();
  EXPECT_EQ(Set({0}).CalcSignumValue(s), 1);
  EXPECT_EQ(Text(s), "0");
}

TEST(Sign, OfASingleIsTakenFromAnOnlySign) {
  KivOmbSingleInteger s;
  EXPECT_EQ(Set({-2, 3}).CalcSignumValue(s), 0);
  EXPECT_EQ(s.CheckAny(), 1);
  EXPECT_EQ(Set({2, 3}).CalcSignumValue(s), 1);
  EXPECT_EQ(Text(s), "1");
  EXPECT_EQ(Set({2, 3}).CalcSignumValue(s), 0);
  EXPECT_EQ(Set({-2, 0}).CalcSignumValue(s), 1);
  EXPECT_EQ(s.CheckNil(), 1);
}

TEST(Sign, NarrowsAnInterval) {
  KivOmbIntervalInteger s = Interval(-9, 9);
  EXPECT_EQ(Set({0, 7}).CalcSignumValue(s), 1);
  EXPECT_EQ(Text(s), "[0, 1]");
  s = Interval(0, 0);
  EXPECT_EQ(Set({-7, 7}).CalcSignumValue(s), 1);
  EXPECT_EQ(s.CheckNil(), 1);
}

TEST(Sign, StateOfTheArgumentDecides) {
  KivOmbSingleInteger s(5);
  EXPECT_EQ(kAny.CalcSignumValue(s), 0);
  EXPECT_EQ(Text(s), "5");
  EXPECT_EQ(NilSet().CalcSignumValue(s), 1);
  EXPECT_EQ(s.CheckNil(), 1);
  EXPECT_EQ(NilSet().CalcSignumValue(s), 0);
}

struct SignCase {
  KivOmbEnumInteger signs;
  int code;
  const char* narrowed;
};

TEST(SignArgument, IsNarrowedByTheRelationOfThePossibleSigns) {
  const SignCase cases[] = {
      {Set({-7, 5}), 1, "Nil"},
      {Set({-1}), 1, "{ -5, -1 }"},
      {Set({0}), 1, "0"},
      {Set({-1, 0}), 1, "{ -5, -1, 0 }"},
      {Set({1}), 1, "{ 2, 6 }"},
      {Set({-1, 1}), 1, "{ -5, -1, 2, 6 }"},
      {Set({0, 1, 8}), 1, "{ 0, 2, 6 }"},
      {Set({-1, 0, 1}), 0, "{ -5, -1, 0, 2, 6 }"},
      {KivOmbEnumInteger(), 0, "{ -5, -1, 0, 2, 6 }"},
      {NilSet(), 1, "Nil"},
  };
  for (const auto& [signs, code, narrowed] : cases) {
    KivOmbEnumInteger x = Set({-5, -1, 0, 2, 6});
    EXPECT_EQ(x.CalcInverseSignumValue(signs), code) << Text(signs);
    EXPECT_EQ(Text(x), narrowed) << Text(signs);
  }
}

TEST(SignArgument, WithoutZeroLosesOneValueMoreToAStrictSign) {
  KivOmbEnumInteger x = Set({-5, -1, 2, 6});
  EXPECT_EQ(x.CalcInverseSignumValue(Set({-1})), 1);
  EXPECT_EQ(Text(x), "-5");
  x = Set({-5, -1, 2, 6});
  EXPECT_EQ(x.CalcInverseSignumValue(KivOmbSingleInteger(1)), 1);
  EXPECT_EQ(Text(x), "6");
}

TEST(SignArgument, OfZeroIsNilWithoutAZero) {
  KivOmbEnumInteger x = Set({-5, 6});
  EXPECT_EQ(x.CalcInverseSignumValue(Set({0})), 1);
  EXPECT_EQ(x.CheckNil(), 1);
  EXPECT_EQ(x.CalcInverseSignumValue(Set({0})), 0);
}

TEST(SignArgument, AsksSignsOfEveryKind) {
  KivOmbEnumInteger x = Set({-5, 0, 6});
  EXPECT_EQ(x.CalcInverseSignumValue(KivOmbSingleInteger()), 0);
  EXPECT_EQ(x.CalcInverseSignumValue(Interval(0, 9)), 1);
  EXPECT_EQ(Text(x), "{ 0, 6 }");
}

TEST(SignArgument, IsTakenForItsOwnSign) {
  KivOmbEnumInteger x = Set({-1, 0, 7});
  EXPECT_EQ(x.CalcInverseSignumValue(x), 1);
  EXPECT_EQ(Text(x), "{ -1, 0 }");
}

}  // namespace
