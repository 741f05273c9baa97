#pragma once

namespace kiv {

// How a search ended.
enum class SearchEnd {
  kExhausted,  // every possibility was tried, or cannot be better than the best solution
  kStopped,    // by the receiver of solutions or by the network's stop flag
  kTimeLimit,
  kNodeLimit,
  kFailureLimit,
  kSolutionLimit,
  kOverflow,  // an unknown variable could only be beyond the range of integers
  kViolated,  // internal error: a solution fails the ground truth of a constraint
};

}  // namespace kiv
