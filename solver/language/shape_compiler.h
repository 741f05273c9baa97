#pragma once

#include <optional>

#include "framework/base/export.h"
#include "solver/language/array_shape.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class ExpressionCompiler;

// The dimensions that an array can have.
inline constexpr std::size_t kMostDimensions = 2;

// The indices that a declarator gives its array, none for a single value. A dimension that is left
// open has none, as if it were empty. Nothing when something is wrong, which was reported.
KIV_EXPORT std::optional<ArrayShape> CompileShape(const Declarator& declarator,
                                                  ExpressionCompiler& expressions,
                                                  const ExpansionLimits& limits,
                                                  Diagnostics& diagnostics);

}  // namespace kiv
