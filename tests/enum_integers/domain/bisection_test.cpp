#include <gtest/gtest.h>

#include <string>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;
using Any = KivOmbiAny;

struct Parts {
  std::string other;
  std::string kept;

  friend bool operator==(const Parts&, const Parts&) = default;
};

Parts Split(KivOmbEnumInteger domain, Any::ValueSelection selection) {
  KivOmbEnumInteger other = SetLeftAny({100});
  domain.Bisect(other, selection);
  EXPECT_EQ(Flag(other), 0);
  return {Text(other), Text(domain)};
}

TEST(Bisect, OfAnOddNumberGivesTheLowerPartTheLargerHalf) {
  const KivOmbEnumInteger five = Set({1, 2, 3, 4, 5});
  EXPECT_EQ(Split(five, Any::kLowerHalf), (Parts{"{ 1, 2, 3 }", "{ 4, 5 }"}));
  EXPECT_EQ(Split(five, Any::kUpperHalf), (Parts{"{ 4, 5 }", "{ 1, 2, 3 }"}));
  EXPECT_EQ(Split(five, Any::kSmallest), (Parts{"1", "{ 2, 3, 4, 5 }"}));
  EXPECT_EQ(Split(five, Any::kGreatest), (Parts{"5", "{ 1, 2, 3, 4 }"}));
}

TEST(Bisect, OfAnEvenNumberGivesEqualHalves) {
  EXPECT_EQ(Split(Set({1, 2, 3, 4}), Any::kLowerHalf), (Parts{"{ 1, 2 }", "{ 3, 4 }"}));
}

TEST(Bisect, OfOneValueHandsNothingOverAsUpperHalf) {
  EXPECT_EQ(Split(Set({7}), Any::kUpperHalf), (Parts{"Nil", "7"}));
}

TEST(Bisect, OfOneValueLeavesTheStateToTheLeftoverFlag) {
  KivOmbEnumInteger exact;
  exact.SetExactValue(7);
  for (const auto selection : {Any::kLowerHalf, Any::kSmallest, Any::kGreatest}) {
    EXPECT_EQ(Split(exact, selection), (Parts{"7", "Nil"}));
    EXPECT_EQ(Split(SetLeftAny({7}), selection), (Parts{"7", "Any"}));
  }
}

TEST(Bisect, WithoutValuesChangesNeitherDomain) {
  for (KivOmbEnumInteger domain : {KivOmbEnumInteger(), NilSet()}) {
    const std::string before = Text(domain);
    KivOmbEnumInteger other = Set({100});
    KivOmbSingleInteger unrelated(3);
    domain.Bisect(other, Any::kLowerHalf);
    domain.Bisect(unrelated, Any::kLowerHalf);
    EXPECT_EQ(Text(domain), before);
    EXPECT_EQ(Text(other), "100");
  }
}

TEST(Bisect, ByAnUnknownSelectionMakesTheDomainNil) {
  KivOmbEnumInteger domain = SetLeftAny({1, 2});
  KivOmbEnumInteger other = Set({100});
  domain.Bisect(other, static_cast<Any::ValueSelection>(4));
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(Text(other), "100");
}

TEST(Bisect, IntoAnotherKindMakesTheDomainNil) {
  KivOmbEnumInteger domain = SetLeftAny({1, 2});
  KivOmbSingleInteger other(3);
  domain.Bisect(other, Any::kLowerHalf);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(Text(other), "3");
}

}  // namespace
