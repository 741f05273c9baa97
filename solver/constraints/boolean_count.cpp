#include "solver/constraints/boolean_count.h"

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/truth.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::BooleanCount", 0, 0, true);

}  // namespace

BooleanCount::BooleanCount() : KivOmbiConstraint(&descriptor) {}

std::int64_t BooleanCount::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned count = environment.Count() - 1;
  std::int64_t surely = 0;
  std::int64_t possibly = 0;
  for (unsigned i = 0; i < count; ++i) {
    const KivOmbiDomainSummary& truth = environment.Summary(i);
    if (IsKnown(truth, true)) ++surely;
    if (!IsKnown(truth, false)) ++possibly;
  }
  if (const auto result = TightenLower(environment, count, surely)) return result;
  if (const auto result = TightenUpper(environment, count, possibly)) return result;
  if (surely == possibly) {
    const auto result = Assign(environment, count, static_cast<std::int32_t>(surely));
    return result != 0 ? result : kKivEntailed;
  }
  // The bounds of an integer of which nothing is known are none.
  const Hull hull = HullOf(environment, count);
  const bool all_open_are_false = hull.upper == surely;
  if (!all_open_are_false && hull.lower != possibly) return kKivAtFixpoint;
  for (unsigned i = 0; i < count; ++i) {
    if (environment.Summary(i).IsFixed()) continue;
    if (const auto result = SetTruth(environment, i, !all_open_are_false)) return result;
  }
  const std::int64_t value = all_open_are_false ? surely : possibly;
  const auto result = Assign(environment, count, static_cast<std::int32_t>(value));
  return result != 0 ? result : kKivEntailed;
}

KivOmbiConstraint::Cost BooleanCount::GetCost() const { return kLinear; }

std::int64_t BooleanCount::GetWakingEvents(unsigned index, unsigned arguments) const {
  return index + 1 < arguments ? kKivFixed : kKivBounds;
}

bool BooleanCount::Holds(std::span<const std::int64_t> values) const {
  std::int64_t count = 0;
  for (const std::int64_t truth : values.first(values.size() - 1)) count += truth != 0 ? 1 : 0;
  return count == values.back();
}

}  // namespace kiv
