#include "solver/constraints/unequal_difference.h"

#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kY };

const KivOmbiConstraintDescriptor descriptor("kiv::UnequalDifference", 2, 0, true);

}  // namespace

UnequalDifference::UnequalDifference(std::int64_t constant)
    : KivOmbiConstraint(&descriptor), constant_(constant) {}

std::int64_t UnequalDifference::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const KivOmbiDomainSummary& x = environment.Summary(kX);
  if (x.IsFixed()) return Exclude(environment, kY, x.lower - constant_);
  const KivOmbiDomainSummary& y = environment.Summary(kY);
  return y.IsFixed() ? Exclude(environment, kX, y.lower + constant_) : kKivAtFixpoint;
}

KivOmbiConstraint::Cost UnequalDifference::GetCost() const { return kBinary; }

std::int64_t UnequalDifference::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed | kKivBoundsOfGapless;
}

bool UnequalDifference::Holds(std::span<const std::int64_t> values) const {
  return values[kX] - values[kY] != constant_;
}

}  // namespace kiv
