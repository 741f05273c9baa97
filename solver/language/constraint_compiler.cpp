#include "solver/language/constraint_compiler.h"

#include <optional>
#include <string>

#include "solver/language/call_compiler.h"
#include "solver/language/operator_precedence.h"
#include "solver/language/truth_posting.h"

namespace kiv {

void ConstraintCompiler::Compile(const Constraint& constraint) {
  Assert(constraint.expression, constraint.annotations);
}

void ConstraintCompiler::Assert(const Expression& expression,
                                const std::vector<Word>& annotations) {
  const auto* call = std::get_if<Call>(&expression.form);
  if (call != nullptr && IsConstraintCall(*call)) {
    PostCall(*call, expression.range, annotations, expressions_);
    return;
  }
  const auto* aggregate = std::get_if<Aggregate>(&expression.form);
  if (aggregate != nullptr && aggregate->name.text == "forall") {
    expressions_.GetGenerators().ForEach(aggregate->generators,
                                         [&] { Assert(*aggregate->body, annotations); });
    return;
  }
  if (const auto* conditional = std::get_if<ConditionalExpression>(&expression.form)) {
    const auto condition = expressions_.CompileCondition(*conditional->condition);
    if (condition) Assert(*condition ? *conditional->first : *conditional->second, annotations);
    return;
  }
  RefuseAnnotations(annotations);
  const std::optional<Operand> value = expressions_.Compile(expression);
  if (!value || FindOutermost(Precedence::kRelation, expression) != nullptr) return;
  if (const Word* question = FindOutermost(Precedence::kBooleanRelation, expression)) {
    diagnostics_.Add(question->range, "this asserts nothing: '" + question->text +
                                          "' only has a truth value; did you mean '" +
                                          std::string(GetCounterpart(question->text)) + "'?");
  } else if (expressions_.GetBuilder().IsTruth(*value)) {
    AssertTruth(*value, true, expressions_.GetBuilder());
  } else {
    diagnostics_.Add(expression.range,
                     "this asserts nothing; a constraint is a relation such as 'x = y', a truth "
                     "value such as 't or x == y', or 'all_different(...)'");
  }
}

void ConstraintCompiler::RefuseAnnotations(const std::vector<Word>& annotations) {
  for (const Word& annotation : annotations) {
    diagnostics_.Add(annotation.range, "unknown annotation '" + annotation.text + '\'');
  }
}

}  // namespace kiv
