#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "solver/language/compiled_model.h"
#include "solver/search/tree_search.h"
#include "tools/kiv/exit_code.h"

namespace kiv {

// What solving a model came to, as people and programs are told.
struct SolveOutcome {
  enum class Status {
    kOptimal,        // the last solution is the best there is
    kAllSolutions,   // there are no others than those that were found
    kSolved,         // there is a solution; there may be others, or better ones
    kUnsatisfiable,  // there is no solution
    kUnknown,        // none was found, but there may be one
    kError,          // a solution violates a constraint: an internal error
  };

  Status status = Status::kUnknown;
  ExitCode exit_code = kUnknown;
  // As the search tells it, but kStopped only for an interruption: what ends with as many solutions
  // as were asked for has kSolutionLimit.
  SearchResult result;
  std::chrono::nanoseconds time{};
  std::vector<std::string> unknowns;  // declared variables that had no value in some possibility
};

// Judges a search for `goal` that ended with `result`; `enough` when as much was found as was asked
// for. Time and names are for the caller to add.
SolveOutcome JudgeOutcome(SearchResult result, const CompiledModel::Goal& goal, bool enough);

// "optimal", "all_solutions", "solved", "unsatisfiable", "unknown" or "error".
const char* NameOf(SolveOutcome::Status status);
// "exhausted", "solution_limit", "time_limit", "node_limit", "failure_limit", "interrupted",
// "overflow" or "violated".
const char* NameOf(SearchEnd end);

}  // namespace kiv
