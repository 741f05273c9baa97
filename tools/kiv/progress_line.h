#pragma once

#include <chrono>

#include "solver/search/search_options.h"

namespace kiv {

// A line on standard error that tells how far a search has come. It appears after a second, is
// rewritten at most five times a second and vanishes when it is cleared.
class ProgressLine {
 public:
  // Whether standard error is a terminal, where such a line can be rewritten.
  static bool IsPossible();

  ProgressLine() : start_(Clock::now()) {}
  ~ProgressLine() { Clear(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(const SearchProgress& progress);
  // To be called before anything else is written to the terminal.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point start_;
  Clock::time_point next_ = start_ + std::chrono::seconds(1);
  bool visible_ = false;
};

}  // namespace kiv
