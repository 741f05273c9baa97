#pragma once

#include <cstdint>
#include <span>

#include "framework/abstract_types/environment.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

// The most values that a constraint looks at one by one; beyond it, bounds have to do.
inline constexpr std::uint32_t kMostListedValues = 4096;

// Whether a domain holds values and has no open end. An infinite bound is no value.
inline bool IsClosed(const KivOmbiDomainSummary& summary) {
  return summary.state == KivOmbiDomainSummary::kValues && summary.lower > SubIntBase::kMin &&
         summary.upper < SubIntBase::kMax;
}

// A domain with an open end has no list of values.
inline bool IsListable(const KivOmbiDomainSummary& summary) {
  return IsClosed(summary) && summary.cardinality <= kMostListedValues;
}

// Calls `use(value)` for the values of a listable domain in ascending order. `use` may remove the
// value it is given, or any below it.
template <class Use>
void ForEachValue(const KivOmbiInteger& domain, const KivOmbiDomainSummary& summary, Use&& use) {
  const std::int32_t last = summary.upper;
  for (std::int32_t value = summary.lower; value < last;) {
    const std::int32_t next = domain.GetNextExactValue(value);
    use(value);
    value = next;
  }
  use(last);
}

// Calls `use(value)` for the values of listable argument i in ascending order. `use` narrows
// nothing.
template <class Use>
void ForEachValue(const KivOmbiObjectEnvironment& environment, unsigned i, Use&& use) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (std::int64_t{summary.upper} - summary.lower + 1 == summary.cardinality) {
    for (std::int32_t value = summary.lower; value < summary.upper; ++value) use(value);
    use(summary.upper);
    return;
  }
  const std::span<const SubIntBase> values = environment.Values(i);
  if (values.empty()) return ForEachValue(environment.Integer(i), summary, use);
  for (const SubIntBase value : values) use(value.GetValue());
}

// Removes the values of listable argument i for which `keep` is false. False when none is left.
template <class Keep>
bool FilterValues(const KivOmbiObjectEnvironment& environment, unsigned i, Keep&& keep) {
  const KivOmbiDomainSummary summary = environment.Summary(i);
  return environment.NarrowInteger(i, [&](KivOmbiInteger& domain) {
    int changed = 0;
    ForEachValue(domain, summary, [&](std::int32_t value) {
      if (!keep(value)) changed |= domain.RemoveExactValue(value);
    });
    return changed;
  });
}

// Argument i, of which nothing is known, takes the values that `collect(add)` hands to `add`. A
// kind that cannot hold them leaves it unknown. False when there are none.
template <class Collect>
bool TakeValues(const KivOmbiObjectEnvironment& environment, unsigned i, Collect&& collect) {
  auto& values = static_cast<KivOmbiInteger&>(environment.Scratch(*environment.Kind(i), 0));
  values.SetNilValue();
  collect([&](std::int32_t value) { values.InsertExactValue(value); });
  return environment.NarrowAny(i,
                               [&](KivOmbiAny& domain) { return domain.CalcEqualValue(values); });
}

}  // namespace kiv
