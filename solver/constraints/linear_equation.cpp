#include "solver/constraints/linear_equation.h"

#include <utility>

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearEquation", 0, 0, true);

}  // namespace

LinearEquation::LinearEquation(std::vector<std::int64_t> coefficients, Int128 constant,
                               std::uint64_t most_pairs)
    : KivOmbiConstraint(&descriptor),
      sum_(std::move(coefficients)),
      constant_(constant),
      limits_(sum_.LimitsOf(constant, constant)),
      unit_sum_(sum_, constant),
      most_pairs_(most_pairs) {}

std::int64_t LinearEquation::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  return NarrowToEqual(environment, sum_, limits_, unit_sum_, most_pairs_);
}

KivOmbiConstraint::Cost LinearEquation::GetCost() const { return sum_.GetCost(); }

std::int64_t LinearEquation::GetWakingEvents(unsigned, unsigned) const {
  return WakingEventsOfEquation(sum_, most_pairs_);
}

bool LinearEquation::Holds(std::span<const std::int64_t> values) const {
  return sum_.Of(values) == constant_;
}

namespace {

bool Repeats(const KivOmbiObjectEnvironment& environment, unsigned terms) {
  for (unsigned i = 1; i < terms; ++i) {
    for (unsigned j = 0; j < i; ++j) {
      if (environment.IsSame(i, j)) return true;
    }
  }
  return false;
}

}  // namespace

KivOmbiFilterResult NarrowToEqual(const KivOmbiObjectEnvironment& environment, LinearSum& sum,
                                  const LinearSum::Limits& limits, const UnitSum& unit_sum,
                                  std::uint64_t most_pairs) {
  if (most_pairs > 0) {
    if (const auto result = unit_sum.Narrow(environment)) return *result;
  }
  const auto result = sum.NarrowTo(environment, limits);
  const bool goes_on =
      (result & kKivAtFixpoint) != 0 && (result & (kKivEntailed | kKivOverflow)) == 0;
  if (!goes_on || most_pairs == 0 || sum.Count() > kMostSupportedTerms) return result;
  if (const auto ended = NarrowToSupported(environment, sum, limits, most_pairs)) return ended;
  // What one term of a variable lost was no reason yet for the other one of it.
  return Repeats(environment, sum.Count()) ? 0 : result;
}

std::int64_t WakingEventsOfEquation(const LinearSum& sum, std::uint64_t most_pairs) {
  return most_pairs > 0 && sum.Count() <= kMostSupportedTerms ? kKivAnyEvent : kKivBounds;
}

}  // namespace kiv
