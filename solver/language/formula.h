#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "solver/constraints/junction.h"
#include "solver/constraints/linear_expression.h"
#include "solver/constraints/linear_relation.h"
#include "solver/language/operand.h"

namespace kiv {

// A truth value that no variable holds yet. Parts of formulas are truth values; they nest as deep
// as expressions do.
struct Formula {
  // left `relation` right
  struct Question {
    LinearExpression left;
    LinearRelation relation;
    LinearExpression right;
  };
  // The integer is among the values, which are ascending and without duplicates.
  struct Element {
    Operand integer;
    std::vector<std::int32_t> values;
  };
  // The part, neither a constant nor a question, is false.
  struct Negation {
    Operand part;
  };
  // All or any of at least two parts, none of them constant.
  struct Connection {
    Junction::Which which;
    std::vector<Operand> parts;
  };

  std::variant<Question, Element, Negation, Connection> form;
};

}  // namespace kiv
