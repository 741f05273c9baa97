#include "framework/intervals/sub_int_base.h"

namespace {

thread_local int error_indicator = 0;

SubIntBase InfinityOfSign(int sign) noexcept {
  return sign < 0 ? SubIntBase::kMin : SubIntBase::kMax;
}

int Sign(SubIntBase a) noexcept { return (a.GetValue() > 0) - (a.GetValue() < 0); }

}  // namespace

int SDCheckError() noexcept { return error_indicator; }

void SDClearError() noexcept { error_indicator = 0; }

SubIntBase base_plus(SubIntBase a, SubIntBase b) noexcept {
  if (a.IsFinite() && b.IsFinite()) {
    return SubIntBase::Clamp(std::int64_t{a.GetValue()} + b.GetValue());
  }
  if (a.IsFinite()) return b;
  if (b.IsFinite() || a == b) return a;
  error_indicator = 1;
  return 0;
}

SubIntBase base_minus(SubIntBase a, SubIntBase b) noexcept { return base_plus(a, -b.GetValue()); }

SubIntBase base_mult(SubIntBase a, SubIntBase b) noexcept {
  if (a.IsFinite() && b.IsFinite()) {
    return SubIntBase::Clamp(std::int64_t{a.GetValue()} * b.GetValue());
  }
  const int sign = Sign(a) * Sign(b);
  return sign == 0 ? SubIntBase(0) : InfinityOfSign(sign);
}

SubIntBase base_div(SubIntBase a, SubIntBase b) noexcept {
  if (b.GetValue() == 0) {
    error_indicator = 1;
    return Sign(a) == 0 ? SubIntBase(0) : InfinityOfSign(Sign(a));
  }
  if (a.IsFinite()) return b.IsFinite() ? SubIntBase(a.GetValue() / b.GetValue()) : SubIntBase(0);
  if (b.IsFinite()) return InfinityOfSign(Sign(a) * Sign(b));
  error_indicator = 1;
  return 0;
}
