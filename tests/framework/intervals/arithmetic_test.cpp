// The arithmetic of SubIntBase, case by case.

#include <gtest/gtest.h>

#include <cstdint>

#include "framework/intervals/sub_int_base.h"

namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

using Operation = SubIntBase (*)(SubIntBase, SubIntBase);

enum Meaning { kHasMeaning, kHasNone };

void ExpectResult(Operation operation, std::int32_t a, std::int32_t b, std::int32_t result,
                  Meaning meaning = kHasMeaning) {
  SDClearError();
  EXPECT_EQ(operation(a, b).GetValue(), result) << a << " and " << b;
  EXPECT_EQ(SDCheckError() != 0, meaning == kHasNone) << a << " and " << b;
  SDClearError();
}

// Expects a + b = sum in every form in which it can be written.
void ExpectSum(std::int32_t a, std::int32_t b, std::int32_t sum, Meaning meaning = kHasMeaning) {
  ExpectResult(base_plus, a, b, sum, meaning);
  ExpectResult(base_plus, b, a, sum, meaning);
  ExpectResult(base_plus, -a, -b, -sum, meaning);
  ExpectResult(base_minus, a, -b, sum, meaning);
  ExpectResult(base_minus, b, -a, sum, meaning);
  ExpectResult(
      [](SubIntBase x, SubIntBase y) {
        SubIntBase accumulator = x;
        const SubIntBase& returned = accumulator += y;
        EXPECT_EQ(&returned, &accumulator);
        return accumulator;
      },
      a, b, sum, meaning);
}

// Expects a * b = product under every change of sign and order.
void ExpectProduct(std::int32_t a, std::int32_t b, std::int32_t product) {
  for (const std::int32_t sign : {1, -1}) {
    ExpectResult(base_mult, sign * a, b, sign * product);
    ExpectResult(base_mult, b, sign * a, sign * product);
    ExpectResult(base_mult, a, sign * b, sign * product);
    ExpectResult(base_mult, sign * a, sign * b, product);
  }
}

// Expects a / b = quotient under every change of sign.
void ExpectQuotient(std::int32_t a, std::int32_t b, std::int32_t quotient,
                    Meaning meaning = kHasMeaning) {
  ExpectResult(base_div, a, b, quotient, meaning);
  ExpectResult(base_div, -a, b, -quotient, meaning);
  ExpectResult(base_div, a, -b, -quotient, meaning);
  ExpectResult(base_div, -a, -b, quotient, meaning);
}

TEST(Sum, OfFiniteOperandsIsExact) {
  ExpectSum(0, 0, 0);
  ExpectSum(2, 3, 5);
  ExpectSum(2, -3, -1);
  ExpectSum(kMax - 1, 0, kMax - 1);
  ExpectSum(kMax - 1, kMin + 1, 0);
  ExpectSum(kMax - 2, 1, kMax - 1);
}

TEST(Sum, OfFiniteOperandsIsClamped) {
  ExpectSum(kMax - 1, 1, kMax);
  ExpectSum(kMax - 1, 2, kMax);
  ExpectSum(kMax - 1, kMax - 1, kMax);
  ExpectSum(1 << 30, 1 << 30, kMax);
}

TEST(Sum, OfAnInfinityAbsorbsAFiniteOperand) {
  for (const std::int32_t finite : {kMin + 1, -1, 0, 1, kMax - 1}) {
    ExpectSum(kMax, finite, kMax);
    ExpectSum(kMin, finite, kMin);
  }
}

TEST(Sum, OfEqualInfinitiesIsThatInfinity) {
  ExpectSum(kMax, kMax, kMax);
  ExpectSum(kMin, kMin, kMin);
}

TEST(Sum, OfOppositeInfinitiesIsZeroAndAnError) { ExpectSum(kMax, kMin, 0, kHasNone); }

TEST(Difference, OfEqualInfinitiesIsZeroAndAnError) {
  ExpectResult(base_minus, kMax, kMax, 0, kHasNone);
  ExpectResult(base_minus, kMin, kMin, 0, kHasNone);
}

TEST(Difference, OfOppositeInfinitiesIsTheFirst) {
  ExpectResult(base_minus, kMax, kMin, kMax);
  ExpectResult(base_minus, kMin, kMax, kMin);
}

TEST(Product, OfFiniteOperandsIsExact) {
  ExpectProduct(3, 4, 12);
  ExpectProduct(1, kMax - 1, kMax - 1);
  ExpectProduct(2, (kMax - 1) / 2, kMax - 1);
  ExpectProduct(46340, 46340, 2147395600);
}

TEST(Product, OfFiniteOperandsIsClamped) {
  ExpectProduct(46341, 46341, kMax);
  ExpectProduct(2, 1 << 30, kMax);
  ExpectProduct(65536, 65536, kMax);
  ExpectProduct(kMax - 1, kMax - 1, kMax);
}

TEST(Product, WithZeroIsZero) {
  for (const std::int32_t other : {0, 1, kMax - 1, kMax}) ExpectProduct(0, other, 0);
}

TEST(Product, WithAnInfinityIsTheInfinityOfItsSign) {
  ExpectProduct(kMax, 1, kMax);
  ExpectProduct(kMax, kMax - 1, kMax);
  ExpectProduct(kMax, kMax, kMax);
}

TEST(Quotient, OfFiniteOperandsIsTruncatedTowardZero) {
  ExpectQuotient(7, 2, 3);
  ExpectQuotient(6, 2, 3);
  ExpectQuotient(1, 2, 0);
  ExpectQuotient(0, 5, 0);
  ExpectQuotient(kMax - 1, 1, kMax - 1);
  ExpectQuotient(kMax - 1, kMax - 1, 1);
  ExpectQuotient(kMax - 2, kMax - 1, 0);
}

TEST(Quotient, ByZeroHasTheSignOfTheDividendAndIsAnError) {
  ExpectResult(base_div, 1, 0, kMax, kHasNone);
  ExpectResult(base_div, kMax - 1, 0, kMax, kHasNone);
  ExpectResult(base_div, kMax, 0, kMax, kHasNone);
  ExpectResult(base_div, -1, 0, kMin, kHasNone);
  ExpectResult(base_div, kMin, 0, kMin, kHasNone);
  ExpectResult(base_div, 0, 0, 0, kHasNone);
}

TEST(Quotient, OfFiniteByInfiniteIsZero) {
  for (const std::int32_t finite : {0, 1, kMax - 1}) ExpectQuotient(finite, kMax, 0);
}

TEST(Quotient, OfInfiniteByFiniteIsTheInfinityOfItsSign) {
  for (const std::int32_t finite : {1, 2, kMax - 1}) ExpectQuotient(kMax, finite, kMax);
}

TEST(Quotient, OfInfiniteByInfiniteIsZeroAndAnError) { ExpectQuotient(kMax, kMax, 0, kHasNone); }

}  // namespace
