#include "solver/constraints/membership.h"

#include <algorithm>
#include <span>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/supports.h"
#include "solver/constraints/truth.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kTruth };

const KivOmbiConstraintDescriptor descriptor("kiv::Membership", 1, 0, true);
const KivOmbiConstraintDescriptor reified_descriptor("kiv::ReifiedMembership", 2, 0, true);

bool Contains(std::span<const std::int32_t> values, std::int64_t value) {
  return std::ranges::binary_search(values, value);
}

// Those of `values` that lie within the bounds of x.
std::span<const std::int32_t> WithinBounds(const KivOmbiDomainSummary& x,
                                           std::span<const std::int32_t> values) {
  return {std::ranges::lower_bound(values, x.lower), std::ranges::upper_bound(values, x.upper)};
}

// x is among `values`.
KivOmbiFilterResult KeepMembers(const KivOmbiObjectEnvironment& environment,
                                std::span<const std::int32_t> values) {
  if (environment.Summary(kX).IsAny()) {
    TakeValues(environment, kX, [&](auto&& add) { std::ranges::for_each(values, add); });
  }
  const auto within = WithinBounds(environment.Summary(kX), values);
  if (within.empty()) return Empty(environment, kX);
  if (const auto result = TightenLower(environment, kX, within.front())) return result;
  if (const auto result = TightenUpper(environment, kX, within.back())) return result;
  const auto is_member = [&](std::int32_t value) { return Contains(values, value); };
  return IsListable(environment.Summary(kX)) ? KeepValues(environment, kX, is_member) : 0;
}

// x is none of `values`. A bound that goes can uncover another one to go.
KivOmbiFilterResult RemoveMembers(const KivOmbiObjectEnvironment& environment,
                                  std::span<const std::int32_t> values) {
  for (const std::int32_t value : WithinBounds(environment.Summary(kX), values)) {
    if (const auto result = RemoveValue(environment, kX, value)) return result;
  }
  const auto left = WithinBounds(environment.Summary(kX), values);
  for (auto i = left.size(); i > 0 && left[i - 1] == environment.Summary(kX).upper; --i) {
    if (const auto result = RemoveValue(environment, kX, left[i - 1])) return result;
  }
  return 0;
}

}  // namespace

Membership::Membership(std::vector<std::int32_t> values)
    : KivOmbiConstraint(&descriptor), values_(std::move(values)) {}

std::int64_t Membership::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (const auto result = KeepMembers(environment, values_)) return result;
  return Settle(environment);
}

KivOmbiConstraint::Cost Membership::GetCost() const { return kUnary; }

bool Membership::Holds(std::span<const std::int64_t> values) const {
  return Contains(values_, values[kX]);
}

ReifiedMembership::ReifiedMembership(std::vector<std::int32_t> values)
    : KivOmbiConstraint(&reified_descriptor), values_(std::move(values)) {}

std::int64_t ReifiedMembership::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (environment.Summary(kTruth).IsFixed()) {
    const bool is_member = IsKnown(environment.Summary(kTruth), true);
    const auto result =
        is_member ? KeepMembers(environment, values_) : RemoveMembers(environment, values_);
    if (result != 0) return result;
  }
  const KivOmbiDomainSummary& x = environment.Summary(kX);
  const auto members = std::ranges::count_if(WithinBounds(x, values_), [&](std::int32_t value) {
    return environment.Integer(kX).MayBe(value);
  });
  const bool are_all = !x.IsAny() && members == std::int64_t{x.cardinality};
  if (members != 0 && !are_all) return kKivAtFixpoint;
  const auto result = SetTruth(environment, kTruth, members != 0);
  return result != 0 ? result : kKivEntailed;
}

KivOmbiConstraint::Cost ReifiedMembership::GetCost() const { return kBinary; }

bool ReifiedMembership::Holds(std::span<const std::int64_t> values) const {
  return Contains(values_, values[kX]) == (values[kTruth] != 0);
}

}  // namespace kiv
