#include "solver/constraints/linear_reified.h"

#include <utility>

#include "framework/abstract_types/boolean.h"
#include "solver/constraints/linear_disequality.h"
#include "solver/constraints/linear_equation.h"
#include "solver/constraints/linear_support.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearReified", 0, 0, true);

bool IsEquationOrOpposite(LinearRelation relation) {
  return relation == LinearRelation::kEqual || relation == LinearRelation::kUnequal;
}

}  // namespace

LinearReified::LinearReified(std::vector<std::int64_t> coefficients, LinearRelation relation,
                             Int128 constant, Reification reification)
    : KivOmbiConstraint(&descriptor),
      sum_(std::move(coefficients)),
      relation_(relation),
      constant_(constant),
      reification_(reification) {}

std::int64_t LinearReified::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned truth = sum_.Count();
  const bool is_implication = reification_ == Reification::kImplication;
  if (environment.Summary(truth).IsFixed()) {
    if (environment.Summary(truth).lower != 0) return Impose(environment, relation_);
    return is_implication ? kKivEntailed : Impose(environment, NegationOf(relation_));
  }
  const std::optional<bool> holds = Decide(environment);
  if (!holds) return kKivAtFixpoint;
  if (*holds && is_implication) return kKivEntailed;
  const bool possible = environment.NarrowAny(truth, [&](KivOmbiAny& domain) {
    return static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(*holds);
  });
  return possible ? kKivEntailed : kKivContradiction;
}

std::optional<bool> LinearReified::Decide(const KivOmbiObjectEnvironment& environment) const {
  if (relation_ == LinearRelation::kEqual) return DecideEqual(environment);
  if (relation_ == LinearRelation::kUnequal) {
    const auto equal = DecideEqual(environment);
    return equal ? std::optional(!*equal) : std::nullopt;
  }
  // Whether the relation holds changes at most once between the ends of the sum.
  const auto [lower, upper] = sum_.RangeOver(environment);
  const bool falls =
      relation_ == LinearRelation::kLess || relation_ == LinearRelation::kLessOrEqual;
  const auto& easiest = falls ? lower : upper;
  const auto& hardest = falls ? upper : lower;
  if (easiest && !Stands(*easiest, relation_, constant_)) return false;
  if (hardest && Stands(*hardest, relation_, constant_)) return true;
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
                                          LinearRelation relation) const {
  switch (relation) {
    case LinearRelation::kEqual:
      return NarrowToEqual(environment, sum_, constant_);
    case LinearRelation::kUnequal:
      return NarrowToUnequal(environment, sum_, constant_);
    case LinearRelation::kLess:
      return sum_.NarrowTo(environment, std::nullopt, constant_ - 1);
    case LinearRelation::kLessOrEqual:
      return sum_.NarrowTo(environment, std::nullopt, constant_);
    case LinearRelation::kGreater:
      return sum_.NarrowTo(environment, constant_ + 1, std::nullopt);
    case LinearRelation::kGreaterOrEqual:
      break;
  }
  return sum_.NarrowTo(environment, constant_, std::nullopt);
}

KivOmbiConstraint::Cost LinearReified::GetCost() const { return sum_.GetCost(); }

std::int64_t LinearReified::GetWakingEvents(unsigned index, unsigned) const {
  if (index == sum_.Count()) return kKivFixed;
  return IsEquationOrOpposite(relation_) ? WakingEventsOfEquation(sum_) : kKivBounds;
}

bool LinearReified::Holds(std::span<const std::int64_t> values) const {
  const bool holds = Stands(sum_.Of(values.first(sum_.Count())), relation_, constant_);
  const bool truth = values[sum_.Count()] != 0;
  return reification_ == Reification::kImplication ? !truth || holds : truth == holds;
}

}  // namespace kiv
