#pragma once

#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/language/formula.h"
#include "solver/language/operand.h"

// Truth values are formulas as long as possible: what is asserted as a whole needs no variable of
// its own. What returns false has reported why.
namespace kiv {

class NetworkBuilder;

// Posts that `truth` has this value. All of several truth values are posted one by one; any of them
// is a clause.
KIV_EXPORT bool AssertTruth(const Operand& truth, bool value, NetworkBuilder& builder);

// Posts that `truth`, a formula, is true if and only if the boolean variable is.
KIV_EXPORT bool PostEquivalence(const Operand& truth, KivOmbNetwork::VariableId variable,
                                NetworkBuilder& builder);

// The opposite of a truth value.
KIV_EXPORT std::optional<Operand> Negate(const Operand& truth, SourceRange range,
                                         NetworkBuilder& builder);

// All, or any, of the truth values. Of none, all are true and any is not. `kind`: of the result.
KIV_EXPORT std::optional<Operand> Connect(Junction::Which which, std::vector<Operand> parts,
                                          const KivOmbiObjectDescriptor& kind, SourceRange range,
                                          NetworkBuilder& builder);

}  // namespace kiv
