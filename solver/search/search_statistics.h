#pragma once

#include <cstddef>
#include <cstdint>

namespace kiv {

struct SearchStatistics {
  std::uint64_t solutions = 0;
  // Ends of the tree where a variable stayed Any or without a bound, which no search can split:
  // what they hold is unknown, so without a solution the model is not known to have none, and a
  // best solution is not known to be the best.
  std::uint64_t unknowns = 0;
  std::uint64_t nodes = 0;     // parts of domains that were entered
  std::uint64_t failures = 0;  // contradictions
  std::uint64_t restarts = 0;
  std::uint64_t nogoods = 0;       // learned from restarts
  std::uint64_t propagations = 0;  // runs of constraints
  std::size_t peak_depth = 0;      // most decisions on a path
};

}  // namespace kiv
