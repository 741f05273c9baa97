#include "solver/constraints/all_different.h"

#include <numeric>
#include <utility>

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::AllDifferent", 0, 0, true);

}  // namespace

AllDifferent::AllDifferent(TermOffsets offsets)
    : KivOmbiConstraint(&descriptor), offsets_(std::move(offsets)) {}

void AllDifferent::ActivateByArgument(unsigned index, std::int64_t events,
                                      KivOmbiNetwork* network) {
  if (stuck_.MustWake(index, events)) KivOmbiConstraint::ActivateByArgument(index, events, network);
}

void AllDifferent::Prepare(const KivOmbiObjectEnvironment& environment) {
  order_.resize(environment.Count());
  std::iota(order_.begin(), order_.end(), 0u);
  stuck_.Resize(environment.Count());
  contradictory_ = FindRepetition(environment, offsets_).of_terms;
}

// A removal can fix an argument, and can move the bound of another to a value that it could not
// lose before; so all is tried again until nothing changes.
std::int64_t AllDifferent::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (order_.size() != environment.Count()) Prepare(environment);
  if (contradictory_) return kKivContradiction;

  const auto term = [&](unsigned i) {
    return environment.Summary(i).lower + OffsetOf(offsets_, i);
  };
  std::uint64_t settled = settled_;
  const auto exclude = [&](unsigned i, std::int64_t excluded) {
    return stuck_.Remove(environment, i, excluded - OffsetOf(offsets_, i));
  };
  const auto exclude_settled_from = [&](unsigned i) -> KivOmbiFilterResult {
    for (std::uint64_t k = 0; k < settled; ++k) {
      if (const auto result = exclude(i, term(order_[k]))) return result;
    }
    return 0;
  };
  for (bool changed = true; changed;) {
    changed = false;
    for (std::uint64_t m = settled; m < order_.size(); ++m) {
      const unsigned i = order_[m];
      if (!stuck_.Has(i)) continue;
      const KivOmbiDomainSummary before = environment.Summary(i);
      if (const auto result = exclude_settled_from(i)) return result;
      changed |= environment.Summary(i) != before;
    }
    for (std::uint64_t k = settled; k < order_.size(); ++k) {
      const unsigned fixed = order_[k];
      if (!environment.Summary(fixed).IsFixed()) continue;
      if (stuck_.Has(fixed)) {
        if (const auto result = exclude_settled_from(fixed)) return result;
      }
      std::swap(order_[k], order_[settled++]);
      for (std::uint64_t m = settled; m < order_.size(); ++m) {
        if (const auto result = exclude(order_[m], term(fixed))) return result;
      }
      changed = true;
    }
  }
  environment.SetWord(settled_, settled);

  const std::uint64_t open = order_.size() - settled;
  const bool entailed = open == 0 || (open == 1 && !stuck_.Has(order_.back()));
  return entailed ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiConstraint::Cost AllDifferent::GetCost() const { return kLinear; }

std::int64_t AllDifferent::GetWakingEvents(unsigned, unsigned) const {
  return StuckValues::kWakingEvents;
}

bool AllDifferent::Holds(std::span<const std::int64_t> values) const {
  return AreDistinct(values, offsets_);
}

}  // namespace kiv
