#include "tools/kiv/solve_outcome.h"

namespace kiv {
namespace {

using Status = SolveOutcome::Status;

Status JudgeStatus(const SearchResult& result, bool has_objective) {
  const bool solved = result.statistics.solutions > 0;
  if (result.end == SearchEnd::kViolated) return Status::kError;
  if (result.end != SearchEnd::kExhausted || result.statistics.unknowns > 0) {
    return solved ? Status::kSolved : Status::kUnknown;
  }
  if (!solved) return Status::kUnsatisfiable;
  return has_objective ? Status::kOptimal : Status::kAllSolutions;
}

ExitCode JudgeExitCode(const SearchResult& result, Status status, bool has_objective) {
  switch (result.end) {
    case SearchEnd::kViolated:
      return kFailure;
    case SearchEnd::kStopped:
      return kInterrupted;
    case SearchEnd::kOverflow:
    case SearchEnd::kTimeLimit:
    case SearchEnd::kNodeLimit:
    case SearchEnd::kFailureLimit:
      return kUnknown;
    case SearchEnd::kSolutionLimit:
    case SearchEnd::kExhausted:
      break;
  }
  if (status == Status::kUnsatisfiable) return kNoSolution;
  const bool unproved =
      has_objective && status == Status::kSolved && result.end == SearchEnd::kExhausted;
  return status == Status::kUnknown || unproved ? kUnknown : kSolved;
}

}  // namespace

SolveOutcome JudgeOutcome(SearchResult result, const CompiledModel::Goal& goal, bool enough) {
  if (result.end == SearchEnd::kStopped && enough) result.end = SearchEnd::kSolutionLimit;
  const bool has_objective = goal.objective != KivOmbNetwork::kNone;
  SolveOutcome outcome;
  outcome.status = JudgeStatus(result, has_objective);
  outcome.exit_code = JudgeExitCode(result, outcome.status, has_objective);
  outcome.result = result;
  return outcome;
}

const char* NameOf(SolveOutcome::Status status) {
  switch (status) {
    case Status::kOptimal:
      return "optimal";
    case Status::kAllSolutions:
      return "all_solutions";
    case Status::kSolved:
      return "solved";
    case Status::kUnsatisfiable:
      return "unsatisfiable";
    case Status::kUnknown:
      return "unknown";
    case Status::kError:
      break;
  }
  return "error";
}

const char* NameOf(SearchEnd end) {
  switch (end) {
    case SearchEnd::kExhausted:
      return "exhausted";
    case SearchEnd::kStopped:
      return "interrupted";
    case SearchEnd::kTimeLimit:
      return "time_limit";
    case SearchEnd::kNodeLimit:
      return "node_limit";
    case SearchEnd::kFailureLimit:
      return "failure_limit";
    case SearchEnd::kSolutionLimit:
      return "solution_limit";
    case SearchEnd::kOverflow:
      return "overflow";
    case SearchEnd::kViolated:
      break;
  }
  return "violated";
}

}  // namespace kiv
