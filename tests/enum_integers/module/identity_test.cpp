#include <gtest/gtest.h>

#include <string>

#include "enum_integers/domain/enum_integer.h"
#include "framework/numbers/single_integer.h"

namespace {

TEST(Identity, DynamicCastOfNullIsNull) {
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(nullptr), nullptr);
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(static_cast<KivOmbiBase*>(nullptr)), nullptr);
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(static_cast<const KivOmbiBase*>(nullptr)), nullptr);
}

TEST(Identity, DynamicCastTellsKindsApart) {
  KivOmbSingleInteger single;
  KivOmbEnumInteger domain;
  const KivOmbEnumInteger& constant = domain;
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(&single), nullptr);
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(static_cast<KivOmbiBase*>(&domain)), &domain);
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(static_cast<const KivOmbiBase*>(&constant)), &domain);
  EXPECT_EQ(KivOmbSingleInteger::DynamicCast(&domain), nullptr);
}

class DerivedDomain : public KivOmbEnumInteger {};

TEST(Identity, DynamicCastTakesWhatIsDerivedFromTheKind) {
  DerivedDomain derived;
  EXPECT_EQ(KivOmbEnumInteger::DynamicCast(static_cast<KivOmbiBase*>(&derived)), &derived);
  derived.SetExactValue(7);
  KivOmbEnumInteger domain;
  KivOmbiAny& target = domain;
  EXPECT_EQ(target.CalcEqualValue(derived), 1);
  domain.Insert(9);
  EXPECT_EQ(target.CalcLessOrEqualValue(derived), 1);
  EXPECT_EQ(domain.CheckDefined(), 1);
  EXPECT_EQ(domain.GetFirstL(), 7);
}

TEST(Identity, StaticCastGivesTheSameObject) {
  KivOmbEnumInteger domain;
  const KivOmbEnumInteger& constant = domain;
  EXPECT_EQ(KivOmbEnumInteger::StaticCast(static_cast<KivOmbiBase*>(&domain)), &domain);
  EXPECT_EQ(KivOmbEnumInteger::StaticCast(static_cast<const KivOmbiBase*>(&constant)), &domain);
  EXPECT_EQ(KivOmbEnumInteger::StaticCast(static_cast<KivOmbiBase*>(nullptr)), nullptr);
}

// What the domain answers when it is asked as the framework asks.
int IsDerivedFrom(const KivOmbiBase& object, const char* ident) {
  return object.IsDerivedFrom(ident);
}

TEST(Identity, IsAnAddressAndNotAText) {
  const KivOmbEnumInteger domain;
  const KivOmbSingleInteger single;
  const std::string copy = KivOmbEnumInteger::CastableIdent;
  EXPECT_EQ(copy, "KivOmbEnumInteger");
  EXPECT_EQ(domain.CastableID(), KivOmbEnumInteger::CastableIdent);
  EXPECT_EQ(IsDerivedFrom(domain, KivOmbEnumInteger::CastableIdent), 1);
  EXPECT_EQ(IsDerivedFrom(domain, copy.c_str()), IsDerivedFrom(single, copy.c_str()));
  EXPECT_EQ(IsDerivedFrom(domain, copy.c_str()), 0);
}

TEST(Identity, IncludesThoseOfTheAbstractTypes) {
  const KivOmbEnumInteger domain;
  EXPECT_EQ(IsDerivedFrom(domain, KivOmbiInteger::CastableIdent), 1);
  EXPECT_EQ(IsDerivedFrom(domain, KivOmbiNumber::CastableIdent), 1);
  EXPECT_EQ(IsDerivedFrom(domain, KivOmbiAny::CastableIdent), 1);
  EXPECT_EQ(IsDerivedFrom(domain, KivOmbSingleInteger::CastableIdent), 0);
}

}  // namespace
