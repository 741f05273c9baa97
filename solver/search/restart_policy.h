#pragma once

#include <cstdint>
#include <optional>

#include "framework/base/export.h"

namespace kiv {

// When a search starts again from the root: after how many failures, and whether after solutions.
struct RestartPolicy {
  enum class Kind {
    kNone,
    kConstant,   // after `scale`
    kLinear,     // after `scale`, 2 * `scale`, 3 * `scale`, ...
    kGeometric,  // after `scale`, then `factor` times as many each time
    kLuby,       // after `scale` times 1, 1, 2, 1, 1, 2, 4, 1, 1, 2, 1, 1, 2, 4, 8, ...
  };

  Kind kind = Kind::kNone;
  std::uint64_t scale = 100;  // 0 counts as 1
  double factor = 1.5;        // at least 1
  bool on_solution = false;   // after each solution as well
};

// The numbers of failures after which one search restarts, one after the other. The sequence of
// kLuby is from M. Luby, A. Sinclair and D. Zuckerman (1993), "Optimal speedup of Las Vegas
// algorithms". Numbers too large for 64 bits stay at the largest that fits.
class KIV_EXPORT RestartSequence {
 public:
  explicit RestartSequence(const RestartPolicy& policy) : policy_(policy) {}

  // The next number, at least 1; none when the search does not restart.
  std::optional<std::uint64_t> Next();

 private:
  RestartPolicy policy_;
  std::uint64_t step_ = 0;
  double growth_ = 1;
};

}  // namespace kiv
