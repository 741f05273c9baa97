#pragma once

#include "solver/language/compiled_model.h"
#include "tools/kiv/domain_json.h"
#include "tools/kiv/solve_outcome.h"

namespace kiv {

// The counts of a run under the names that docs/command.md explains, and its time as "seconds".
Json DescribeStatistics(const CompiledModel& model, const SolveOutcome& outcome);

// The same on standard error, a line for each, aligned.
void PrintStatistics(const CompiledModel& model, const SolveOutcome& outcome);

}  // namespace kiv
