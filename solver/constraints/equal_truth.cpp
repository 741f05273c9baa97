#include "solver/constraints/equal_truth.h"

#include "solver/constraints/supports.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kY, kTruth };

const KivOmbiConstraintDescriptor descriptor("kiv::EqualTruth", 3, 0, true);

std::optional<bool> AreEqual(const KivOmbiObjectEnvironment& environment) {
  if (environment.IsSame(kX, kY)) return true;
  const KivOmbiDomainSummary& x = environment.Summary(kX);
  const KivOmbiDomainSummary& y = environment.Summary(kY);
  if (x.IsFixed() && y.IsFixed()) return x.lower == y.lower;
  if (LeastCommon(environment, kX, kY)) return std::nullopt;
  return false;
}

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, bool equal) {
  if (!equal) return Separate(environment, kX, kY);
  if (const auto result = Equate(environment, kX, kY)) return result;
  return AreEqual(environment) == true ? kKivEntailed : 0;
}

}  // namespace

EqualTruth::EqualTruth(Which which, Reification reification)
    : KivOmbiConstraint(&descriptor), which_(which), reification_(reification) {}

std::int64_t EqualTruth::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const bool wanted = which_ == kEqual;
  const auto decide = [&] {
    const auto equal = AreEqual(environment);
    return equal ? std::optional(*equal == wanted) : std::nullopt;
  };
  const auto impose = [&](bool holds) { return Narrow(environment, holds == wanted); };
  return FilterReified(environment, kTruth, reification_, decide, impose);
}

KivOmbiConstraint::Cost EqualTruth::GetCost() const { return kBinary; }

std::int64_t EqualTruth::GetWakingEvents(unsigned index, unsigned) const {
  return index == kTruth ? kKivFixed : kKivAnyEvent;
}

bool EqualTruth::Holds(std::span<const std::int64_t> values) const {
  const bool equal = values[kX] == values[kY];
  return HoldsReified(values[kTruth] != 0, reification_, equal == (which_ == kEqual));
}

}  // namespace kiv
