#pragma once

#include <optional>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class ExpressionCompiler;

// Whether the call asserts something instead of having a value.
KIV_EXPORT bool IsConstraintCall(const Call& call);

// Posts a call that does. Errors are reported.
KIV_EXPORT void PostCall(const Call& call, SourceRange range, const std::vector<Word>& annotations,
                         ExpressionCompiler& expressions);

// The value of a call that the vocabulary of calls knows. Nothing when something is wrong, which
// was reported.
KIV_EXPORT std::optional<Operand> ApplyCall(const Call& call, SourceRange range,
                                            ExpressionCompiler& expressions);

}  // namespace kiv
