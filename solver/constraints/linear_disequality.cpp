#include "solver/constraints/linear_disequality.h"

#include <utility>

#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::LinearDisequality", 0, 0, true);

// The first two arguments that are not fixed.
struct OpenPair {
  static constexpr unsigned kNone = ~0u;
  unsigned first = kNone;
  unsigned second = kNone;
};

// The sum is not `constant`. Tells which arguments are open: with two nothing is to be done yet.
template <class Wide>
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           std::span<const std::int64_t> coefficients, Wide constant,
                           OpenPair& open) {
  Wide rest = constant;
  for (unsigned i = 0; i < coefficients.size(); ++i) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (summary.IsFixed()) {
      rest -= static_cast<Wide>(coefficients[i]) * summary.lower;
    } else if (open.first == OpenPair::kNone) {
      open.first = i;
    } else {
      open.second = i;
      return kKivAtFixpoint;
    }
  }
  if (open.first == OpenPair::kNone) return rest != 0 ? kKivEntailed : kKivContradiction;
  const auto divisor = static_cast<Wide>(coefficients[open.first]);
  if (rest % divisor != 0) return kKivEntailed;
  return Exclude(environment, open.first, ToHullBound(rest / divisor));
}

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                           const LinearSum::Limits& limits, OpenPair& open) {
  const auto coefficients = sum.GetCoefficients();
  return sum.IsNarrow() ? Narrow(environment, coefficients, limits.narrow_low, open)
                        : Narrow(environment, coefficients, *limits.low, open);
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
  OpenPair open;
  const auto result = Narrow(environment, sum_, limits_, open);
  if (open.second != kNone) {
    watched_ = {open.first, open.second};
  } else if (result == kKivAtFixpoint) {
    stuck_ = open.first;
  }
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
  OpenPair open;
  return Narrow(environment, sum, limits, open);
}

}  // namespace kiv
