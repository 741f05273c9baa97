#pragma once

#include <optional>

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class ExpressionCompiler;

// The operator of an aggregate over the values of its body, one for each combination of its
// generators. Nothing when something is wrong, which was reported.
KIV_EXPORT std::optional<Operand> CompileAggregate(const Aggregate& aggregate, SourceRange range,
                                                   ExpressionCompiler& expressions,
                                                   Diagnostics& diagnostics);

}  // namespace kiv
