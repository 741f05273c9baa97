#pragma once

#include <optional>

#include "framework/base/export.h"
#include "solver/language/integer_set.h"
#include "solver/language/network_builder.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Whether the operand is one of the values: a truth value. Nothing, reported, when it is no
// integer. `symbol`: the `in` that asks.
KIV_EXPORT std::optional<Operand> AskMembership(const Word& symbol, const Operand& operand,
                                                const IntegerSet& values, SourceRange range,
                                                NetworkBuilder& builder);

}  // namespace kiv
