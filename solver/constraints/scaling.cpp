#include "solver/constraints/scaling.h"

#include <optional>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kZ, kArguments };

const KivOmbiConstraintDescriptor descriptor("kiv::Scaling", kArguments, 0, true);

std::int64_t FloorDivide(std::int64_t a, std::int64_t b) {
  return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

std::int64_t CeilDivide(std::int64_t a, std::int64_t b) { return -FloorDivide(-a, b); }

bool IsInfinite(std::int64_t bound) {
  return bound <= -Hull::kUnbounded || bound >= Hull::kUnbounded;
}

// The image of a hull under a monotone map of its finite bounds.
template <class Lower, class Upper>
Hull Map(const Hull& hull, bool rising, Lower&& lower, Upper&& upper) {
  const std::int64_t from = rising ? hull.lower : hull.upper;
  const std::int64_t to = rising ? hull.upper : hull.lower;
  return {IsInfinite(from) ? -Hull::kUnbounded : lower(from),
          IsInfinite(to) ? Hull::kUnbounded : upper(to)};
}

// Argument `target`, of which nothing is known, takes `map(value)` for each value of `source` that
// has one. False when none has.
template <class MapValue>
bool TakeImage(const KivOmbiObjectEnvironment& environment, unsigned target, unsigned source,
               MapValue&& map) {
  return TakeValues(environment, target, [&](auto&& add) {
    ForEachValue(environment.Integer(source), environment.Summary(source), [&](std::int32_t value) {
      if (const auto image = map(value)) add(*image);
    });
  });
}

// Whether `value` is possible for a domain that is known; one that is open on a side may hold
// whatever lies beyond the range of integers there.
bool MayHold(const KivOmbiInteger& domain, const KivOmbiDomainSummary& summary,
             std::int64_t value) {
  if (value <= SubIntBase::kMin) return summary.lower == SubIntBase::kMin;
  if (value >= SubIntBase::kMax) return summary.upper == SubIntBase::kMax;
  return domain.MayBe(static_cast<std::int32_t>(value));
}

}  // namespace

Scaling::Scaling(std::int32_t coefficient)
    : KivOmbiConstraint(&descriptor), coefficient_(coefficient) {}

std::int64_t Scaling::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (coefficient_ == 0) {
    bool unknown = false;
    if (const auto result = NarrowToHull(environment, kZ, {0, 0}, unknown)) return result;
    const bool possible = environment.NarrowInteger(
        kZ, [](KivOmbiInteger& domain) { return domain.CalcZeroValue(); });
    return possible ? kKivEntailed : kKivContradiction;
  }

  const bool rising = coefficient_ > 0;
  const auto times = [&](std::int64_t bound) { return coefficient_ * bound; };
  bool z_unknown = false;
  const Hull products = Map(HullOf(environment.Summary(kX)), rising, times, times);
  if (const auto result = NarrowToHull(environment, kZ, products, z_unknown)) return result;
  const Hull quotients = Map(
      HullOf(environment.Summary(kZ)), rising,
      [&](std::int64_t bound) { return CeilDivide(bound, coefficient_); },
      [&](std::int64_t bound) { return FloorDivide(bound, coefficient_); });
  if (quotients.lower > quotients.upper) return Empty(environment, kX);
  bool x_unknown = false;
  if (const auto result = NarrowToHull(environment, kX, quotients, x_unknown)) return result;

  // What bounds leave open, value by value.
  if (z_unknown) return 0;
  const auto product = [&](std::int32_t value) {
    return std::optional(static_cast<std::int32_t>(times(value)));
  };
  const auto quotient = [&](std::int32_t value) {
    return value % coefficient_ == 0
               ? std::optional(static_cast<std::int32_t>(value / coefficient_))
               : std::nullopt;
  };
  const auto has_product = [&](std::int32_t value) {
    return MayHold(environment.Integer(kZ), environment.Summary(kZ), times(value));
  };
  const auto has_quotient = [&](std::int32_t value) {
    const auto factor = quotient(value);
    return factor && environment.Integer(kX).MayBe(*factor);
  };
  if (IsListable(environment.Summary(kX))) {
    if (environment.Summary(kZ).IsAny()) TakeImage(environment, kZ, kX, product);
    if (!FilterValues(environment, kX, has_product)) return kKivContradiction;
  }
  if (IsListable(environment.Summary(kZ))) {
    const bool possible =
        !environment.Summary(kX).IsAny() || TakeImage(environment, kX, kZ, quotient);
    if (!possible || !FilterValues(environment, kZ, has_quotient)) return kKivContradiction;
  }
  return Settle(environment);
}

KivOmbiConstraint::Cost Scaling::GetCost() const { return kBinary; }

bool Scaling::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == coefficient_ * values[kX];
}

}  // namespace kiv
