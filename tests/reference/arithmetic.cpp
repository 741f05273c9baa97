#include "tests/reference/arithmetic.h"

#include <algorithm>
#include <cstdlib>

#include "tests/reference/enum_set.h"

namespace kiv::reference {

bool arithmetic_error = false;

namespace {

bool IsInfinite(std::int32_t v) { return v == kMin || v == kMax; }

std::int32_t Clamped(std::int64_t v) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(v, kMin, kMax));
}

}  // namespace

std::int32_t Plus(std::int32_t a, std::int32_t b) {
  if (IsInfinite(a) && IsInfinite(b) && a != b) {
    arithmetic_error = true;
    return 0;
  }
  if (IsInfinite(a)) return a;
  if (IsInfinite(b)) return b;
  return Clamped(std::int64_t{a} + b);
}

std::int32_t Times(std::int32_t a, std::int32_t b) {
  if (a == 0 || b == 0) return 0;
  if (IsInfinite(a) || IsInfinite(b)) return (a < 0) == (b < 0) ? kMax : kMin;
  return Clamped(std::int64_t{a} * b);
}

std::int32_t Quotient(std::int32_t a, std::int32_t b) {
  if (b == 0) {
    arithmetic_error = true;
    return a > 0 ? kMax : a < 0 ? kMin : 0;
  }
  if (IsInfinite(a) && IsInfinite(b)) {
    arithmetic_error = true;
    return 0;
  }
  if (IsInfinite(b)) return 0;
  if (IsInfinite(a)) return (a < 0) == (b < 0) ? kMax : kMin;
  return a / b;
}

// By way of the magnitudes.
std::int32_t Remainder(std::int32_t a, std::int32_t b) {
  const std::int64_t rest = std::llabs(a) % std::llabs(b);
  return static_cast<std::int32_t>(a < 0 ? -rest : rest);
}

Power PowerOf(std::int32_t base, std::int32_t exponent) {
  if (exponent == 0) return {Power::kValue, 1};
  if (exponent == kMin || exponent == kMax) {
    if (base == 1) return {Power::kValue, 1};
    if (base < 0) return {Power::kUnknown, 0};
    if (exponent == kMin) return {Power::kNone, 0};
    return {Power::kValue, base == 0 ? 0 : kMax};
  }
  if (base == 1) return {Power::kValue, 1};
  if (base == -1) return {Power::kValue, exponent % 2 == 0 ? 1 : -1};
  if (exponent < 0) return {Power::kNone, 0};
  if (base == 0) return {Power::kValue, 0};
  std::int64_t power = 1;
  for (std::int32_t i = 0; i < exponent; ++i) {
    power *= base;
    // Beyond the range it is clamped whatever follows; the sign alternates with each factor.
    if (power > kMax || power < kMin) {
      return {Power::kValue, base < 0 && exponent % 2 != 0 ? kMin : kMax};
    }
  }
  return {Power::kValue, static_cast<std::int32_t>(power)};
}

}  // namespace kiv::reference
