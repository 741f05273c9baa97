#include "solver/constraints/element_of_constants.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "solver/constraints/supports.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

enum Argument : unsigned { kX, kZ, kArguments };

const KivOmbiConstraintDescriptor descriptor("kiv::ElementOfConstants", kArguments, 0, true);

}  // namespace

ElementOfConstants::ElementOfConstants(std::vector<std::int32_t> elements, std::int32_t first)
    : KivOmbiConstraint(&descriptor),
      elements_(std::move(elements)),
      first_(first),
      values_(elements_) {
  const bool has_indices = elements_.empty() || (IsValue(first_) && IsValue(Last()));
  if (!has_indices || !std::ranges::all_of(elements_, IsValue)) {
    throw std::invalid_argument("an array with an element or an index beyond the integers");
  }
  std::ranges::sort(values_);
  values_.erase(std::unique(values_.begin(), values_.end()), values_.end());
  for (const std::int32_t element : elements_) {
    const auto position = std::ranges::lower_bound(values_, element) - values_.begin();
    value_of_.push_back(static_cast<std::uint32_t>(position));
  }
  taken_.resize(values_.size());
}

std::int64_t ElementOfConstants::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (elements_.empty()) return Empty(environment, kX);
  const auto narrowed = KeepIfBetween(environment, kX, first_, Last(), [&](std::int32_t index) {
    return IsSupported(environment, index);
  });
  if (narrowed != 0) return narrowed;
  if (const auto result = NarrowValue(environment)) return result;

  // The pairs (index, element) left are those that were found, even where a kind kept more values.
  const bool fixed = environment.Summary(kX).IsFixed() && environment.Summary(kZ).IsFixed();
  return fixed ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

bool ElementOfConstants::IsSupported(const KivOmbiObjectEnvironment& environment,
                                     std::int64_t index) const {
  const std::int32_t element = elements_[static_cast<std::size_t>(index - first_)];
  if (environment.IsSame(kX, kZ)) return element == index;
  return environment.Integer(kZ).MayBe(element);
}

KivOmbiFilterResult ElementOfConstants::NarrowValue(const KivOmbiObjectEnvironment& environment) {
  taken_.assign(values_.size(), false);
  std::size_t least = values_.size();
  std::size_t greatest = 0;
  const std::int64_t lower = std::max<std::int64_t>(environment.Summary(kX).lower, first_);
  const std::int64_t upper = std::min<std::int64_t>(environment.Summary(kX).upper, Last());
  for (std::int64_t index = lower; index <= upper; ++index) {
    const bool is_left = environment.Integer(kX).MayBe(static_cast<std::int32_t>(index));
    if (!is_left || !IsSupported(environment, index)) continue;
    const std::size_t position = value_of_[static_cast<std::size_t>(index - first_)];
    taken_[position] = true;
    least = std::min(least, position);
    greatest = std::max(greatest, position);
  }
  if (least > greatest) return Empty(environment, kX);

  if (const auto result = TightenLower(environment, kZ, values_[least])) return result;
  if (const auto result = TightenUpper(environment, kZ, values_[greatest])) return result;
  if (environment.Summary(kZ).IsAny()) {
    TakeValues(environment, kZ, [&](auto&& add) {
      for (std::size_t i = least; i <= greatest; ++i) {
        if (taken_[i]) add(values_[i]);
      }
    });
    return 0;
  }
  if (!IsListable(environment.Summary(kZ))) return 0;
  return KeepIf(environment, kZ, [&](std::int32_t value) {
    const auto found = std::ranges::lower_bound(values_, value);
    return found != values_.end() && *found == value &&
           taken_[static_cast<std::size_t>(found - values_.begin())];
  });
}

KivOmbiConstraint::Cost ElementOfConstants::GetCost() const { return kLinear; }

bool ElementOfConstants::Holds(std::span<const std::int64_t> values) const {
  if (values[kX] < first_ || values[kX] > Last()) return false;
  return elements_[static_cast<std::size_t>(values[kX] - first_)] == values[kZ];
}

}  // namespace kiv
