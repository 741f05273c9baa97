#pragma once

#include <optional>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/network_builder.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// How many of the truth values are true; `name` is what counts them. Nothing, reported, when one of
// them is no truth value.
KIV_EXPORT std::optional<Operand> CountTruths(const Word& name, const std::vector<Operand>& truths,
                                              SourceRange range, NetworkBuilder& builder);

}  // namespace kiv
