// The module before InitEnumIntegers has run: nothing here initialises it.

#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

TEST(Uninitialised, TheCapIsZero) { EXPECT_EQ(KivOmbEnumInteger::sMAX_CARD, 0u); }

TEST(Uninitialised, ThereIsNoDescriptor) {
  EXPECT_EQ(KivOmbEnumInteger::sDescriptor, nullptr);
  EXPECT_EQ(KivOmbEnumInteger().GetDescriptor(), nullptr);
}

TEST(Uninitialised, EveryInsertionIntoADomainThatIsNotAnyMakesItAny) {
  for (KivOmbEnumInteger domain : {NilSet(), Set({5}), Set({1, 2})}) {
    EXPECT_EQ(domain.Insert(5), 0);
    EXPECT_EQ(domain.CheckAny(), 1);
  }
  KivOmbEnumInteger any;
  EXPECT_EQ(any.Insert(5), 0);
  EXPECT_EQ(any.CheckAny(), 1);
}

TEST(Uninitialised, SettingAValueOrABoundGivesAny) {
  KivOmbEnumInteger domain = Set({5});
  domain.SetExactValue(5);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = Set({5});
  domain.SetLowerBound(6);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = NilSet();
  domain.SetUpperBound(6);
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(Uninitialised, ReadingASetOrAnIntervalGivesAnyAndASingleValueIsKept) {
  for (const char* text : {"{ 5 }", "[5, 6]", "[-2147483648, 2147483647]"}) {
    KivOmbEnumInteger domain = NilSet();
    Kivistrstream in(text);
    domain.InputValue(in);
    EXPECT_EQ(domain.CheckAny(), 1) << text;
  }
  KivOmbEnumInteger domain = NilSet();
  Kivistrstream in("5");
  domain.InputValue(in);
  EXPECT_EQ(Text(domain), "5");
}

}  // namespace
