#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "solver/constraints/theta_lambda_tree.h"

namespace kiv {

// When tasks that share a machine, one at a time, can run: overload checking, detectable
// precedences, not-first and not-last, and edge finding of Vilim 2007, "Global constraints in
// scheduling", to their common fixpoint. Each round takes O(n log n).
class MachineTimes {
 public:
  // A task runs for its duration, which is positive, from its earliest start on and up to its
  // latest end at most.
  struct Task {
    std::int64_t earliest_start;
    std::int64_t latest_end;
    std::int64_t duration;

    std::int64_t EarliestEnd() const { return earliest_start + duration; }
    std::int64_t LatestStart() const { return latest_end - duration; }
    friend bool operator==(const Task&, const Task&) = default;
  };

  // Narrows the times of the tasks; false when they do not fit in.
  bool Narrow(std::vector<Task>& tasks);

 private:
  bool NarrowOnce(std::vector<Task>& tasks);
  void SortTasks(std::span<const Task> tasks);
  void Insert(std::span<const Task> tasks, std::size_t task);
  std::int64_t EndWithout(std::span<const Task> tasks, std::size_t task);
  bool IsOverloaded(std::span<const Task> tasks);
  void DetectPrecedences(std::span<const Task> tasks);
  void FindNotLast(std::span<const Task> tasks);
  void FindEdges(std::span<const Task> tasks);

  ThetaLambdaTree tree_;
  // The tasks in the order of what they are named after, and the rank of each by earliest start.
  std::vector<std::size_t> by_earliest_start_;
  std::vector<std::size_t> by_earliest_end_;
  std::vector<std::size_t> by_latest_start_;
  std::vector<std::size_t> by_latest_end_;
  std::vector<std::size_t> rank_;
  std::vector<char> is_inserted_;
  std::vector<Task> narrowed_;
};

}  // namespace kiv
