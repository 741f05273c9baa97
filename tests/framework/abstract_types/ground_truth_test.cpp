#include "framework/abstract_types/constraints/ground_truth.h"

#include <gtest/gtest.h>

namespace kiv::ground_truth {
namespace {

constexpr std::int64_t kMost = 2147483646;

TEST(GroundTruth, ASumDoesNotWrapAround) {
  EXPECT_TRUE(IsSum(2, 3, 5));
  EXPECT_FALSE(IsSum(2, 3, 6));
  EXPECT_FALSE(IsSum(kMost, kMost, -4));  // as it would in 32 bits
}

TEST(GroundTruth, AProductDoesNotWrapAround) {
  EXPECT_TRUE(IsProduct(-3, 4, -12));
  EXPECT_TRUE(IsProduct(0, 7, 0));
  EXPECT_FALSE(IsProduct(65536, 65536, 0));
}

TEST(GroundTruth, AnyBaseToTheZeroIsOne) {
  for (const std::int64_t base : {-2, -1, 0, 1, 5}) {
    EXPECT_TRUE(IsPower(base, 0, 1));
    EXPECT_FALSE(IsPower(base, 0, 0));
  }
}

TEST(GroundTruth, NegativeExponentsLeaveOnlyTheUnits) {
  EXPECT_TRUE(IsPower(1, -3, 1));
  EXPECT_TRUE(IsPower(-1, -3, -1));
  EXPECT_TRUE(IsPower(-1, -4, 1));
  for (const std::int64_t base : {-2, 0, 2, 7}) {
    for (const std::int64_t power : {-1, 0, 1}) EXPECT_FALSE(IsPower(base, -1, power));
  }
}

TEST(GroundTruth, PositiveExponentsAreExactAndEndAtTheRange) {
  EXPECT_TRUE(IsPower(2, 30, 1073741824));
  EXPECT_TRUE(IsPower(-2, 31, -2147483648));
  EXPECT_TRUE(IsPower(46340, 2, 2147395600));
  EXPECT_TRUE(IsPower(0, 5, 0));
  EXPECT_TRUE(IsPower(1, kMost, 1));
  EXPECT_TRUE(IsPower(-1, kMost - 1, -1));
  EXPECT_FALSE(IsPower(2, 31, 0));
  EXPECT_FALSE(IsPower(2, 64, 0));  // as it would wrap in 64 bits
  EXPECT_FALSE(IsPower(10, kMost, 0));
}

TEST(GroundTruth, ARemainderHasTheSignOfTheDividendAndNoZeroModulus) {
  EXPECT_TRUE(IsRemainder(7, 3, 1));
  EXPECT_TRUE(IsRemainder(-7, 3, -1));
  EXPECT_TRUE(IsRemainder(7, -3, 1));
  EXPECT_TRUE(IsRemainder(-7, -3, -1));
  EXPECT_FALSE(IsRemainder(-7, 3, 2));
  EXPECT_FALSE(IsRemainder(7, 0, 0));
  EXPECT_FALSE(IsRemainder(7, 0, 7));
}

TEST(GroundTruth, AQuotientIsTruncatedTowardZeroAndNeedsADivisor) {
  EXPECT_TRUE(IsTruncatedQuotient(7, 2, 3));
  EXPECT_TRUE(IsTruncatedQuotient(-7, 2, -3));
  EXPECT_TRUE(IsTruncatedQuotient(7, -2, -3));
  EXPECT_TRUE(IsTruncatedQuotient(-7, -2, 3));
  EXPECT_TRUE(IsTruncatedQuotient(1, kMost, 0));
  EXPECT_TRUE(IsTruncatedQuotient(-kMost, -1, kMost));
  EXPECT_FALSE(IsTruncatedQuotient(-7, 2, -4));
  EXPECT_FALSE(IsTruncatedQuotient(0, 0, 0));
}

TEST(GroundTruth, ASignIsMinusOneZeroOrOne) {
  EXPECT_TRUE(IsSign(-9, -1));
  EXPECT_TRUE(IsSign(0, 0));
  EXPECT_TRUE(IsSign(9, 1));
  EXPECT_FALSE(IsSign(9, 9));
}

}  // namespace
}  // namespace kiv::ground_truth
