#pragma once

#include <optional>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/network_builder.h"
#include "solver/language/operand.h"
#include "solver/language/reference_compiler.h"

namespace kiv {

// The element of an array of integers at indices that are known only in a solution, one for each
// dimension of the view; an index outside its dimension makes no solution. Two indices become the
// number of the element. Nothing when something is wrong, which was reported.
KIV_EXPORT std::optional<Operand> CompileElement(const ArrayView& view,
                                                 const std::vector<Operand>& indices,
                                                 SourceRange range, NetworkBuilder& builder);

}  // namespace kiv
