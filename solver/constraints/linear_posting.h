#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/constraints/linear_expression.h"
#include "solver/constraints/linear_reified.h"
#include "solver/constraints/linear_relation.h"
#include "solver/constraints/strength.h"

namespace kiv {

// A truth value, a boolean or an integer that has no other values than 0 and 1, and how it goes
// with a relation.
struct LinearTruth {
  KivOmbNetwork::VariableId variable;
  Reification reification = Reification::kEquivalence;
};

// Posts that the sum of `terms` stands in `relation` to `constant`, or that `truth` goes with it,
// as one constraint, whose number it returns.
//
// The terms may repeat variables and have coefficients of 0. They are brought to a normal form:
// terms of one variable are merged, the coefficients are divided by their greatest common divisor,
// and <, > and >= become <=. So `x = x + 1`, or an equation whose constant that divisor does not
// divide, is a contradiction at once. The class with the least to do is chosen: a `truth` that is
// fixed outside all levels makes the constraint a plain one. `strength` is that of a plain equation
// of at most three terms; nothing else has more than one.
//
// Throws std::invalid_argument when a variable of a term is no integer or `truth` no truth value,
// and std::overflow_error when a merged coefficient does not fit 64 bits even after the division;
// nothing is posted then. Takes time O(n log n).
KIV_EXPORT KivOmbNetwork::ConstraintId PostLinear(KivOmbNetwork& network,
                                                  std::span<const LinearTerm> terms,
                                                  LinearRelation relation, std::int64_t constant,
                                                  std::optional<LinearTruth> truth = {},
                                                  Strength strength = Strength::kAutomatic);

// The same for left `relation` right; nothing overflows here that does not above.
KIV_EXPORT KivOmbNetwork::ConstraintId PostLinear(KivOmbNetwork& network,
                                                  const LinearExpression& left,
                                                  LinearRelation relation,
                                                  const LinearExpression& right,
                                                  std::optional<LinearTruth> truth = {},
                                                  Strength strength = Strength::kAutomatic);

}  // namespace kiv
