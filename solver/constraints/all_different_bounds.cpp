#include "solver/constraints/all_different_bounds.h"

#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::AllDifferentBounds", 0, 0, true);

}  // namespace

AllDifferentBounds::AllDifferentBounds(TermOffsets offsets)
    : KivOmbiConstraint(&descriptor), offsets_(std::move(offsets)) {}

// A bound that is not known is far beyond all others: no Hall interval reaches it.
HallIntervals::Interval AllDifferentBounds::IntervalOf(const KivOmbiObjectEnvironment& environment,
                                                       unsigned i) const {
  const Hull hull = HullOf(environment.Summary(i));
  const std::int64_t offset = OffsetOf(offsets_, i);
  return {hull.lower + offset, hull.upper + offset};
}

std::int64_t AllDifferentBounds::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const unsigned count = environment.Count();
  if (!prepared_) {
    prepared_ = true;
    hall_.Resize(count);
    contradictory_ = FindRepetition(environment, offsets_).of_terms;
  }
  if (contradictory_) return kKivContradiction;

  // A bound that meets a hole moves further than it had to, and so does that of a variable that
  // stands in two terms: then there is more to find.
  bool reached = true;  // the bounds that were wanted; an open side cannot be moved to its end
  for (bool moved_further = true; moved_further;) {
    for (unsigned i = 0; i < count; ++i) hall_.Intervals()[i] = IntervalOf(environment, i);
    if (!hall_.Narrow()) return kKivContradiction;
    for (unsigned i = 0; i < count; ++i) {
      const auto [lower, upper] = hall_.Intervals()[i];
      const std::int64_t offset = OffsetOf(offsets_, i);
      if (const auto result = TightenLower(environment, i, lower - offset)) return result;
      if (const auto result = TightenUpper(environment, i, upper - offset)) return result;
    }
    moved_further = false;
    reached = true;
    for (unsigned i = 0; i < count; ++i) {
      const HallIntervals::Interval now = IntervalOf(environment, i);
      const HallIntervals::Interval wanted = hall_.Intervals()[i];
      moved_further |= now.lower > wanted.lower || now.upper < wanted.upper;
      reached &= now == wanted;
    }
  }
  return reached && hall_.AreDisjoint() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiConstraint::Cost AllDifferentBounds::GetCost() const { return kQuadratic; }

std::int64_t AllDifferentBounds::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

bool AllDifferentBounds::Holds(std::span<const std::int64_t> values) const {
  return AreDistinct(values, offsets_);
}

}  // namespace kiv
