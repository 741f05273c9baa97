#include "solver/constraints/stuck_values.h"

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

KivOmbiFilterResult StuckValues::RemoveWithin(const KivOmbiObjectEnvironment& environment,
                                              unsigned i, std::int64_t value) {
  const KivOmbiDomainSummary before = environment.Summary(i);
  if (!IsValue(value)) return 0;
  const auto removed = static_cast<std::int32_t>(value);
  if (IsClosed(before) && environment.Kind(i)->HoldsGaps()) {
    const bool possible = environment.NarrowInteger(
        i, [&](KivOmbiInteger& domain) { return domain.RemoveExactValue(removed); });
    return possible ? 0 : kKivContradiction;
  }
  if (!IsBeforeOpenEnd(before, value)) {
    if (const auto result = RemoveValue(environment, i, removed)) return result;
  }
  if (environment.Summary(i) == before && environment.Integer(i).MayBe(removed)) stuck_[i] = 1;
  return 0;
}

}  // namespace kiv
