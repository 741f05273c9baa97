#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/search/search_end.h"
#include "solver/search/search_statistics.h"

namespace kiv {

// When a search gives up. Each limit is looked at before a node is entered, the time while
// constraints run as well; where nothing is left to search, the search is exhausted and no limit
// counts.
struct SearchLimits {
  std::optional<std::chrono::nanoseconds> time = std::nullopt;
  std::optional<std::uint64_t> nodes = std::nullopt;
  std::optional<std::uint64_t> failures = std::nullopt;
  std::optional<std::uint64_t> solutions = std::nullopt;
};

// The limits of a search that starts now.
class KIV_EXPORT LimitWatch {
 public:
  explicit LimitWatch(const SearchLimits& limits);

  // The first limit that is reached, if any.
  std::optional<SearchEnd> FindReached(const SearchStatistics& statistics) const;
  std::optional<KivOmbNetwork::Clock::time_point> GetDeadline() const;

 private:
  SearchLimits limits_;
  KivOmbNetwork::Clock::time_point start_;
};

}  // namespace kiv
