#pragma once

#include <optional>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class ExpressionCompiler;

// The values that the arguments of a call stand for, in order: an array, a row or a column for all
// its elements, a list for those of its parts, `[e | generators]` for one of each combination,
// anything else for itself. Nothing when one of them is wrong, which was reported.
KIV_EXPORT std::optional<std::vector<Operand>> CompileList(const std::vector<Expression>& arguments,
                                                           ExpressionCompiler& expressions);

// The same of a single argument.
KIV_EXPORT std::optional<std::vector<Operand>> CompileList(const Expression& argument,
                                                           ExpressionCompiler& expressions);

}  // namespace kiv
