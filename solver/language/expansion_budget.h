#pragma once

#include <cstdint>
#include <string>

#include "solver/language/diagnostics.h"

namespace kiv {

// How large a model may become: a few words such as two nested loops can ask for more than any
// machine holds.
struct ExpansionLimits {
  std::uint64_t steps = 10'000'000;  // variables, constraints and runs through a loop
  std::uint32_t array_size = 1'000'000;
};

// Counts down what ExpansionLimits admits.
class ExpansionBudget {
 public:
  explicit ExpansionBudget(const ExpansionLimits& limits) : limits_(limits), left_(limits.steps) {}

  const ExpansionLimits& GetLimits() const noexcept { return limits_; }

  // False, with an error at `range`, when fewer than `steps` are left.
  bool Spend(std::uint64_t steps, SourceRange range, Diagnostics& diagnostics) {
    if (steps <= left_) {
      left_ -= steps;
      return true;
    }
    left_ = 0;
    diagnostics.Add(range, "the model is too large: it asks for more than " +
                               std::to_string(limits_.steps) +
                               " variables, constraints and loop steps");
    return false;
  }

 private:
  ExpansionLimits limits_;
  std::uint64_t left_;
};

}  // namespace kiv
