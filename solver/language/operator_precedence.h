#pragma once

#include <string_view>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// How tightly an operator between two operands binds: the later, the tighter.
enum class Precedence {
  kRelation,         // = <> < <= > >=        assert, and chain
  kBooleanRelation,  // == << <== >> >==      have a truth value; do not chain
  kMaximum,          // \/
  kMinimum,          // /\ .
  kSum,              // + -
  kProduct,          // * / mod
  kPower,            // ^
};

// The precedence of an operator that the grammar knows.
KIV_EXPORT Precedence GetPrecedence(std::string_view symbol);

// Operands with the operators between them, as written; there is one more operand than operators.
struct FlatExpression {
  std::vector<Expression> operands;
  std::vector<Word> operators;
};

// The tree that precedence makes of it: operators of one level side by side in one chain.
KIV_EXPORT Expression GroupByPrecedence(FlatExpression flat, Diagnostics& diagnostics);

}  // namespace kiv
