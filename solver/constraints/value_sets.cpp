#include "solver/constraints/value_sets.h"

#include <algorithm>
#include <array>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/values.h"

namespace kiv {

bool IsValue(std::int64_t value) { return value > SubIntBase::kMin && value < SubIntBase::kMax; }

ValueSet Between(ValueSet set, const KivOmbiDomainSummary& summary) {
  const auto first = std::ranges::lower_bound(set, summary.lower);
  return {first, std::upper_bound(first, set.end(), summary.upper)};
}

bool MayBe(const KivOmbiObjectEnvironment& environment, unsigned i, std::int32_t value) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (value < summary.lower || value > summary.upper) return false;
  const std::span<const SubIntBase> values = environment.Values(i);
  if (values.empty()) return environment.Integer(i).MayBe(value);
  const std::int64_t width = std::int64_t{summary.upper} - summary.lower + 1;
  return width == summary.cardinality ||
         std::ranges::binary_search(values, value, {}, &SubIntBase::GetValue);
}

bool MayBeIn(const KivOmbiObjectEnvironment& environment, unsigned i, ValueSet set) {
  const ValueSet near = Between(set, environment.Summary(i));
  return std::ranges::any_of(
      near, [&](std::int32_t value) { return environment.Integer(i).MayBe(value); });
}

bool LiesIn(const KivOmbiObjectEnvironment& environment, unsigned i, ValueSet set) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (summary.IsNil() || summary.IsAny()) return false;
  if (!IsValue(summary.lower) || !IsValue(summary.upper)) return false;
  const ValueSet near = Between(set, summary);
  if (summary.cardinality > near.size()) return false;
  const auto members = std::ranges::count_if(
      near, [&](std::int32_t value) { return environment.Integer(i).MayBe(value); });
  return static_cast<std::uint32_t>(members) == summary.cardinality;
}

bool MayBeBetween(const KivOmbiObjectEnvironment& environment, unsigned i, std::int64_t lower,
                  std::int64_t upper) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  const std::int64_t least = std::max<std::int64_t>(lower, summary.lower);
  const std::int64_t greatest = std::min<std::int64_t>(upper, summary.upper);
  if (least > greatest) return false;
  if (least == summary.lower || greatest == summary.upper) return true;
  // Strictly inside the bounds there is a next value.
  return environment.Integer(i).GetNextExactValue(static_cast<std::int32_t>(least - 1)) <= greatest;
}

KivOmbiFilterResult KeepValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                               ValueSet set) {
  if (environment.Summary(i).IsAny()) {
    const auto all = [&](auto&& add) { std::ranges::for_each(set, add); };
    if (!TakeValues(environment, i, all)) return kKivContradiction;
  }
  // A bound that a set does not hold moves to the next value of the domain, which the set may not
  // hold either.
  KivOmbiDomainSummary before;
  do {
    before = environment.Summary(i);
    const ValueSet near = Between(set, before);
    if (near.empty()) return Empty(environment, i);
    if (const auto result = TightenLower(environment, i, near.front())) return result;
    if (const auto result = TightenUpper(environment, i, near.back())) return result;
  } while (environment.Summary(i) != before);
  if (!IsListable(before)) return 0;
  const auto is_member = [&](std::int32_t value) { return std::ranges::binary_search(set, value); };
  return FilterValues(environment, i, is_member) ? 0 : kKivContradiction;
}

KivOmbiFilterResult KeepRange(const KivOmbiObjectEnvironment& environment, unsigned i,
                              std::int32_t lower, std::int32_t upper) {
  if (lower > upper) return Empty(environment, i);
  if (const auto result = TightenLower(environment, i, lower)) return result;
  if (const auto result = TightenUpper(environment, i, upper)) return result;
  if (!environment.Summary(i).IsAny() || std::int64_t{upper} - lower >= kMostListedValues) return 0;
  const auto all = [&](auto&& add) {
    for (std::int64_t value = lower; value <= upper; ++value) add(static_cast<std::int32_t>(value));
  };
  return TakeValues(environment, i, all) ? 0 : kKivContradiction;
}

KivOmbiFilterResult FixTo(const KivOmbiObjectEnvironment& environment, unsigned i,
                          std::int32_t value) {
  const std::array one{value};
  return KeepValues(environment, i, one);
}

KivOmbiFilterResult Exclude(const KivOmbiObjectEnvironment& environment, unsigned i,
                            std::int64_t value) {
  const KivOmbiDomainSummary before = environment.Summary(i);
  if (!IsValue(value) || value < before.lower || value > before.upper) return kKivEntailed;
  const auto excluded = static_cast<std::int32_t>(value);
  if (const auto result = RemoveValue(environment, i, excluded)) return result;
  const bool is_lost = environment.Summary(i) != before || !environment.Integer(i).MayBe(excluded);
  return is_lost ? kKivEntailed : kKivAtFixpoint;
}

KivOmbiFilterResult RemoveValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                                 ValueSet set) {
  ValueSet near = Between(set, environment.Summary(i));
  if (!near.empty() && IsBeforeOpenEnd(environment.Summary(i), near.back())) {
    near = near.first(near.size() - 1);
  }
  if (!near.empty() && IsBeforeOpenEnd(environment.Summary(i), near.front())) {
    near = near.subspan(1);
  }
  return LoseValues(environment, i, near);
}

}  // namespace kiv
