#include "framework/intervals/sub_int_base.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <type_traits>

namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

// Usable in constant expressions.
static_assert(SubIntBase(3) < SubIntBase(4));
static_assert(SubIntBase::Clamp(std::int64_t{1} << 40) == SubIntBase(kMax));
static_assert(!SubIntBase(kMax).IsFinite());

TEST(SubIntBase, IsFourTriviallyCopyableBytes) {
  EXPECT_EQ(sizeof(SubIntBase), 4U);
  EXPECT_TRUE(std::is_trivially_copyable_v<SubIntBase>);
}

TEST(SubIntBase, IsZeroByDefault) { EXPECT_EQ(SubIntBase().GetValue(), 0); }

TEST(SubIntBase, HasASymmetricRange) {
  EXPECT_EQ(kMin, -2147483647);
  EXPECT_EQ(kMax, 2147483647);
}

TEST(SubIntBase, KeepsEveryValueOfTheRange) {
  for (const std::int32_t value : {kMin, kMin + 1, -1, 0, 1, kMax - 1, kMax}) {
    EXPECT_EQ(SubIntBase(value).GetValue(), value);
  }
}

TEST(SubIntBase, TakesTheIntegerBelowTheRangeToMin) {
  EXPECT_EQ(SubIntBase(std::numeric_limits<std::int32_t>::min()).GetValue(), kMin);
}

TEST(SubIntBase, IsFiniteInsideTheRangeAndInfiniteAtItsEnds) {
  for (const std::int32_t value : {kMin + 1, -1, 0, 1, kMax - 1}) {
    EXPECT_TRUE(SubIntBase(value).IsFinite()) << value;
  }
  EXPECT_FALSE(SubIntBase(kMin).IsFinite());
  EXPECT_FALSE(SubIntBase(kMax).IsFinite());
}

TEST(SubIntBase, IsOrderedAsItsValues) {
  const SubIntBase ascending[] = {kMin, kMin + 1, -1, 0, 1, kMax - 1, kMax};
  for (const SubIntBase a : ascending) {
    for (const SubIntBase b : ascending) {
      EXPECT_EQ(a == b, a.GetValue() == b.GetValue());
      EXPECT_EQ(a != b, a.GetValue() != b.GetValue());
      EXPECT_EQ(a < b, a.GetValue() < b.GetValue());
      EXPECT_EQ(a <= b, a.GetValue() <= b.GetValue());
      EXPECT_EQ(a > b, a.GetValue() > b.GetValue());
      EXPECT_EQ(a >= b, a.GetValue() >= b.GetValue());
    }
  }
}

TEST(SubIntBase, ClampsToTheNearestValueOfTheRange) {
  EXPECT_EQ(SubIntBase::Clamp(17).GetValue(), 17);
  EXPECT_EQ(SubIntBase::Clamp(std::int64_t{kMax} - 1).GetValue(), kMax - 1);
  EXPECT_EQ(SubIntBase::Clamp(std::int64_t{kMax} + 1).GetValue(), kMax);
  EXPECT_EQ(SubIntBase::Clamp(std::int64_t{kMin} - 1).GetValue(), kMin);
  EXPECT_EQ(SubIntBase::Clamp(std::numeric_limits<std::int64_t>::max()).GetValue(), kMax);
  EXPECT_EQ(SubIntBase::Clamp(std::numeric_limits<std::int64_t>::min()).GetValue(), kMin);
}

}  // namespace
