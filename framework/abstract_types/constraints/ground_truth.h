#pragma once

#include <cstdint>

// What the constraints mean, in plain 64-bit arithmetic on 32-bit values. Nothing here is shared
// with the propagation that it judges.
namespace kiv::ground_truth {

bool IsSum(std::int64_t x, std::int64_t y, std::int64_t z);      // z = x + y
bool IsProduct(std::int64_t x, std::int64_t y, std::int64_t z);  // z = x * y
bool IsPower(std::int64_t x, std::int64_t y, std::int64_t z);    // z = x ^ y, where it has a value
bool IsRemainder(std::int64_t x, std::int64_t y,
                 std::int64_t z);                // z = x mod y, y <> 0, truncating
bool IsSign(std::int64_t x, std::int64_t sign);  // sign = -1, 0 or 1 as x is

}  // namespace kiv::ground_truth
