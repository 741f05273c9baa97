#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "framework/calculator/descriptor.h"
#include "framework/networks/network.h"
#include "solver/constraints/linear_expression.h"
#include "solver/language/source_text.h"

namespace kiv {

struct Formula;

// The value of an expression: a constant, a variable of the network, or a sum or formula. These two
// have no variable yet, so that the constraint that takes them can be posted over their parts;
// NetworkBuilder gives them one where it is needed.
struct Operand {
  std::optional<std::int64_t> constant;
  KivOmbNetwork::VariableId variable = KivOmbNetwork::kNone;
  SourceRange range;  // where it is written
  // Of a sum or a formula: the kind that its variable would have.
  const KivOmbiObjectDescriptor* kind = nullptr;
  LinearExpression sum = LinearExpression();
  std::shared_ptr<const Formula> formula = nullptr;

  bool IsSum() const noexcept { return kind != nullptr && formula == nullptr; }
};

// variable + constant
struct ShiftedVariable {
  KivOmbNetwork::VariableId variable;
  std::int64_t constant;
};

// What a sum is when it has that form. A sum that is no more than that needs no variable of its own
// where a constraint knows how to shift its arguments.
inline std::optional<ShiftedVariable> FindShift(const Operand& operand) {
  if (!operand.IsSum() || operand.sum.GetTerms().size() != 1) return std::nullopt;
  const LinearTerm& term = operand.sum.GetTerms().front();
  if (term.coefficient != 1) return std::nullopt;
  return ShiftedVariable{term.variable, operand.sum.GetConstant()};
}

}  // namespace kiv
