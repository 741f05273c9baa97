#include "framework/intervals/subdef_int.h"

#include <gtest/gtest.h>

namespace {

TEST(SubdefInt, KeepsItsBounds) {
  const SubdefInt interval(-3, 7);
  EXPECT_EQ(interval.GetLower(), SubIntBase(-3));
  EXPECT_EQ(interval.GetUpper(), SubIntBase(7));
}

TEST(SubdefInt, OfEqualBoundsHoldsOneValue) { EXPECT_FALSE(SubdefInt(5, 5).IsEmpty()); }

TEST(SubdefInt, OfAscendingBoundsIsNotEmpty) {
  EXPECT_FALSE(SubdefInt(SubIntBase::kMin, SubIntBase::kMax).IsEmpty());
}

TEST(SubdefInt, MayBeEmptyAndKeepsItsBoundsThen) {
  const SubdefInt interval(5, 4);
  EXPECT_TRUE(interval.IsEmpty());
  EXPECT_EQ(interval.GetLower(), SubIntBase(5));
  EXPECT_EQ(interval.GetUpper(), SubIntBase(4));
}

}  // namespace
