#include "framework/numbers/power.h"

#include <algorithm>
#include <cstdint>

namespace kiv {

namespace {

constexpr std::int64_t kMin = SubIntBase::kMin;
constexpr std::int64_t kMax = SubIntBase::kMax;

// The least exponent that takes every base but -1, 0 and 1 to an end of the range.
constexpr std::int64_t kSaturatingExponent = 31;

bool IsOdd(std::int64_t v) { return v % 2 != 0; }

// base ^ exponent, clamped, for a base from 0 and an exponent from 1.
std::int64_t Magnitude(std::int64_t base, std::int64_t exponent) {
  if (base <= 1) return base;
  std::int64_t power = 1;
  for (std::int64_t i = 0; i < exponent && power < kMax; ++i) power *= base;
  return std::min(power, kMax);
}

// The least base of [lower, upper] whose magnitude is `bound` or more; upper + 1 when there is
// none.
std::int64_t LeastBase(std::int64_t bound, std::int64_t exponent, std::int64_t lower,
                       std::int64_t upper) {
  std::int64_t end = upper + 1;
  while (lower < end) {
    const std::int64_t middle = (lower + end) / 2;
    if (Magnitude(middle, exponent) >= bound) {
      end = middle;
    } else {
      lower = middle + 1;
    }
  }
  return end;
}

// The least closed interval around everything that was added to it.
class Hull {
 public:
  // The part of [lower, upper] that lies in `range`.
  void Add(std::int64_t lower, std::int64_t upper, const SubdefInt& range) {
    lower = std::max<std::int64_t>(lower, range.GetLower().GetValue());
    upper = std::min<std::int64_t>(upper, range.GetUpper().GetValue());
    if (lower > upper) return;
    lower_ = std::min(lower_, lower);
    upper_ = std::max(upper_, upper);
  }

  SubdefInt Get() const { return SubdefInt(SubIntBase::Clamp(lower_), SubIntBase::Clamp(upper_)); }

 private:
  std::int64_t lower_ = kMax;
  std::int64_t upper_ = kMin;
};

// Away from 1 .. 30 the power is the same for all bases of each of these intervals.
struct {
  std::int64_t lower;
  std::int64_t upper;
} constexpr kBaseClasses[] = {{kMin, -2}, {-1, -1}, {0, 0}, {1, 1}, {2, kMax}};

SubdefInt BasesByClass(const SubdefInt& result, const SubdefInt& bases, SubIntBase exponent) {
  Hull hull;
  for (const auto& [lower, upper] : kBaseClasses) {
    const auto representative = static_cast<std::int32_t>(upper < 0 ? upper : lower);
    if (PowerOf(representative, exponent).MayBeIn(result)) hull.Add(lower, upper, bases);
  }
  return hull.Get();
}

// On either side of zero the magnitude grows with the distance from zero.
SubdefInt BasesByMagnitude(const SubdefInt& result, const SubdefInt& bases, std::int64_t exponent) {
  Hull hull;
  const std::int64_t lower = bases.GetLower().GetValue();
  const std::int64_t upper = bases.GetUpper().GetValue();
  const std::int64_t least = result.GetLower().GetValue();
  const std::int64_t greatest = result.GetUpper().GetValue();
  if (upper >= 0) {
    const std::int64_t from = std::max<std::int64_t>(lower, 0);
    hull.Add(LeastBase(least, exponent, from, upper),
             LeastBase(greatest + 1, exponent, from, upper) - 1, bases);
  }
  if (lower < 0) {
    const std::int64_t from = std::max<std::int64_t>(-upper, 1);
    const bool keeps_sign = IsOdd(exponent);
    hull.Add(1 - LeastBase((keeps_sign ? -least : greatest) + 1, exponent, from, -lower),
             -LeastBase(keeps_sign ? -greatest : least, exponent, from, -lower), bases);
  }
  return hull.Get();
}

}  // namespace

bool Power::MayBeIn(const SubdefInt& result) const {
  return state == kUnknown ||
         (state == kValue && result.GetLower() <= value && value <= result.GetUpper());
}

Power PowerOf(SubIntBase base, SubIntBase exponent) {
  const std::int64_t b = base.GetValue();
  const std::int64_t e = exponent.GetValue();
  if (e == 0 || b == 1) return {Power::kValue, 1};
  if (b < 0 && !exponent.IsFinite()) return {Power::kUnknown, 0};
  const int sign = b < 0 && IsOdd(e) ? -1 : 1;
  if (b == -1) return {Power::kValue, sign};
  if (e < 0) return {Power::kNone, 0};
  return {Power::kValue, SubIntBase::Clamp(sign * Magnitude(b < 0 ? -b : b, e))};
}

SubdefInt BasesOf(const SubdefInt& result, const SubdefInt& bases, SubIntBase exponent) {
  const std::int64_t e = exponent.GetValue();
  return 1 <= e && e < kSaturatingExponent ? BasesByMagnitude(result, bases, e)
                                           : BasesByClass(result, bases, exponent);
}

// Below 0 and from 31 on it depends on the parity alone whether an exponent is one, the infinite
// ones apart, and a negative one has positive ones of its parity beside it. So the ends of the hull
// are among the three outermost exponents on either side and 0 .. 32.
SubdefInt ExponentsOf(const SubdefInt& result, const SubdefInt& bases, const SubdefInt& exponents) {
  Hull hull;
  const auto add_those_of = [&](std::int64_t first, std::int64_t last) {
    first = std::max<std::int64_t>(first, exponents.GetLower().GetValue());
    last = std::min<std::int64_t>(last, exponents.GetUpper().GetValue());
    for (std::int64_t e = first; e <= last; ++e) {
      if (!BasesOf(result, bases, SubIntBase::Clamp(e)).IsEmpty()) hull.Add(e, e, exponents);
    }
  };
  const std::int64_t lower = exponents.GetLower().GetValue();
  const std::int64_t upper = exponents.GetUpper().GetValue();
  add_those_of(lower, lower + 2);
  add_those_of(0, kSaturatingExponent + 1);
  add_those_of(upper - 2, upper);
  return hull.Get();
}

}  // namespace kiv
