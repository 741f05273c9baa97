#include "solver/constraints/scaling.h"

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

// Argument `target`, of which nothing is known, takes the image of the values of `source`:
// `map(value, add)` calls `add` with what corresponds to a value, if anything does.
template <class MapValue>
KivOmbiFilterResult TakeImage(const KivOmbiObjectEnvironment& environment, unsigned target,
                              unsigned source, MapValue&& map) {
  auto& image = static_cast<KivOmbiInteger&>(environment.Scratch(*environment.Kind(target), 0));
  image.SetNilValue();
  ForEachValue(environment.Integer(source), environment.Summary(source), [&](std::int32_t value) {
    map(value,
        [&](std::int64_t mapped) { image.InsertExactValue(static_cast<std::int32_t>(mapped)); });
  });
  // A kind that cannot hold the image says Any, and stays unknown.
  const bool possible = environment.NarrowAny(
      target, [&](KivOmbiAny& domain) { return domain.CalcEqualValue(image); });
  return possible ? KivOmbiFilterResult{0} : kKivContradiction;
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
  if (IsListable(environment.Summary(kX))) {
    if (environment.Summary(kZ).IsAny()) {
      if (z_unknown) return 0;
      if (const auto result = TakeImage(
              environment, kZ, kX, [&](std::int32_t value, auto&& add) { add(times(value)); })) {
        return result;
      }
    } else if (!FilterValues(environment, kX, [&](std::int32_t value) {
                 const std::int64_t product = times(value);
                 return SubIntBase::Clamp(product).IsFinite() &&
                        environment.Integer(kZ).MayBe(static_cast<std::int32_t>(product));
               })) {
      return kKivContradiction;
    }
  }
  if (IsListable(environment.Summary(kZ))) {
    if (environment.Summary(kX).IsAny()) {
      if (const auto result = TakeImage(environment, kX, kZ, [&](std::int32_t value, auto&& add) {
            if (value % coefficient_ == 0) add(value / coefficient_);
          })) {
        return result;
      }
    } else if (!FilterValues(environment, kZ, [&](std::int32_t value) {
                 return value % coefficient_ == 0 &&
                        environment.Integer(kX).MayBe(
                            static_cast<std::int32_t>(value / coefficient_));
               })) {
      return kKivContradiction;
    }
  }
  return Settle(environment);
}

KivOmbiConstraint::Cost Scaling::GetCost() const { return kBinary; }

bool Scaling::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == coefficient_ * values[kX];
}

}  // namespace kiv
