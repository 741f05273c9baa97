#include "solver/constraints/membership.h"

#include <algorithm>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kArguments };

const KivOmbiConstraintDescriptor descriptor("kiv::Membership", kArguments, 0, true);

}  // namespace

Membership::Membership(std::vector<std::int32_t> values)
    : KivOmbiConstraint(&descriptor), values_(std::move(values)) {}

std::int64_t Membership::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (environment.Summary(kX).IsAny()) {
    TakeValues(environment, kX, [&](auto&& add) { std::ranges::for_each(values_, add); });
  }
  const auto least = std::ranges::lower_bound(values_, environment.Summary(kX).lower);
  const auto beyond = std::ranges::upper_bound(values_, environment.Summary(kX).upper);
  if (least >= beyond) return Empty(environment, kX);
  if (const auto result = TightenLower(environment, kX, *least)) return result;
  if (const auto result = TightenUpper(environment, kX, *std::prev(beyond))) return result;
  const auto is_member = [&](std::int32_t value) {
    return std::ranges::binary_search(values_, value);
  };
  if (IsListable(environment.Summary(kX)) && !FilterValues(environment, kX, is_member)) {
    return kKivContradiction;
  }
  return Settle(environment);
}

KivOmbiConstraint::Cost Membership::GetCost() const { return kUnary; }

bool Membership::Holds(std::span<const std::int64_t> values) const {
  return std::ranges::binary_search(values_, values[kX]);
}

}  // namespace kiv
