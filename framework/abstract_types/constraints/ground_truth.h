#pragma once

#include <cstdint>

#include "framework/base/export.h"

// What the constraints mean, in plain 64-bit arithmetic on 32-bit values. Nothing here is shared
// with the propagation that it judges.
namespace kiv::ground_truth {

// z = x + y
KIV_EXPORT bool IsSum(std::int64_t x, std::int64_t y, std::int64_t z);
// z = x * y
KIV_EXPORT bool IsProduct(std::int64_t x, std::int64_t y, std::int64_t z);
// z = x ^ y, where it has a value
KIV_EXPORT bool IsPower(std::int64_t x, std::int64_t y, std::int64_t z);
// z = x mod y, truncating; y <> 0
KIV_EXPORT bool IsRemainder(std::int64_t x, std::int64_t y, std::int64_t z);
// z = x div y, truncating toward zero; y <> 0
KIV_EXPORT bool IsTruncatedQuotient(std::int64_t x, std::int64_t y, std::int64_t z);
// sign is -1, 0 or 1 as x is
KIV_EXPORT bool IsSign(std::int64_t x, std::int64_t sign);

}  // namespace kiv::ground_truth
