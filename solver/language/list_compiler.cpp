#include "solver/language/list_compiler.h"

#include <utility>

#include "solver/language/expression_compiler.h"

namespace kiv {
namespace {

// Appends what the argument stands for; false, reported, when it is wrong. Recursive, as deep as
// lists are nested.
bool Append(const Expression& argument, ExpressionCompiler& expressions,
            std::vector<Operand>& list) {
  if (const auto* literal = std::get_if<ListLiteral>(&argument.form)) {
    bool complete = true;
    for (const Expression& element : literal->elements) {
      complete &= Append(element, expressions, list);
    }
    return complete;
  }
  const auto* comprehension = std::get_if<Comprehension>(&argument.form);
  if (comprehension != nullptr && !comprehension->is_set) {
    return expressions.GetGenerators().ForEach(
        comprehension->generators, [&] { Append(*comprehension->element, expressions, list); });
  }
  const auto* reference = std::get_if<Reference>(&argument.form);
  if (reference != nullptr && expressions.GetReferences().IsArray(*reference)) {
    const auto view = expressions.GetReferences().CompileArray(*reference, argument.range);
    if (view) list.insert(list.end(), view->elements.begin(), view->elements.end());
    return view.has_value();
  }
  const auto operand = expressions.Compile(argument);
  if (operand) list.push_back(*operand);
  return operand.has_value();
}

}  // namespace

std::optional<std::vector<Operand>> CompileList(const std::vector<Expression>& arguments,
                                                ExpressionCompiler& expressions) {
  std::vector<Operand> list;
  bool complete = true;
  for (const Expression& argument : arguments) complete &= Append(argument, expressions, list);
  return complete ? std::optional(std::move(list)) : std::nullopt;
}

std::optional<std::vector<Operand>> CompileList(const Expression& argument,
                                                ExpressionCompiler& expressions) {
  std::vector<Operand> list;
  return Append(argument, expressions, list) ? std::optional(std::move(list)) : std::nullopt;
}

}  // namespace kiv
