#pragma once

#include "framework/base/export.h"
#include "solver/flatzinc/builder.h"
#include "solver/search/objective_bound.h"

namespace kiv::flatzinc {

// Whether every solution of the model gives others with ever better objectives, so that one
// solution proves that there is no best: the objective has no bound in its direction, and all
// constraints that mention it are inequalities that better values satisfy all the more. False where
// that cannot be told in this way. Takes the text as it is, whatever Kiv's own integers hold; to be
// asked after propagation.
KIV_EXPORT bool IsUnbounded(const Objective& objective, const Builder& builder,
                            const KivOmbNetwork& network);

}  // namespace kiv::flatzinc
