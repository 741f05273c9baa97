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
      limits_(relation == LinearRelation::kLessOrEqual ? sum_.LimitsOf(std::nullopt, constant)
                                                       : sum_.LimitsOf(constant, constant)),
      opposite_(sum_.LimitsOf(constant + 1, std::nullopt)),
      unit_sum_(sum_, constant),
      reification_(reification) {
  assert(relation == LinearRelation::kEqual || relation == LinearRelation::kUnequal ||
         relation == LinearRelation::kLessOrEqual);
}

std::int64_t LinearReified::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  return FilterReified(
      environment, sum_.Count(), reification_, [&] { return Decide(environment); },
      [&](bool holds) { return Impose(environment, holds); });
}

std::optional<bool> LinearReified::Decide(const KivOmbiObjectEnvironment& environment) {
  if (relation_ == LinearRelation::kLessOrEqual) return sum_.Meets(environment, limits_);
  const auto equal = DecideEqual(environment);
  return equal ? std::optional(*equal == (relation_ == LinearRelation::kEqual)) : std::nullopt;
}

std::optional<bool> LinearReified::DecideEqual(const KivOmbiObjectEnvironment& environment) {
  if (const auto equal = sum_.Meets(environment, limits_)) return equal;
  const bool is_short = sum_.Count() <= kMostSupportedTerms;
  if (is_short && !HasSupport(environment, sum_, limits_)) return false;
  return std::nullopt;
}

KivOmbiFilterResult LinearReified::Impose(const KivOmbiObjectEnvironment& environment, bool holds) {
  if (relation_ == LinearRelation::kLessOrEqual) {
    return sum_.NarrowTo(environment, holds ? limits_ : opposite_);
  }
  const bool is_equal = holds == (relation_ == LinearRelation::kEqual);
  return is_equal ? NarrowToEqual(environment, sum_, limits_, unit_sum_)
                  : NarrowToUnequal(environment, sum_, limits_);
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
