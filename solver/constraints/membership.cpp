#include "solver/constraints/membership.h"

#include <algorithm>
#include <utility>

#include "solver/constraints/truth.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kTruth };

const KivOmbiConstraintDescriptor descriptor("kiv::Membership", 1, 0, true);
const KivOmbiConstraintDescriptor reified_descriptor("kiv::ReifiedMembership", 2, 0, true);

}  // namespace

Membership::Membership(std::vector<std::int32_t> values)
    : KivOmbiConstraint(&descriptor), values_(std::move(values)) {}

std::int64_t Membership::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (const auto result = KeepValues(environment, kX, values_)) return result;
  return LiesIn(environment, kX, values_) ? kKivEntailed : Settle(environment);
}

KivOmbiConstraint::Cost Membership::GetCost() const { return kUnary; }

bool Membership::Holds(std::span<const std::int64_t> values) const {
  return std::ranges::binary_search(values_, values[kX]);
}

ReifiedMembership::ReifiedMembership(std::vector<std::int32_t> values)
    : KivOmbiConstraint(&reified_descriptor), values_(std::move(values)) {}

std::int64_t ReifiedMembership::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (environment.Summary(kTruth).IsFixed()) {
    const bool is_member = IsKnown(environment.Summary(kTruth), true);
    const auto result =
        is_member ? KeepValues(environment, kX, values_) : RemoveValues(environment, kX, values_);
    if (result != 0) return result;
  }
  const bool may_be_member = MayBeIn(environment, kX, values_);
  if (may_be_member && !LiesIn(environment, kX, values_)) return kKivAtFixpoint;
  const auto result = SetTruth(environment, kTruth, may_be_member);
  return result != 0 ? result : kKivEntailed;
}

KivOmbiConstraint::Cost ReifiedMembership::GetCost() const { return kBinary; }

bool ReifiedMembership::Holds(std::span<const std::int64_t> values) const {
  return std::ranges::binary_search(values_, values[kX]) == (values[kTruth] != 0);
}

}  // namespace kiv
