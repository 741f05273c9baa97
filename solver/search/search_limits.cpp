#include "solver/search/search_limits.h"

namespace kiv {

namespace {

bool IsReached(const std::optional<std::uint64_t>& limit, std::uint64_t count) {
  return limit && count >= *limit;
}

}  // namespace

using Clock = KivOmbNetwork::Clock;

LimitWatch::LimitWatch(const SearchLimits& limits) : limits_(limits), start_(Clock::now()) {}

std::optional<Clock::time_point> LimitWatch::GetDeadline() const {
  // A limit that the clock cannot count to is none.
  if (!limits_.time || *limits_.time > Clock::time_point::max() - start_) return std::nullopt;
  return start_ + *limits_.time;
}

std::optional<SearchEnd> LimitWatch::FindReached(const SearchStatistics& statistics) const {
  if (IsReached(limits_.solutions, statistics.solutions)) return SearchEnd::kSolutionLimit;
  if (IsReached(limits_.nodes, statistics.nodes)) return SearchEnd::kNodeLimit;
  if (IsReached(limits_.failures, statistics.failures)) return SearchEnd::kFailureLimit;
  if (limits_.time && Clock::now() - start_ >= *limits_.time) return SearchEnd::kTimeLimit;
  return std::nullopt;
}

}  // namespace kiv
