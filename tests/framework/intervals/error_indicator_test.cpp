#include <gtest/gtest.h>

#include <thread>

#include "framework/intervals/sub_int_base.h"

namespace {

constexpr SubIntBase kMin = SubIntBase::kMin;
constexpr SubIntBase kMax = SubIntBase::kMax;

class ErrorIndicator : public testing::Test {
 protected:
  void SetUp() override { SDClearError(); }
  void TearDown() override { SDClearError(); }
};

TEST_F(ErrorIndicator, IsClearAtFirst) { EXPECT_EQ(SDCheckError(), 0); }

TEST_F(ErrorIndicator, StaysSetUntilItIsCleared) {
  base_plus(kMax, kMin);
  base_plus(1, 1);
  EXPECT_NE(SDCheckError(), 0);
  EXPECT_NE(SDCheckError(), 0) << "reading does not clear";
  SDClearError();
  EXPECT_EQ(SDCheckError(), 0);
}

TEST_F(ErrorIndicator, IsNotSetByClamping) {
  base_plus(kMax.GetValue() - 1, 2);
  base_minus(kMin.GetValue() + 1, 2);
  base_mult(65536, 65536);
  base_mult(-65536, 65536);
  EXPECT_EQ(SDCheckError(), 0);
}

TEST_F(ErrorIndicator, IsOfItsThread) {
  base_div(1, 0);
  int seen_by_other = -1;
  std::thread([&] {
    seen_by_other = SDCheckError();
    base_div(kMax, kMax);
    SDClearError();
  }).join();
  EXPECT_EQ(seen_by_other, 0);
  EXPECT_NE(SDCheckError(), 0);
}

}  // namespace
