#pragma once

#include <cstddef>
#include <optional>

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/source_text.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Parentheses, prefix operators, exponents and loops within each other, so that reading and
// compiling need a bounded part of the machine's stack.
inline constexpr std::size_t kDeepestNesting = 200;

// Reads a model. Nothing, and what is wrong in `diagnostics`, when the text is not one: after an
// error of syntax reading stops, other mistakes are reported together. Any bytes are admitted.
KIV_EXPORT std::optional<SyntaxTree> ParseModel(const SourceText& source, Diagnostics& diagnostics);

}  // namespace kiv
