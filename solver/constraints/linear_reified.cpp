#include "solver/constraints/linear_reified.h"

#include <cassert>
#include <utility>

#include "solver/constraints/linear_disequality.h"
#include "solver/constraints/linear_equation.h"
#include "solver/constraints/linear_support.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearReified", 0, 0, true);

}  // namespace

LinearReified::LinearReified(std::vector<std::int64_t> coefficients, LinearRelation relation,
                             Int128 constant, Reification reification)
    : KivOmbiConstraint(&descriptor),
      sum_(std::move(coefficients)),
      relation_(relation),
      constant_(constant),
      reification_(reification) {
  assert(relation == LinearRelation::kEqual || relation == LinearRelation::kUnequal ||
         relation == LinearRelation::kLessOrEqual);
}

std::int64_t LinearReified::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  return FilterReified(
      environment, sum_.Count(), reification_, [&] { return Decide(environment); },
      [&](bool holds) { return Impose(environment, holds); });
}

std::optional<bool> LinearReified::Decide(const KivOmbiObjectEnvironment& environment) const {
  if (relation_ == LinearRelation::kEqual) return DecideEqual(environment);
  if (relation_ == LinearRelation::kUnequal) {
    const auto equal = DecideEqual(environment);
    return equal ? std::optional(!*equal) : std::nullopt;
  }
  const auto [lower, upper] = sum_.RangeOver(environment);
  if (upper && *upper <= constant_) return true;
  if (lower && *lower > constant_) return false;
  return std::nullopt;
}

std::optional<bool> LinearReified::DecideEqual(const KivOmbiObjectEnvironment& environment) const {
  const auto [lower, upper] = sum_.RangeOver(environment);
  if ((lower && *lower > constant_) || (upper && *upper < constant_)) return false;
  if (lower && upper && *lower == *upper) return true;
  const bool is_short = sum_.Count() <= kMostSupportedTerms;
  if (is_short && !HasSupport(environment, sum_, constant_)) return false;
  return std::nullopt;
}

KivOmbiFilterResult LinearReified::Impose(const KivOmbiObjectEnvironment& environment,
                                          bool holds) const {
  if (relation_ == LinearRelation::kLessOrEqual) {
    return holds ? sum_.NarrowTo(environment, std::nullopt, constant_)
                 : sum_.NarrowTo(environment, constant_ + 1, std::nullopt);
  }
  const bool is_equal = holds == (relation_ == LinearRelation::kEqual);
  return is_equal ? NarrowToEqual(environment, sum_, constant_)
                  : NarrowToUnequal(environment, sum_, constant_);
}

KivOmbiConstraint::Cost LinearReified::GetCost() const { return sum_.GetCost(); }

std::int64_t LinearReified::GetWakingEvents(unsigned index, unsigned) const {
  if (index == sum_.Count()) return kKivFixed;
  return relation_ == LinearRelation::kLessOrEqual ? kKivBounds : WakingEventsOfEquation(sum_);
}

bool LinearReified::Holds(std::span<const std::int64_t> values) const {
  const bool holds = Stands(sum_.Of(values.first(sum_.Count())), relation_, constant_);
  return HoldsReified(values[sum_.Count()] != 0, reification_, holds);
}

}  // namespace kiv
