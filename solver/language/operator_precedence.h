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
  kImplication,      // =>                    from right to left
  kDisjunction,      // or
  kExclusiveOr,      // xor
  kConjunction,      // and
  kBooleanRelation,  // == << <== >> >== in   have a truth value; do not chain
  kRange,            // ..                    does not chain
  kMaximum,          // \/
  kMinimum,          // /\ .
  kSum,              // + -
  kProduct,          // * / mod div
  kPower,            // ^
};

// The precedence of an operator that the grammar knows.
KIV_EXPORT Precedence GetPrecedence(std::string_view symbol);

// Whether operators of this precedence connect truth values.
constexpr bool IsConnective(Precedence precedence) {
  return Precedence::kImplication <= precedence && precedence <= Precedence::kConjunction;
}

// "=" asserts what "==" asks, and so on: the other of the two, or nothing where there is none, as
// for "<>".
KIV_EXPORT std::string_view GetCounterpart(std::string_view relation);

// The operator that is applied last in `expression`, when it stands between operands and has this
// precedence; else null.
KIV_EXPORT const Word* FindOutermost(Precedence precedence, const Expression& expression);

// Operands with the operators between them, as written; there is one more operand than operators.
struct FlatExpression {
  std::vector<Expression> operands;
  std::vector<Word> operators;
};

// What the relations = <> < <= > >= mean where an expression stands.
enum class Reading {
  kAsserting,  // they must hold
  kAsking,     // they have a truth value: "=" is another spelling of "==", "<" of "<<" and so on
};

// The tree that precedence makes of it: operators of one level side by side in one chain. `in` and
// `..` become forms of their own.
KIV_EXPORT Expression GroupByPrecedence(FlatExpression flat, Reading reading,
                                        Diagnostics& diagnostics);

}  // namespace kiv
