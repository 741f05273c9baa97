#include "solver/constraints/disjunctive.h"

#include <algorithm>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Disjunctive", 0, 0, true);

}  // namespace

Disjunctive::Disjunctive(unsigned tasks) : KivOmbiConstraint(&descriptor), tasks_(tasks) {}

std::int64_t Disjunctive::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  for (unsigned task = 0; task < tasks_; ++task) {
    if (const auto result = TightenLower(environment, Duration(task), 0)) return result;
  }
  if (const auto result = NarrowStarts(environment)) return result;
  for (unsigned task = 0; task < tasks_; ++task) {
    if (environment.Summary(Duration(task)).IsFixed()) continue;
    if (const auto result = NarrowDuration(environment, task)) return result;
  }
  return Settle(environment);
}

KivOmbiFilterResult Disjunctive::NarrowStarts(const KivOmbiObjectEnvironment& environment) {
  running_.clear();
  times_.clear();
  for (unsigned task = 0; task < tasks_; ++task) {
    const Hull start = HullOf(environment, task);
    const std::int64_t duration = HullOf(environment, Duration(task)).lower;
    const bool is_bounded = start.lower > -Hull::kUnbounded && start.upper < Hull::kUnbounded;
    if (duration <= 0 || !is_bounded) continue;
    running_.push_back(task);
    times_.push_back({start.lower, start.upper + duration, duration});
  }
  if (!machine_.Narrow(times_)) return kKivContradiction;
  for (std::size_t i = 0; i < running_.size(); ++i) {
    const MachineTimes::Task& times = times_[i];
    if (const auto result = TightenLower(environment, running_[i], times.earliest_start)) {
      return result;
    }
    if (const auto result = TightenUpper(environment, running_[i], times.LatestStart())) {
      return result;
    }
  }
  return 0;
}

// The task ends before each other one that it cannot follow: that surely runs, and that cannot be
// over when the task starts last.
KivOmbiFilterResult Disjunctive::NarrowDuration(const KivOmbiObjectEnvironment& environment,
                                                unsigned task) const {
  const Hull start = HullOf(environment, task);
  for (const unsigned other : running_) {
    if (other == task) continue;
    const Hull other_start = HullOf(environment, other);
    const std::int64_t other_duration = HullOf(environment, Duration(other)).lower;
    if (other_start.lower + other_duration <= start.upper) continue;
    // At the latest at 0, when it does not run at all.
    const std::int64_t most = std::max<std::int64_t>(other_start.upper - start.lower, 0);
    if (const auto result = TightenUpper(environment, Duration(task), most)) return result;
  }
  return 0;
}

KivOmbiConstraint::Cost Disjunctive::GetCost() const { return kQuadratic; }

std::int64_t Disjunctive::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

bool Disjunctive::Holds(std::span<const std::int64_t> values) const {
  const auto starts = values.first(tasks_);
  const auto durations = values.subspan(tasks_);
  for (unsigned i = 0; i < tasks_; ++i) {
    if (durations[i] < 0) return false;
    for (unsigned j = 0; j < i; ++j) {
      if (durations[i] == 0 || durations[j] == 0) continue;
      if (starts[i] + durations[i] > starts[j] && starts[j] + durations[j] > starts[i]) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace kiv
