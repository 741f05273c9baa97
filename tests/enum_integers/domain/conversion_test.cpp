#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "framework/numbers/single_boolean.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

TEST(Assign, OfAnIntervalIsNilHoweverSmall) {
  KivOmbEnumInteger domain;
  domain.Assign(Interval(2, 5));
  EXPECT_EQ(domain.CheckNil(), 1);
  domain = Set({1});
  domain.Assign(KivOmbIntervalInteger());
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(Assign, OfASingleIsTheSameSet) {
  KivOmbEnumInteger domain = Set({1});
  domain.Assign(KivOmbSingleInteger());
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Assign(KivOmbSingleInteger(4));
  EXPECT_EQ(Text(domain), "4");
  EXPECT_EQ(Flag(domain), 0);
  domain.Assign(NilSingle());
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(Assign, OfAnEnumeratedDomainTakesValuesAndFlag) {
  KivOmbEnumInteger domain;
  domain.Assign(SetLeftAny({1, 2}));
  EXPECT_EQ(Text(domain), "{ 1, 2 }");
  EXPECT_EQ(Flag(domain), 1);
}

TEST(Assign, OfAnUnrelatedKindIsNil) {
  KivOmbEnumInteger domain;
  domain.Assign(KivOmbSingleBoolean(true));
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(IsIntersected, AsksForACommonValue) {
  EXPECT_EQ(KivOmbEnumInteger().IsIntersected(KivOmbSingleInteger(7)), 1);
  EXPECT_EQ(Set({1, 2}).IsIntersected(KivOmbSingleInteger(2)), 1);
  EXPECT_EQ(Set({1, 2}).IsIntersected(KivOmbSingleInteger(3)), 0);
  EXPECT_EQ(Set({1, 2}).IsIntersected(Set({2, 3})), 1);
  EXPECT_EQ(SetLeftAny({1, 2}).IsIntersected(SetLeftAny({3})), 0);
}

TEST(IsIntersected, AnyMeetsEverythingButNil) {
  EXPECT_EQ(KivOmbEnumInteger().IsIntersected(KivOmbEnumInteger()), 1);
  EXPECT_EQ(Set({1}).IsIntersected(KivOmbEnumInteger()), 1);
  EXPECT_EQ(KivOmbEnumInteger().IsIntersected(NilSet()), 0);
  EXPECT_EQ(NilSet().IsIntersected(KivOmbEnumInteger()), 0);
}

TEST(IsIntersected, NoIntervalMeetsASet) {
  EXPECT_EQ(Set({1, 2}).IsIntersected(Interval(1, 2)), 0);
  EXPECT_EQ(KivOmbEnumInteger().IsIntersected(Interval(1, 2)), 0);
}

TEST(IntersectAbstract, NarrowsAsEqualityDoes) {
  KivOmbEnumInteger domain = Set({1, 5, 9});
  const KivOmbIntervalInteger interval = Interval(4, 10);
  const KivOmbiAny& abstract = interval;
  domain.Intersect(abstract);
  EXPECT_EQ(Text(domain), "{ 5, 9 }");
}

TEST(UniteAbstract, WithASingle) {
  KivOmbEnumInteger domain = Set({1});
  const KivOmbSingleInteger two(2);
  const KivOmbSingleInteger any;
  const KivOmbSingleInteger nil = NilSingle();
  for (const KivOmbiAny* const x :
       {static_cast<const KivOmbiAny*>(&nil), static_cast<const KivOmbiAny*>(&two)}) {
    domain.Unite(*x);
  }
  EXPECT_EQ(Text(domain), "{ 1, 2 }");
  domain.Unite(static_cast<const KivOmbiAny&>(any));
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Unite(static_cast<const KivOmbiAny&>(two));
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(UniteAbstract, WithAnEnumeratedDomain) {
  KivOmbEnumInteger domain = Set({1});
  const KivOmbEnumInteger other = Set({2});
  domain.Unite(static_cast<const KivOmbiAny&>(other));
  EXPECT_EQ(Text(domain), "{ 1, 2 }");
}

TEST(UniteAbstract, WithAnIntervalIsNil) {
  KivOmbEnumInteger domain = Set({1});
  domain.Unite(static_cast<const KivOmbiAny&>(Interval(1, 2)));
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(Constants, ZeroAndOne) {
  KivOmbEnumInteger domain = Set({0, 1});
  EXPECT_EQ(domain.CalcZeroValue(), 1);
  EXPECT_EQ(Text(domain), "0");
  EXPECT_EQ(domain.CalcZeroValue(), 0);
  domain = Set({1, 2});
  EXPECT_EQ(domain.CalcZeroValue(), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.CalcZeroValue(), 0);
  domain.Any();
  EXPECT_EQ(domain.CalcZeroValue(), 1);
  EXPECT_EQ(Text(domain), "0");
  domain = Set({1, 2});
  EXPECT_EQ(domain.CalcOneValue(), 1);
  EXPECT_EQ(Text(domain), "1");
}

TEST(Constants, Infinities) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(domain.CalcMinValue(), 1);
  EXPECT_EQ(Text(domain), " Min");
  EXPECT_EQ(domain.CalcMaxValue(), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  domain = Set({1, kMax});
  EXPECT_EQ(domain.CalcMaxValue(), 1);
  EXPECT_EQ(Text(domain), " Max");
  EXPECT_EQ(domain.CalcMaxValue(), 0);
}

}  // namespace
