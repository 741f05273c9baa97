#include "solver/constraints/among.h"

#include <algorithm>
#include <utility>

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Among", 0, 0, true);

}  // namespace

KivOmbiFilterResult NarrowAmong(const KivOmbiObjectEnvironment& environment, unsigned terms,
                                unsigned count, ValueSet set) {
  std::int32_t surely = 0;
  std::int32_t possibly = 0;
  for (unsigned i = 0; i < terms; ++i) {
    surely += LiesIn(environment, i, set) ? 1 : 0;
    possibly += MayBeIn(environment, i, set) ? 1 : 0;
  }
  if (const auto result = KeepRange(environment, count, surely, possibly)) return result;
  const KivOmbiDomainSummary counted = environment.Summary(count);
  if (surely == possibly) return counted.IsFixed() ? kKivEntailed : 0;

  if (counted.upper == surely) {
    for (unsigned i = 0; i < terms; ++i) {
      if (LiesIn(environment, i, set)) continue;
      if (const auto result = RemoveValues(environment, i, set)) return result;
    }
  } else if (counted.lower == possibly) {
    for (unsigned i = 0; i < terms; ++i) {
      if (!MayBeIn(environment, i, set)) continue;
      if (const auto result = KeepValues(environment, i, set)) return result;
    }
  }
  return 0;
}

Among::Among(std::vector<std::int32_t> set) : KivOmbiConstraint(&descriptor), set_(std::move(set)) {
  // What no variable can hold is in no set that matters; an infinity would be taken for a bound.
  std::erase_if(set_, [](std::int32_t value) { return !IsValue(value); });
  std::ranges::sort(set_);
  set_.erase(std::unique(set_.begin(), set_.end()), set_.end());
}

std::int64_t Among::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned terms = environment.Count() - 1;
  return NarrowAmong(environment, terms, terms, set_);
}

KivOmbiConstraint::Cost Among::GetCost() const { return kLinear; }

std::int64_t Among::GetWakingEvents(unsigned index, unsigned arguments) const {
  return index + 1 == arguments ? kKivBounds : kKivValues;
}

bool Among::Holds(std::span<const std::int64_t> values) const {
  const auto in_set = std::ranges::count_if(
      values.first(values.size() - 1),
      [&](std::int64_t value) { return std::ranges::find(set_, value) != set_.end(); });
  return in_set == values.back();
}

}  // namespace kiv
