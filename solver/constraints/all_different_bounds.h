#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/distinct_terms.h"
#include "solver/constraints/hall_intervals.h"

namespace kiv {

// The terms x[i] + c[i] are pairwise different, by Hall intervals: both bounds of every argument
// are part of a solution over the hulls, unless a variable stands in two terms. Holes are not
// looked at; AllDifferent makes them. A run costs O(n log n).
class KIV_EXPORT AllDifferentBounds final : public KivOmbiConstraint {
 public:
  // `offsets` are the constants c, as many as there will be arguments, or none for zeros.
  explicit AllDifferentBounds(TermOffsets offsets = {});

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  HallIntervals::Interval IntervalOf(const KivOmbiObjectEnvironment& environment, unsigned i) const;

  TermOffsets offsets_;
  bool prepared_ = false;
  bool contradictory_ = false;  // two terms are one
  HallIntervals hall_;
};

}  // namespace kiv
