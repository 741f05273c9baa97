#pragma once

#include "solver/language/compiled_model.h"
#include "tools/kiv/solve_outcome.h"

namespace kiv {

// Prints what the network of a model holds at a leaf as lines of text, ended with "----------" or,
// when it is only a possibility, "~~~~~~~~~~". Throws OutputError.
void PrintLeaf(const CompiledModel& model, const SearchLeaf& leaf);

// Prints "==========" behind solutions whose last is optimal. Throws OutputError.
void PrintEnd(const SolveOutcome& outcome);

// Tells on standard error what was found, and why no more.
void PrintCounts(const SolveOutcome& outcome);

// Tells on standard error what went wrong, if anything did.
void PrintMishap(const CompiledModel& model, const SolveOutcome& outcome);

}  // namespace kiv
