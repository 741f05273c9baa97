#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "solver/search/search_statistics.h"

namespace kiv::fzn {

// What is said at the end about all solutions.
enum class Verdict {
  kOpen,       // there may be others, or better ones
  kComplete,   // there are no others, or no better ones
  kUnbounded,  // there is always a better one
};

// How large the model is, as a network.
struct ModelSize {
  std::size_t variables = 0;    // that the text declares
  std::size_t booleans = 0;     // of these
  std::size_t constraints = 0;  // of the network
};

// What one run writes to standard output, in the order that the FlatZinc interface wants: solutions
// one by one, then how it ended, then statistics. Two threads may use it: whoever concludes first
// ends it, and what the other says after that is not written.
//
// Throws OutputError where standard output does not take what is written.
class Report {
 public:
  using Clock = std::chrono::steady_clock;

  struct Settings {
    Clock::time_point start;
    bool statistics = false;     // at the end
    bool last_solution = false;  // only the last solution is to be written, at the end
  };

  explicit Report(const Settings& settings) : settings_(settings) {}

  // From now on everything is search.
  void BeginSearch(const ModelSize& size);
  // A solution as the user is to see it, and its objective.
  void Tell(const std::string& solution, std::optional<std::int32_t> objective);
  // How far the search has come.
  void Note(const SearchStatistics& search);
  // Nothing is written after this.
  void Conclude(Verdict verdict);
  // Concludes with kOpen, unless what is being written now takes too long to wait for.
  void Abandon();

  std::uint64_t CountSolutions() const noexcept { return solutions_; }

 private:
  void WriteEnd(Verdict verdict);
  std::string DescribeEnd(Verdict verdict) const;
  std::string DescribeStatistics() const;

  const Settings settings_;
  std::timed_mutex mutex_;  // over everything below
  bool concluded_ = false;
  std::uint64_t solutions_ = 0;
  std::string kept_;  // the last solution, where it is to be written at the end
  std::optional<std::int32_t> objective_;
  std::optional<Clock::time_point> search_start_;
  ModelSize size_;
  SearchStatistics search_;
};

}  // namespace kiv::fzn
