#include "solver/constraints/reified.h"

#include <utility>

#include "solver/constraints/supports.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Reified", 0, 0, true);

// The most values of a variable that the ground truth is asked about.
constexpr std::uint32_t kMostJudged = 1024;

bool IsOpen(const KivOmbiObjectEnvironment& environment, unsigned i) {
  return !environment.Summary(i).IsFixed();
}

// Whether the ground truth can be asked about all values of an open argument.
bool HasFewValues(const KivOmbiObjectEnvironment& environment, unsigned i) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  return environment.IsBoolean(i) || (IsListable(summary) && summary.cardinality <= kMostJudged);
}

// Calls `use(value)` for each of them.
template <class Use>
void ForEachOpenValue(const KivOmbiObjectEnvironment& environment, unsigned i, Use&& use) {
  if (!environment.IsBoolean(i)) {
    ForEachValue(environment.Integer(i), environment.Summary(i), use);
    return;
  }
  use(0);
  use(1);
}

template <class Keep>
KivOmbiFilterResult KeepOpenIf(const KivOmbiObjectEnvironment& environment, unsigned i,
                               Keep&& keep) {
  if (!environment.IsBoolean(i)) return KeepIf(environment, i, keep);
  for (const bool value : {false, true}) {
    if (keep(value ? 1 : 0)) continue;
    if (const auto result = SetTruth(environment, i, !value)) return result;
  }
  return 0;
}

}  // namespace

Reified::Reified(std::unique_ptr<KivOmbiConstraint> inner, Reification reification)
    : KivOmbiConstraint(&descriptor), inner_(std::move(inner)), reification_(reification) {}

void Reified::Activate(KivOmbiNetwork* network) {
  network_ = network;
  inner_->SetNumber(GetNumber());
  KivOmbiConstraint::Activate(network);
}

void Reified::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  const bool concerns_inner = is_imposed_ != 0 && index < values_.size();
  if (concerns_inner) return inner_->ActivateByArgument(index, events, network);
  KivOmbiConstraint::ActivateByArgument(index, events, network);
}

std::int64_t Reified::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned truth = environment.Count() - 1;
  const KivOmbiObjectEnvironment arguments = environment.First(truth);
  values_.resize(truth);
  const KivOmbiDomainSummary& known = environment.Summary(truth);
  if (IsKnown(known, true)) {
    Impose(environment);
    return inner_->Filter(arguments, kKivAnyEvent);
  }
  if (known.IsFixed() && reification_ == Reification::kImplication) return kKivEntailed;
  if (AreTwoOpen(arguments)) return kKivAtFixpoint;

  for (unsigned i = 0; i < truth; ++i) values_[i] = arguments.Summary(i).lower;
  const unsigned open = open_[0];
  const bool all_fixed = truth == 0 || !IsOpen(arguments, open);
  if (!all_fixed) {
    return environment.IsSame(open, truth) ? NarrowItself(environment, open)
                                           : NarrowByValues(environment, open);
  }
  return FilterReified(
      environment, truth, reification_, [&] { return std::optional(inner_->Holds(values_)); },
      [&](bool) { return inner_->Holds(values_) ? kKivContradiction : kKivEntailed; });
}

// The inner constraint begins anew: it was not told of changes before, and what it concluded on
// another branch is gone.
void Reified::Impose(const KivOmbiObjectEnvironment& environment) {
  if (is_imposed_ != 0) return;
  environment.SetWord(is_imposed_, 1);
  inner_->Activate(network_);
}

// Also finds out which one is open when there are not two.
bool Reified::AreTwoOpen(const KivOmbiObjectEnvironment& arguments) {
  const unsigned count = arguments.Count();
  const auto are_two = [&] {
    return IsOpen(arguments, open_[0]) && IsOpen(arguments, open_[1]) &&
           !arguments.IsSame(open_[0], open_[1]);
  };
  if (count == 0) return false;
  if (are_two()) return true;
  open_ = {0, 0};
  for (unsigned i = 0; i < count; ++i) {
    if (!IsOpen(arguments, i)) continue;
    open_[IsOpen(arguments, open_[0]) ? 1 : 0] = i;
    if (are_two()) return true;
  }
  return false;
}

// Whether the inner constraint holds when the one open variable has this value.
bool Reified::HoldsFor(const KivOmbiObjectEnvironment& arguments, unsigned open,
                       std::int64_t value) {
  for (unsigned i = 0; i < values_.size(); ++i) {
    if (arguments.IsSame(i, open)) values_[i] = value;
  }
  return inner_->Holds(values_);
}

// The open variable is the truth itself.
KivOmbiFilterResult Reified::NarrowItself(const KivOmbiObjectEnvironment& environment,
                                          unsigned open) {
  for (const bool value : {false, true}) {
    if (HoldsReified(value, reification_, HoldsFor(environment, open, value ? 1 : 0))) continue;
    if (const auto result = SetTruth(environment, open, !value)) return result;
  }
  return kKivEntailed;
}

KivOmbiFilterResult Reified::NarrowByValues(const KivOmbiObjectEnvironment& environment,
                                            unsigned open) {
  if (!HasFewValues(environment, open)) return kKivAtFixpoint;
  const auto holds = [&](std::int32_t value) { return HoldsFor(environment, open, value); };
  const auto decide = [&]() -> std::optional<bool> {
    bool some = false;
    bool all = true;
    ForEachOpenValue(environment, open, [&](std::int32_t value) {
      const bool satisfies = holds(value);
      some |= satisfies;
      all &= satisfies;
    });
    return some == all ? std::optional(all) : std::nullopt;
  };
  const auto lose = [&](bool) -> KivOmbiFilterResult {
    const auto result =
        KeepOpenIf(environment, open, [&](std::int32_t value) { return !holds(value); });
    return result != 0 ? result : kKivAtFixpoint;
  };
  return FilterReified(environment, environment.Count() - 1, reification_, decide, lose);
}

KivOmbiConstraint::Cost Reified::GetCost() const { return inner_->GetCost(); }

bool Reified::Holds(std::span<const std::int64_t> values) const {
  const bool holds = inner_->Holds(values.first(values.size() - 1));
  return HoldsReified(values.back() != 0, reification_, holds);
}

}  // namespace kiv
