#include <gtest/gtest.h>

#include "enum_integers/domain/enum_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

TEST(PrintedForm, OfNilAndAny) {
  EXPECT_EQ(Text(NilSet()), "Nil");
  EXPECT_EQ(Text(KivOmbEnumInteger()), "Any");
}

TEST(PrintedForm, OfOneValueHasNoBraces) {
  EXPECT_EQ(Text(Set({5})), "5");
  EXPECT_EQ(Text(Set({-5})), "-5");
}

TEST(PrintedForm, OfSeveralValuesIsAscendingInBraces) {
  EXPECT_EQ(Text(Set({2, 1})), "{ 1, 2 }");
  EXPECT_EQ(Text(Set({3, -1, 2})), "{ -1, 2, 3 }");
}

TEST(PrintedForm, OfTheInfinitiesKeepsALeadingBlankInEveryPosition) {
  EXPECT_EQ(Text(Set({kMax})), " Max");
  EXPECT_EQ(Text(Set({kMin})), " Min");
  EXPECT_EQ(Text(Set({kMin, 0})), "{  Min, 0 }");
  EXPECT_EQ(Text(Set({0, kMax})), "{ 0,  Max }");
}

TEST(PrintedForm, OfTheGreatestFiniteValuesIsANumber) {
  EXPECT_EQ(Text(Set({kMax - 1})), "2147483646");
  EXPECT_EQ(Text(Set({kMin + 1})), "-2147483646");
}

}  // namespace
