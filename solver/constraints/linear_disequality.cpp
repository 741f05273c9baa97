#include "solver/constraints/linear_disequality.h"

#include <utility>

#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearDisequality", 0, 0, true);

// The first argument from `from` on that is not fixed, below `count`, or `count`.
unsigned FindOpen(const KivOmbiObjectEnvironment& environment, unsigned from, unsigned count) {
  while (from < count && environment.Summary(from).IsFixed()) ++from;
  return from;
}

// The sum is not `constant`, where all arguments but `open` are fixed, or all when that is none.
template <class Wide>
KivOmbiFilterResult NarrowLast(const KivOmbiObjectEnvironment& environment,
                               std::span<const std::int64_t> coefficients, Wide constant,
                               unsigned open) {
  Wide rest = constant;
  for (unsigned i = 0; i < coefficients.size(); ++i) {
    if (i != open) rest -= static_cast<Wide>(coefficients[i]) * environment.Summary(i).lower;
  }
  if (open == coefficients.size()) return rest != 0 ? kKivEntailed : kKivContradiction;
  const auto divisor = static_cast<Wide>(coefficients[open]);
  if (rest % divisor != 0) return kKivEntailed;
  return Exclude(environment, open, ToHullBound(rest / divisor));
}

// For a sum of which at most argument `open` is not fixed.
KivOmbiFilterResult NarrowLast(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                               const LinearSum::Limits& limits, unsigned open) {
  const auto coefficients = sum.GetCoefficients();
  return sum.IsNarrow() ? NarrowLast(environment, coefficients, limits.narrow_low, open)
                        : NarrowLast(environment, coefficients, *limits.low, open);
}

}  // namespace

LinearDisequality::LinearDisequality(std::vector<std::int64_t> coefficients, Int128 constant)
    : KivOmbiConstraint(&descriptor),
      sum_(std::move(coefficients)),
      constant_(constant),
      limits_(sum_.LimitsOf(constant, constant)) {}

void LinearDisequality::ActivateByArgument(unsigned index, std::int64_t events,
                                           KivOmbiNetwork* network) {
  const bool is_watched = index == watched_[0] || index == watched_[1];
  const bool concerns = index == stuck_ || (is_watched && (events & kKivFixed) != 0);
  if (concerns) network->Enqueue(GetNumber(), events);
}

std::int64_t LinearDisequality::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const auto is_open = [&](unsigned i) { return i != kNone && !environment.Summary(i).IsFixed(); };
  if (is_open(watched_[0]) && is_open(watched_[1])) return kKivAtFixpoint;
  const unsigned first = FindOpen(environment, 0, sum_.Count());
  const unsigned second = FindOpen(environment, first + 1, sum_.Count());
  if (second < sum_.Count()) {
    watched_ = {first, second};
    return kKivAtFixpoint;
  }
  const auto result = NarrowLast(environment, sum_, limits_, first);
  if (result == kKivAtFixpoint) stuck_ = first;
  return result;
}

KivOmbiConstraint::Cost LinearDisequality::GetCost() const { return sum_.GetCost(); }

std::int64_t LinearDisequality::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed | kKivBoundsOfGapless;
}

bool LinearDisequality::Holds(std::span<const std::int64_t> values) const {
  return sum_.Of(values) != constant_;
}

KivOmbiFilterResult NarrowToUnequal(const KivOmbiObjectEnvironment& environment,
                                    const LinearSum& sum, const LinearSum::Limits& limits) {
  const unsigned first = FindOpen(environment, 0, sum.Count());
  const bool has_other = FindOpen(environment, first + 1, sum.Count()) < sum.Count();
  return has_other ? kKivAtFixpoint : NarrowLast(environment, sum, limits, first);
}

}  // namespace kiv
