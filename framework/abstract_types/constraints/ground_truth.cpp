#include "framework/abstract_types/constraints/ground_truth.h"

namespace kiv::ground_truth {

bool IsSum(std::int64_t x, std::int64_t y, std::int64_t z) { return z == x + y; }

bool IsProduct(std::int64_t x, std::int64_t y, std::int64_t z) { return z == x * y; }

bool IsPower(std::int64_t x, std::int64_t y, std::int64_t z) {
  if (y == 0) return z == 1;
  if (x == 1) return z == 1;
  if (x == -1) return z == (y % 2 == 0 ? 1 : -1);
  if (y < 0) return false;
  if (x == 0) return z == 0;
  // |x| >= 2: a few factors leave the range of z.
  constexpr std::int64_t kBeyond = std::int64_t{1} << 32;
  std::int64_t power = 1;
  for (std::int64_t i = 0; i < y; ++i) {
    if (power >= kBeyond || power <= -kBeyond) return false;
    power *= x;
  }
  return z == power;
}

bool IsRemainder(std::int64_t x, std::int64_t y, std::int64_t z) { return y != 0 && z == x % y; }

bool IsTruncatedQuotient(std::int64_t x, std::int64_t y, std::int64_t z) {
  return y != 0 && z == x / y;
}

bool IsSign(std::int64_t x, std::int64_t sign) { return sign == (x > 0) - (x < 0); }

}  // namespace kiv::ground_truth
