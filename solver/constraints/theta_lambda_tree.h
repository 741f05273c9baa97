#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kiv {

// For a set of tasks on one machine, theta, the earliest point at which all of them can be done:
// over all tasks i of the set, the greatest (earliest start of i + durations of the tasks of the
// set that start no earlier than i). And the same if one task of a second set, lambda, had to be
// done too, the one that delays them most. The theta-lambda tree of Vilim 2007, "Global constraints
// in scheduling". Tasks are given by their rank in the order of earliest starts.
class ThetaLambdaTree {
 public:
  // Both sets are empty; there may be so many tasks.
  void Reset(std::size_t tasks);

  // O(log n) each. A task is in one set at most.
  void InsertTheta(std::size_t rank, std::int64_t earliest_start, std::int64_t duration);
  void InsertLambda(std::size_t rank, std::int64_t earliest_start, std::int64_t duration);
  void Remove(std::size_t rank);

  // When theta is done; kNone if it is empty.
  std::int64_t GetEnd() const { return nodes_[1].end; }
  // When theta and the task of lambda that delays it most are done, which is the one at
  // GetDelayer(), kNobody if there is none.
  std::int64_t GetDelayedEnd() const { return nodes_[1].delayed_end; }
  std::size_t GetDelayer() const { return nodes_[1].end_delayer; }

  // Below every end, and far enough from the least integer that durations can be added to it.
  static constexpr std::int64_t kNone = -(std::int64_t{1} << 62);
  static constexpr std::size_t kNobody = ~std::size_t{0};

 private:
  struct Node {
    std::int64_t duration = 0;               // of theta
    std::int64_t end = kNone;                // of theta
    std::int64_t delayed_duration = 0;       // with one task of lambda, if there is any
    std::int64_t delayed_end = kNone;        // likewise
    std::size_t duration_delayer = kNobody;  // the rank of that task
    std::size_t end_delayer = kNobody;
  };

  void Set(std::size_t rank, const Node& leaf);
  static Node Join(const Node& left, const Node& right);

  std::size_t leaves_ = 0;   // a power of two
  std::vector<Node> nodes_;  // the root at 1, the children of i at 2 * i and 2 * i + 1
};

}  // namespace kiv
