#include "tools/kiv/solution_output.h"

#include <iostream>
#include <string>

#include "tools/kiv/output.h"

namespace kiv {
namespace {

using Status = SolveOutcome::Status;

// Why a search ended early, or nothing.
std::string DescribeEarlyEnd(SearchEnd end) {
  switch (end) {
    case SearchEnd::kStopped:
      return "interrupted";
    case SearchEnd::kTimeLimit:
      return "time limit reached";
    case SearchEnd::kNodeLimit:
      return "node limit reached";
    case SearchEnd::kFailureLimit:
      return "failure limit reached";
    default:
      return {};
  }
}

std::string DescribeUnknowns(const std::vector<std::string>& unknowns) {
  if (unknowns.empty()) return "the value of an expression stays Any";
  std::string names;
  for (const std::string& name : unknowns) names += (names.empty() ? "" : ", ") + name;
  return names + (unknowns.size() == 1 ? " stays Any" : " stay Any");
}

void PrintNumberFound(const SearchStatistics& statistics, const SolveOutcome& outcome) {
  const std::string early = DescribeEarlyEnd(outcome.result.end);
  if (!early.empty()) {
    std::cerr << early << "; " << Count(statistics.solutions, "solution") << " so far\n";
  } else if (statistics.solutions > 0) {
    std::cerr << Count(statistics.solutions, "solution") << '\n';
  } else if (outcome.status == Status::kUnsatisfiable) {
    std::cerr << "no solution\n";
  }
}

}  // namespace

void PrintLeaf(const CompiledModel& model, const SearchLeaf& leaf) {
  model.PrintSolutionOn(std::cout);
  std::cout << (leaf.complete ? "----------\n" : "~~~~~~~~~~\n");
  FlushOutput();
}

void PrintEnd(const SolveOutcome& outcome) {
  if (outcome.status == Status::kOptimal) std::cout << "==========\n";
  FlushOutput();
}

void PrintCounts(const SolveOutcome& outcome) {
  const SearchStatistics& statistics = outcome.result.statistics;
  PrintNumberFound(statistics, outcome);
  if (outcome.result.best) {
    const bool optimal = outcome.status == Status::kOptimal;
    std::cerr << (optimal ? "optimal" : "best so far") << ": objective = " << *outcome.result.best
              << '\n';
  }
  if (statistics.unknowns > 0) {
    std::cerr << statistics.unknowns
              << (statistics.unknowns == 1 ? " possibility" : " possibilities")
              << " left unknown: " << DescribeUnknowns(outcome.unknowns) << '\n';
  }
}

void PrintMishap(const CompiledModel& model, const SolveOutcome& outcome) {
  const auto& culprit = outcome.result.culprit;
  const std::string place = culprit ? model.Describe(*culprit) : "an unknown place";
  if (outcome.result.end == SearchEnd::kViolated) {
    std::cerr << "internal error: a solution violates " << place << '\n';
  } else if (outcome.result.end == SearchEnd::kOverflow) {
    std::cerr << "overflow: beyond the range of integers at " << place << '\n';
  }
}

}  // namespace kiv
