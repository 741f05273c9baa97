#include "solver/constraints/all_different.h"

#include <algorithm>
#include <vector>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::AllDifferent", 0, 0, true);

}  // namespace

AllDifferent::AllDifferent() : KivOmbiConstraint(&descriptor) {}

// A removal can fix an argument, and can move the bound of an interval to a value that it could not
// lose before; so all is tried again until nothing changes.
std::int64_t AllDifferent::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  for (bool changed = true; changed;) {
    changed = false;
    for (unsigned i = 0; i < environment.Count(); ++i) {
      if (!environment.Summary(i).IsFixed()) continue;
      const std::int32_t value = environment.Summary(i).lower;
      for (unsigned j = 0; j < environment.Count(); ++j) {
        if (j == i) continue;
        const KivOmbiDomainSummary before = environment.Summary(j);
        if (const auto result = RemoveValue(environment, j, value)) return result;
        changed |= environment.Summary(j) != before;
      }
    }
  }
  return environment.AllFixed() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiConstraint::Cost AllDifferent::GetCost() const { return kLinear; }

// A bound can move to a fixed value that an interval could not lose before.
std::int64_t AllDifferent::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed | kKivBounds;
}

bool AllDifferent::Holds(std::span<const std::int64_t> values) const {
  std::vector<std::int64_t> sorted(values.begin(), values.end());
  std::ranges::sort(sorted);
  return std::ranges::adjacent_find(sorted) == sorted.end();
}

}  // namespace kiv
