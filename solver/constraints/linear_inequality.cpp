#include "solver/constraints/linear_inequality.h"

#include <utility>

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearInequality", 0, 0, true);

}  // namespace

LinearInequality::LinearInequality(std::vector<std::int64_t> coefficients, Int128 constant)
    : KivOmbiConstraint(&descriptor),
      sum_(std::move(coefficients)),
      constant_(constant),
      limits_(sum_.LimitsOf(std::nullopt, constant)) {}

std::int64_t LinearInequality::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  return sum_.NarrowTo(environment, limits_);
}

KivOmbiConstraint::Cost LinearInequality::GetCost() const { return sum_.GetCost(); }

std::int64_t LinearInequality::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

bool LinearInequality::Holds(std::span<const std::int64_t> values) const {
  return sum_.Of(values) <= constant_;
}

}  // namespace kiv
