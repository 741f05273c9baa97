#pragma once

#include <cstdint>
#include <optional>

#include "framework/base/export.h"
#include "solver/language/compiled_model.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/generator_compiler.h"
#include "solver/language/network_builder.h"
#include "solver/language/operand.h"
#include "solver/language/operator_compiler.h"
#include "solver/language/reference_compiler.h"
#include "solver/language/scope.h"
#include "solver/language/syntax_tree.h"
#include "solver/language/vocabulary.h"

namespace kiv {

// Turns expressions into values. Constants are computed at once; what else is posted for an
// expression is the business of those that this hands its operands to.
//
// Every operation that returns nothing has reported why.
class KIV_EXPORT ExpressionCompiler {
 public:
  // All of them must outlive this. The kind "int" must be in the vocabulary.
  ExpressionCompiler(CompiledModel& model, const Vocabulary& vocabulary, Scope& scope,
                     ExpansionBudget& budget, Diagnostics& diagnostics);

  std::optional<Operand> Compile(const Expression& expression);
  // `what` is for the error when the expression is no constant: "an index".
  std::optional<std::int64_t> CompileConstant(const Expression& expression, const char* what);
  // The truth value of a condition that is made of constants.
  std::optional<bool> CompileCondition(const Expression& condition);
  // Reports an operand of `symbol` that asserts instead of having a truth value.
  bool CheckAsks(const Word& symbol, const Expression& operand);

  NetworkBuilder& GetBuilder() noexcept { return builder_; }
  OperatorCompiler& GetOperators() noexcept { return operators_; }
  ReferenceCompiler& GetReferences() noexcept { return references_; }
  GeneratorCompiler& GetGenerators() noexcept { return generators_; }

 private:
  std::optional<Operand> CompileChain(const Chain& chain, SourceRange range);
  std::optional<Operand> CompileUnary(const UnaryApplication& application, SourceRange range);
  std::optional<Operand> CompileMembership(const MembershipTest& test, SourceRange range);
  std::optional<Operand> CompileConditional(const ConditionalExpression& conditional);
  std::optional<Operand> CompileCall(const Call& call, SourceRange range);
  // Reports a range, a set or a list where one value is expected.
  void RefuseSeveral(const Expression& expression);

  const Vocabulary& vocabulary_;
  Diagnostics& diagnostics_;
  NetworkBuilder builder_;
  OperatorCompiler operators_;
  ReferenceCompiler references_;
  GeneratorCompiler generators_;
};

}  // namespace kiv
