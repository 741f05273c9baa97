#include "solver/constraints/bounded_difference.h"

#include <optional>
#include <utility>

namespace kiv {

namespace {

enum Argument : unsigned { kX, kY, kTruth };

const KivOmbiConstraintDescriptor descriptor("kiv::BoundedDifference", 2, 0, true);
const KivOmbiConstraintDescriptor truth_descriptor("kiv::BoundedDifferenceTruth", 3, 0, true);

// Whether argument x - argument y <= most, as far as the bounds tell.
std::optional<bool> IsBounded(const KivOmbiObjectEnvironment& environment, unsigned x, unsigned y,
                              std::int64_t most) {
  if (environment.IsSame(x, y)) return most >= 0;
  const Hull minuend = HullOf(environment, x);
  const Hull subtrahend = HullOf(environment, y);
  if (minuend.upper - subtrahend.lower <= most) return true;
  if (minuend.lower - subtrahend.upper > most) return false;
  return std::nullopt;
}

// argument x - argument y <= most. The upper bound of the one and the lower bound of the other do
// not meet again, so that one pass is enough.
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, unsigned x, unsigned y,
                           std::int64_t most) {
  const auto before = IsBounded(environment, x, y, most);
  if (before) return *before ? kKivEntailed : kKivContradiction;
  const std::int64_t greatest = HullOf(environment, y).upper + most;
  const std::int64_t least = HullOf(environment, x).lower - most;
  KivOmbiFilterResult overflow = 0;
  for (const auto& [i, hull] : {std::pair{x, Hull{-Hull::kUnbounded, greatest}},
                                std::pair{y, Hull{least, Hull::kUnbounded}}}) {
    const auto result = NarrowToHull(environment, i, hull);
    if ((result & kKivContradiction) != 0) return result;
    overflow |= result;
  }
  const bool holds = IsBounded(environment, x, y, most) == true;
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
