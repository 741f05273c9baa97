#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/energy_tree.h"
#include "solver/constraints/resource_profile.h"

namespace kiv {

// Tasks share a resource: at every time, the demands of the tasks that run then sum up to at most
// the capacity. A task runs from its start for its duration, the end not included; durations,
// demands and the capacity are not negative. Arguments, all integers: the starts of the n tasks,
// their durations, their demands, the capacity. With demands and capacity 1 no two tasks overlap.
//
// Two kinds of reasoning, about bounds only:
// - Time table (Beldiceanu, Carlsson 2002, "A new multi-resource cumulatives constraint with
//   negative heights"): where a task runs for every start left, its least demand is surely in use.
//   The peak bounds the capacity; what is left over bounds the starts, durations and demands.
// - Energy (Vilim 2009): the tasks that must run within a span of time must find room in it, by
//   least duration times least demand. Only detects an overload.
class KIV_EXPORT Cumulative final : public KivOmbiConstraint {
 public:
  explicit Cumulative(unsigned tasks);

  // O(n^2) for n tasks.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  unsigned Start(unsigned task) const { return task; }
  unsigned Duration(unsigned task) const { return tasks_ + task; }
  unsigned Demand(unsigned task) const { return 2 * tasks_ + task; }
  unsigned Capacity() const { return 3 * tasks_; }

  KivOmbiFilterResult ExcludeNegative(const KivOmbiObjectEnvironment& environment) const;
  void BuildProfile(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult NarrowTask(const KivOmbiObjectEnvironment& environment, unsigned task) const;
  KivOmbiFilterResult NarrowStart(const KivOmbiObjectEnvironment& environment, unsigned task) const;
  KivOmbiFilterResult NarrowDuration(const KivOmbiObjectEnvironment& environment,
                                     unsigned task) const;
  KivOmbiFilterResult NarrowDemand(const KivOmbiObjectEnvironment& environment,
                                   unsigned task) const;
  bool IsOverloaded(const KivOmbiObjectEnvironment& environment);
  bool FitAllAtOnce(const KivOmbiObjectEnvironment& environment) const;

  unsigned tasks_;
  ResourceProfile profile_;
  std::vector<ResourceProfile::Use> sure_;  // what each task contributed to the profile
  std::vector<unsigned> by_start_;          // tasks by earliest start
  std::vector<unsigned> by_end_;            // tasks by latest end
  std::vector<unsigned> rank_;              // of each task in by_start_
  EnergyTree energy_;
};

}  // namespace kiv
