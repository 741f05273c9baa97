#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "solver/search/objective_bound.h"
#include "solver/search/restart_policy.h"
#include "solver/search/search_limits.h"
#include "solver/search/search_statistics.h"
#include "solver/search/strategy.h"

namespace kiv {

// How far a search has come.
struct SearchProgress {
  const SearchStatistics& statistics;
  std::optional<std::int32_t> best;  // value of the objective
  std::size_t depth;                 // decisions on the path
};

// What a search does. The same options over the same network give the same run, but for the time
// limit.
struct SearchOptions {
  Strategy strategy;
  RestartPolicy restarts;
  std::optional<Objective> objective;
  // Whether one completion is enough where everything that the strategy names, and the objective,
  // is fixed: of solutions that differ in the other variables alone only one is found.
  bool complete_once = false;
  SearchLimits limits;
  std::uint64_t seed = 0;
  // Called after each `progress_interval` nodes; 0 counts as 1.
  std::function<void(const SearchProgress&)> on_progress;
  std::uint64_t progress_interval = 1000;
};

}  // namespace kiv
