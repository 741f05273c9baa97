#pragma once

#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/machine_times.h"

namespace kiv {

// Tasks run on one machine, no two of them at a time. A task runs from its start for its duration,
// the end not included; durations are not negative, and a task of duration 0 never runs, so that it
// may start anywhere. Arguments, all integers: the starts of the n tasks, their durations.
//
// Narrows the bounds of starts, taking for the duration the least one: by the orders of tasks that
// are possible (see MachineTimes). A duration is narrowed by its task and each other one.
class KIV_EXPORT Disjunctive final : public KivOmbiConstraint {
 public:
  explicit Disjunctive(unsigned tasks);

  // Rounds of O(n log n) for n tasks, and O(n^2) while durations are open.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  unsigned Duration(unsigned task) const { return tasks_ + task; }
  KivOmbiFilterResult NarrowStarts(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult NarrowDuration(const KivOmbiObjectEnvironment& environment,
                                     unsigned task) const;

  unsigned tasks_;
  MachineTimes machine_;
  std::vector<unsigned> running_;          // tasks that surely run, and between known bounds
  std::vector<MachineTimes::Task> times_;  // theirs
};

}  // namespace kiv
