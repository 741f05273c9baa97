#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/minizinc/instances.h"

namespace kiv::test {

// What a solver answered through MiniZinc.
struct SolverRun {
  std::vector<std::string> solutions;    // the assignments of each, without its objective
  std::vector<std::int64_t> objectives;  // of each solution, if the model has one
  std::string answer;                    // as an Instance tells it, or what is wrong instead
};

// Solves an instance to the end: finds all solutions, or the best. `configuration` is the path of a
// solver's configuration, `options` are more for minizinc.
SolverRun Solve(const Instance& instance, const std::string& configuration,
                const std::vector<std::string>& options = {});

}  // namespace kiv::test
