#pragma once

#include <span>
#include <string_view>

#include "framework/base/export.h"
#include "solver/flatzinc/model.h"

namespace kiv::flatzinc {

// The name of an annotation, an atom or a compound one; empty for anything else.
KIV_EXPORT std::string_view NameOfAnnotation(const Model& model, Expression annotation);

// The arguments of a compound annotation; none of anything else.
KIV_EXPORT std::span<const Expression> ArgumentsOfAnnotation(const Model& model,
                                                             Expression annotation);

// The first annotation of this name, or null.
KIV_EXPORT const Expression* FindAnnotation(const Model& model, List annotations,
                                            std::string_view name);

// Whether the compiler of the model made the variable, not the user.
KIV_EXPORT bool IsIntroduced(const Model& model, const Variable& variable);

}  // namespace kiv::flatzinc
