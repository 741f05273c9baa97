#pragma once

#include <cstdint>

#include "solver/language/compiled_model.h"
#include "tools/kiv/solve_outcome.h"

namespace kiv {

// The lines of JSON that docs/json_output.md describes, on standard output. All throw OutputError.

// What the network of a model holds at a leaf; `number` counts solutions, or possibilities, from 1.
void PrintLeafJson(const CompiledModel& model, const SearchLeaf& leaf, std::uint64_t number);
// How solving ended.
void PrintOutcomeJson(const CompiledModel& model, const SolveOutcome& outcome);
// What propagation alone came to.
void PrintDomainsJson(const CompiledModel& model, KivOmbNetwork::Outcome outcome,
                      ExitCode exit_code);

}  // namespace kiv
