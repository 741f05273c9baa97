#pragma once

#include <compare>
#include <cstdint>
#include <type_traits>

#include "framework/base/export.h"

// An integer of the symmetric range [kMin, kMax] with saturating arithmetic. The two ends stand for
// minus and plus infinity, all other values are finite. The range is symmetric so that negation
// maps it onto itself; the one 32-bit integer outside it, -2147483648, is taken to kMin.
class SubIntBase {
 public:
  static constexpr std::int32_t kMin = -2147483647;
  static constexpr std::int32_t kMax = 2147483647;

  constexpr SubIntBase() noexcept = default;
  constexpr SubIntBase(std::int32_t value) noexcept : value_(value < kMin ? kMin : value) {}

  constexpr std::int32_t GetValue() const noexcept { return value_; }
  constexpr bool IsFinite() const noexcept { return kMin < value_ && value_ < kMax; }

  // Adds as base_plus does.
  SubIntBase& operator+=(SubIntBase other) noexcept;

  friend constexpr bool operator==(SubIntBase a, SubIntBase b) noexcept = default;
  friend constexpr auto operator<=>(SubIntBase a, SubIntBase b) noexcept = default;

  // The nearest value of the range.
  static constexpr SubIntBase Clamp(std::int64_t value) noexcept {
    return SubIntBase(static_cast<std::int32_t>(value < kMin ? kMin : value > kMax ? kMax : value));
  }

 private:
  std::int32_t value_ = 0;
};

static_assert(sizeof(SubIntBase) == 4 && std::is_trivially_copyable_v<SubIntBase>);

// Exact sum, clamped. An infinity absorbs a finite operand and its equal; opposite infinities give
// 0 and set the error indicator.
KIV_EXPORT SubIntBase base_plus(SubIntBase a, SubIntBase b) noexcept;

// base_plus(a, -b).
KIV_EXPORT SubIntBase base_minus(SubIntBase a, SubIntBase b) noexcept;

// Exact product, clamped. 0 times anything is 0; otherwise an infinite operand gives the infinity
// of the product's sign.
KIV_EXPORT SubIntBase base_mult(SubIntBase a, SubIntBase b) noexcept;

// Quotient truncated toward zero. A divisor 0 gives kMax, kMin or 0 by the sign of a and sets the
// error indicator. Finite by infinite is 0, infinite by finite the infinity of the quotient's sign,
// infinite by infinite 0 with the error indicator set.
KIV_EXPORT SubIntBase base_div(SubIntBase a, SubIntBase b) noexcept;

// The error indicator of this thread: nonzero once an operation above had no meaning, until it is
// cleared. Clamping is no error.
KIV_EXPORT int SDCheckError() noexcept;
KIV_EXPORT void SDClearError() noexcept;

inline SubIntBase& SubIntBase::operator+=(SubIntBase other) noexcept {
  return *this = base_plus(*this, other);
}
