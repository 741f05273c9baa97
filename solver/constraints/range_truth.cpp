#include "solver/constraints/range_truth.h"

#include <algorithm>

#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kTruth };

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

const KivOmbiConstraintDescriptor descriptor("kiv::RangeTruth", 2, 0, true);

}  // namespace

RangeTruth::RangeTruth(Which which, std::int64_t lower, std::int64_t upper, Reification reification)
    : KivOmbiConstraint(&descriptor),
      lower_(lower <= kMin + 1 ? kMin
                               : static_cast<std::int32_t>(std::min<std::int64_t>(lower, kMax))),
      upper_(upper >= kMax - 1 ? kMax
                               : static_cast<std::int32_t>(std::max<std::int64_t>(upper, kMin))),
      which_(which),
      reification_(reification) {}

std::int64_t RangeTruth::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const auto decide = [&] {
    const auto inside = LiesInside(environment);
    return inside ? std::optional(*inside == which_) : std::nullopt;
  };
  const auto impose = [&](bool holds) { return Narrow(environment, holds == which_); };
  return FilterReified(environment, kTruth, reification_, decide, impose);
}

// Whether all values are inside, or none is.
std::optional<bool> RangeTruth::LiesInside(const KivOmbiObjectEnvironment& environment) const {
  const KivOmbiDomainSummary& x = environment.Summary(kX);
  if (lower_ <= x.lower && x.upper <= upper_) return true;
  if (x.IsAny() || MayBeBetween(environment, kX, lower_, upper_)) return std::nullopt;
  return false;
}

KivOmbiFilterResult RangeTruth::Narrow(const KivOmbiObjectEnvironment& environment,
                                       bool inside) const {
  if (LiesInside(environment) == !inside) return kKivContradiction;
  if (!inside) {
    if (const auto result = Leave(environment)) return result;
  } else if (lower_ > kMin && upper_ < kMax) {
    if (const auto result = KeepRange(environment, kX, lower_, upper_)) return result;
  } else {
    if (const auto result = TightenLower(environment, kX, lower_)) return result;
    if (const auto result = TightenUpper(environment, kX, upper_)) return result;
  }
  return LiesInside(environment) == inside ? kKivEntailed : kKivAtFixpoint;
}

// x, which has values outside, loses those inside, as far as its kind can.
KivOmbiFilterResult RangeTruth::Leave(const KivOmbiObjectEnvironment& environment) const {
  const KivOmbiDomainSummary& x = environment.Summary(kX);
  if (lower_ <= x.lower) return TightenLower(environment, kX, std::int64_t{upper_} + 1);
  if (x.upper <= upper_) return TightenUpper(environment, kX, std::int64_t{lower_} - 1);
  if (lower_ == upper_) return RemoveValue(environment, kX, lower_);
  if (!IsListable(x)) return 0;
  environment.NarrowInteger(kX, [&](KivOmbiInteger& domain) {
    int changed = 0;
    std::int32_t value = domain.GetNextExactValue(lower_ - 1);
    while (value <= upper_ && domain.RemoveExactValue(value) != 0) {
      changed = 1;
      value = domain.GetNextExactValue(value);
    }
    return changed;
  });
  return 0;
}

KivOmbiConstraint::Cost RangeTruth::GetCost() const { return kUnary; }

std::int64_t RangeTruth::GetWakingEvents(unsigned index, unsigned) const {
  if (index == kTruth) return kKivFixed;
  const bool has_two_limits = lower_ > kMin && upper_ < kMax;
  return has_two_limits ? kKivAnyEvent : kKivBounds;
}

bool RangeTruth::Holds(std::span<const std::int64_t> values) const {
  const bool is_inside = lower_ <= values[kX] && values[kX] <= upper_;
  return HoldsReified(values[kTruth] != 0, reification_, is_inside == (which_ == kInside));
}

}  // namespace kiv
