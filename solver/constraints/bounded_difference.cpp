#include "solver/constraints/bounded_difference.h"

#include <optional>
#include <tuple>

namespace kiv {

namespace {

enum Argument : unsigned { kX, kY, kTruth };

const KivOmbiConstraintDescriptor descriptor("kiv::BoundedDifference", 2, 0, true);
const KivOmbiConstraintDescriptor truth_descriptor("kiv::BoundedDifferenceTruth", 3, 0, true);

// Whether x - y <= most, as far as the bounds of two different variables tell.
std::optional<bool> IsBounded(const Hull& x, const Hull& y, std::int64_t most) {
  if (x.upper - y.lower <= most) return true;
  if (x.lower - y.upper > most) return false;
  return std::nullopt;
}

// The same for argument x and argument y, which may be one.
std::optional<bool> IsBounded(const KivOmbiObjectEnvironment& environment, unsigned x, unsigned y,
                              std::int64_t most) {
  if (environment.IsSame(x, y)) return most >= 0;
  return IsBounded(HullOf(environment, x), HullOf(environment, y), most);
}

// argument x - argument y <= most. The upper bound of the one and the lower bound of the other do
// not meet again, so that one pass is enough.
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, unsigned x, unsigned y,
                           std::int64_t most) {
  if (environment.IsSame(x, y)) return most >= 0 ? kKivEntailed : kKivContradiction;
  const Hull minuend = HullOf(environment, x);
  const Hull subtrahend = HullOf(environment, y);
  if (const auto bounded = IsBounded(minuend, subtrahend, most)) {
    return *bounded ? kKivEntailed : kKivContradiction;
  }
  const Hull below{-Hull::kUnbounded, subtrahend.upper + most};
  const Hull above{minuend.lower - most, Hull::kUnbounded};
  const bool lowers_x = minuend.upper > below.upper;
  const bool raises_y = subtrahend.lower < above.lower;
  if (!lowers_x && !raises_y) return kKivAtFixpoint;
  KivOmbiFilterResult overflow = 0;
  for (const auto& [i, hull, narrows] :
       {std::tuple{x, below, lowers_x}, std::tuple{y, above, raises_y}}) {
    const auto result = narrows ? NarrowToHull(environment, i, hull) : 0;
    if ((result & kKivContradiction) != 0) return result;
    overflow |= result;
  }
  const bool holds = IsBounded(HullOf(environment, x), HullOf(environment, y), most) == true;
  return overflow | (holds ? kKivEntailed : kKivAtFixpoint);
}

}  // namespace

BoundedDifference::BoundedDifference(std::int64_t most)
    : KivOmbiConstraint(&descriptor), most_(most) {}

std::int64_t BoundedDifference::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  return Narrow(environment, kX, kY, most_);
}

KivOmbiConstraint::Cost BoundedDifference::GetCost() const { return kBinary; }

std::int64_t BoundedDifference::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

bool BoundedDifference::Holds(std::span<const std::int64_t> values) const {
  return values[kX] - values[kY] <= most_;
}

BoundedDifferenceTruth::BoundedDifferenceTruth(std::int64_t most, Reification reification)
    : KivOmbiConstraint(&truth_descriptor), most_(most), reification_(reification) {}

// The opposite of x - y <= most is y - x <= -most - 1.
std::int64_t BoundedDifferenceTruth::Filter(const KivOmbiObjectEnvironment& environment,
                                            std::int64_t) {
  return FilterReified(
      environment, kTruth, reification_, [&] { return IsBounded(environment, kX, kY, most_); },
      [&](bool holds) {
        return holds ? Narrow(environment, kX, kY, most_) : Narrow(environment, kY, kX, -most_ - 1);
      });
}

KivOmbiConstraint::Cost BoundedDifferenceTruth::GetCost() const { return kBinary; }

std::int64_t BoundedDifferenceTruth::GetWakingEvents(unsigned index, unsigned) const {
  return index == kTruth ? kKivFixed : kKivBounds;
}

bool BoundedDifferenceTruth::Holds(std::span<const std::int64_t> values) const {
  return HoldsReified(values[kTruth] != 0, reification_, values[kX] - values[kY] <= most_);
}

}  // namespace kiv
