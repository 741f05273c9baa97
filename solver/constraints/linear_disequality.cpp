#include "solver/constraints/linear_disequality.h"

#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearDisequality", 0, 0, true);

// The first argument from `from` on that is not fixed, below `count`, or `count`.
unsigned FindOpen(const KivOmbiObjectEnvironment& environment, unsigned from, unsigned count) {
  while (from < count && environment.Summary(from).IsFixed()) ++from;
  return from;
}

}  // namespace

LinearDisequality::LinearDisequality(std::vector<std::int64_t> coefficients, Int128 constant)
    : KivOmbiConstraint(&descriptor), sum_(std::move(coefficients)), constant_(constant) {}

void LinearDisequality::ActivateByArgument(unsigned index, std::int64_t events,
                                           KivOmbiNetwork* network) {
  const bool is_watched = index == watched_[0] || index == watched_[1];
  const bool concerns = index == last_open_ || (is_watched && (events & kKivFixed) != 0);
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
  if (first < sum_.Count()) last_open_ = first;
  return NarrowToUnequal(environment, sum_, constant_);
}

KivOmbiConstraint::Cost LinearDisequality::GetCost() const { return sum_.GetCost(); }

std::int64_t LinearDisequality::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed | kKivBoundsOfGapless;
}

bool LinearDisequality::Holds(std::span<const std::int64_t> values) const {
  return sum_.Of(values) != constant_;
}

KivOmbiFilterResult NarrowToUnequal(const KivOmbiObjectEnvironment& environment,
                                    const LinearSum& sum, Int128 constant) {
  const std::span<const std::int64_t> coefficients = sum.GetCoefficients();
  unsigned open = sum.Count();
  Int128 rest = constant;
  for (unsigned i = 0; i < sum.Count(); ++i) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (summary.IsFixed()) {
      rest -= static_cast<Int128>(coefficients[i]) * summary.lower;
    } else if (open == sum.Count()) {
      open = i;
    } else {
      return kKivAtFixpoint;
    }
  }
  if (open == sum.Count()) return rest != 0 ? kKivEntailed : kKivContradiction;
  const Int128 left_out = rest / coefficients[open];
  if (rest % coefficients[open] != 0 || left_out <= SubIntBase::kMin ||
      left_out >= SubIntBase::kMax) {
    return kKivEntailed;
  }
  const auto value = static_cast<std::int32_t>(left_out);
  if (const auto result = RemoveValue(environment, open, value)) return result;
  return environment.Integer(open).MayBe(value) ? kKivAtFixpoint : kKivEntailed;
}

}  // namespace kiv
