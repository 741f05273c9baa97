#include "solver/constraints/cumulative.h"

#include <algorithm>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

using Use = ResourceProfile::Use;

const KivOmbiConstraintDescriptor descriptor("kiv::Cumulative", 0, 0, true);

// The least duration or demand, as far as it counts before negative values are excluded.
std::int64_t LeastAmount(const KivOmbiObjectEnvironment& environment, unsigned i) {
  return std::max<std::int64_t>(HullOf(environment.Summary(i)).lower, 0);
}

bool IsBounded(const Hull& hull) {
  return hull.lower > -Hull::kUnbounded && hull.upper < Hull::kUnbounded;
}

// The segments in which a task with this least demand cannot run beside the others. `sure` is its
// own part in them.
class Conflict {
 public:
  Conflict(const Use& sure, std::int64_t demand, std::int64_t capacity)
      : sure_(sure), demand_(demand), capacity_(capacity) {}

  bool operator()(const Use& segment) const {
    const bool is_own = !sure_.IsEmpty() && sure_.Covers(segment);
    return segment.amount - (is_own ? sure_.amount : 0) + demand_ > capacity_;
  }

 private:
  const Use& sure_;
  std::int64_t demand_;
  std::int64_t capacity_;
};

}  // namespace

Cumulative::Cumulative(unsigned tasks)
    : KivOmbiConstraint(&descriptor),
      tasks_(tasks),
      profile_(tasks),
      sure_(tasks),
      rank_(tasks),
      energy_(tasks) {
  by_start_.reserve(tasks);
  by_end_.reserve(tasks);
}

std::int64_t Cumulative::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  if (const auto result = ExcludeNegative(environment)) return result;
  // What becomes fixed further on is not in the profile of this run.
  const bool is_decided = environment.AllFixed() || FitAllAtOnce(environment);
  BuildProfile(environment);
  if (const auto result = TightenLower(environment, Capacity(), profile_.Peak())) return result;
  for (unsigned task = 0; task < tasks_; ++task) {
    if (const auto result = NarrowTask(environment, task)) return result;
  }
  if (IsOverloaded(environment)) return kKivContradiction;
  return is_decided ? kKivEntailed : 0;
}

KivOmbiFilterResult Cumulative::ExcludeNegative(const KivOmbiObjectEnvironment& environment) const {
  for (unsigned i = tasks_; i <= Capacity(); ++i) {
    if (const auto result = TightenLower(environment, i, 0)) return result;
  }
  return 0;
}

// The parts are kept as they are now: a repeated variable may change while tasks are narrowed.
void Cumulative::BuildProfile(const KivOmbiObjectEnvironment& environment) {
  profile_.Clear();
  for (unsigned task = 0; task < tasks_; ++task) {
    const Hull start = HullOf(environment.Summary(Start(task)));
    sure_[task] = {};
    if (IsBounded(start)) {
      sure_[task] = {start.upper, start.lower + LeastAmount(environment, Duration(task)),
                     LeastAmount(environment, Demand(task))};
    }
    profile_.Add(sure_[task]);
  }
  profile_.Build();
}

KivOmbiFilterResult Cumulative::NarrowTask(const KivOmbiObjectEnvironment& environment,
                                           unsigned task) const {
  const std::int64_t capacity = HullOf(environment.Summary(Capacity())).upper;
  const std::int64_t demand = LeastAmount(environment, Demand(task));
  if (demand > capacity) {
    if (const auto result = TightenUpper(environment, Duration(task), 0)) return result;
  }
  if (LeastAmount(environment, Duration(task)) > 0) {
    if (const auto result = TightenLower(environment, Capacity(), demand)) return result;
    if (const auto result = TightenUpper(environment, Demand(task), capacity)) return result;
    if (const auto result = NarrowStart(environment, task)) return result;
  }
  if (const auto result = NarrowDuration(environment, task)) return result;
  return NarrowDemand(environment, task);
}

KivOmbiFilterResult Cumulative::NarrowStart(const KivOmbiObjectEnvironment& environment,
                                            unsigned task) const {
  const std::int64_t capacity = HullOf(environment.Summary(Capacity())).upper;
  const std::int64_t duration = LeastAmount(environment, Duration(task));
  const Conflict conflict(sure_[task], LeastAmount(environment, Demand(task)), capacity);
  const auto segments = profile_.Segments();
  Hull start = HullOf(environment.Summary(Start(task)));
  if (start.lower > -Hull::kUnbounded) {
    for (auto i = std::ranges::upper_bound(segments, start.lower, {}, &Use::end);
         i != segments.end() && i->begin < start.lower + duration; ++i) {
      if (conflict(*i)) start.lower = i->end;
    }
    if (const auto result = TightenLower(environment, Start(task), start.lower)) return result;
  }
  if (start.upper < Hull::kUnbounded) {
    for (auto i = segments.rbegin(); i != segments.rend() && i->end > start.upper; ++i) {
      if (i->begin < start.upper + duration && conflict(*i)) start.upper = i->begin - duration;
    }
    if (const auto result = TightenUpper(environment, Start(task), start.upper)) return result;
  }
  return 0;
}

// The longest run between two conflicts that some start allows.
KivOmbiFilterResult Cumulative::NarrowDuration(const KivOmbiObjectEnvironment& environment,
                                               unsigned task) const {
  if (environment.Summary(Duration(task)).IsFixed()) return 0;
  const std::int64_t capacity = HullOf(environment.Summary(Capacity())).upper;
  const Conflict conflict(sure_[task], LeastAmount(environment, Demand(task)), capacity);
  const Hull start = HullOf(environment.Summary(Start(task)));
  std::int64_t free_from = start.lower;
  std::int64_t longest = 0;
  for (const Use& segment : profile_.Segments()) {
    if (segment.end <= free_from || !conflict(segment)) continue;
    if (free_from > start.upper) break;
    longest = std::max(longest, segment.begin - free_from);
    free_from = segment.end;
  }
  if (free_from <= start.upper) return 0;
  return TightenUpper(environment, Duration(task), longest);
}

// What the others leave while the task surely runs.
KivOmbiFilterResult Cumulative::NarrowDemand(const KivOmbiObjectEnvironment& environment,
                                             unsigned task) const {
  const Use& sure = sure_[task];
  if (sure.IsEmpty() || environment.Summary(Demand(task)).IsFixed()) return 0;
  std::int64_t others = 0;
  for (const Use& segment : profile_.Segments()) {
    if (sure.Covers(segment)) others = std::max(others, segment.amount - sure.amount);
  }
  const std::int64_t capacity = HullOf(environment.Summary(Capacity())).upper;
  return TightenUpper(environment, Demand(task), capacity - others);
}

bool Cumulative::IsOverloaded(const KivOmbiObjectEnvironment& environment) {
  const Hull capacity = HullOf(environment.Summary(Capacity()));
  if (capacity.upper >= Hull::kUnbounded) return false;
  by_start_.clear();
  for (unsigned task = 0; task < tasks_; ++task) {
    const bool needs_energy =
        LeastAmount(environment, Duration(task)) > 0 && LeastAmount(environment, Demand(task)) > 0;
    if (needs_energy && IsBounded(HullOf(environment.Summary(Start(task))))) {
      by_start_.push_back(task);
    }
  }
  const auto earliest_start = [&](unsigned task) -> std::int64_t {
    return environment.Summary(Start(task)).lower;
  };
  const auto latest_end = [&](unsigned task) {
    return environment.Summary(Start(task)).upper + LeastAmount(environment, Duration(task));
  };
  by_end_.assign(by_start_.begin(), by_start_.end());
  std::ranges::sort(by_start_, {}, earliest_start);
  std::ranges::sort(by_end_, {}, latest_end);
  for (unsigned rank = 0; rank < by_start_.size(); ++rank) rank_[by_start_[rank]] = rank;

  energy_.Clear();
  for (const unsigned task : by_end_) {
    const EnergyTree::Energy duration = LeastAmount(environment, Duration(task));
    const EnergyTree::Energy offered = capacity.upper;
    energy_.Insert(rank_[task], offered * earliest_start(task),
                   duration * LeastAmount(environment, Demand(task)));
    if (energy_.Envelope() > offered * latest_end(task)) return true;
  }
  return false;
}

// Whether the tasks fit in at once, whatever their demands.
bool Cumulative::FitAllAtOnce(const KivOmbiObjectEnvironment& environment) const {
  std::int64_t demands = 0;
  for (unsigned i = tasks_; i <= Capacity(); ++i) {
    if (environment.Summary(i).lower < 0) return false;
  }
  for (unsigned task = 0; task < tasks_; ++task) {
    const KivOmbiDomainSummary& demand = environment.Summary(Demand(task));
    if (demand.upper == SubIntBase::kMax) return false;
    demands += demand.upper;
  }
  return demands <= environment.Summary(Capacity()).lower;
}

KivOmbiConstraint::Cost Cumulative::GetCost() const { return kCostly; }

std::int64_t Cumulative::GetWakingEvents(unsigned, unsigned) const { return kKivBounds; }

// The sum of the demands can only grow where a task starts.
bool Cumulative::Holds(std::span<const std::int64_t> values) const {
  const auto amounts = values.subspan(tasks_);
  if (std::ranges::any_of(amounts, [](std::int64_t amount) { return amount < 0; })) return false;
  for (unsigned task = 0; task < tasks_; ++task) {
    const std::int64_t time = values[Start(task)];
    std::int64_t demands = 0;
    for (unsigned other = 0; other < tasks_; ++other) {
      const std::int64_t start = values[Start(other)];
      const bool runs = start <= time && time < start + values[Duration(other)];
      if (runs) demands += values[Demand(other)];
    }
    if (demands > values[Capacity()]) return false;
  }
  return true;
}

}  // namespace kiv
