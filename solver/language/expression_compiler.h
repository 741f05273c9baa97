#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/compiled_model.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/generator_compiler.h"
#include "solver/language/operand.h"
#include "solver/language/reference_compiler.h"
#include "solver/language/scope.h"
#include "solver/language/syntax_tree.h"
#include "solver/language/vocabulary.h"

namespace kiv {

// Turns expressions into variables and constraints of a network. Constants are computed at once. An
// application of an operator becomes the constraint of the row that the kinds of its operands
// select, with a new variable for its value; a relation makes no variable: its value is its right
// operand.
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
  // The constant true or false.
  std::optional<Operand> CompileTruth(bool value, SourceRange range);
  // The constant that a boolean operand is, where it is one.
  std::optional<bool> GetConstantTruth(const Operand& operand) const;
  // `left symbol right`, or their constant value.
  std::optional<Operand> ApplyBinary(const Word& symbol, const Operand& left, const Operand& right);
  // Reports an operand of `symbol` that asserts instead of having a truth value.
  bool CheckAsks(const Word& symbol, const Expression& operand);
  // The variable that holds the operand: for a constant, a fixed one that all its uses share.
  std::optional<KivOmbNetwork::VariableId> GetVariable(const Operand& operand);
  // A new variable, Any.
  std::optional<KivOmbNetwork::VariableId> AddVariable(const KivOmbiObjectDescriptor& kind,
                                                       SourceRange range);
  const KivOmbiObjectDescriptor& GetKind(const Operand& operand) const;
  // Whether the operand is a boolean.
  bool IsTruth(const Operand& operand) const;
  // The boolean `operand` must be true.
  void AssertTruth(const Operand& operand);

  ReferenceCompiler& GetReferences() noexcept { return references_; }
  GeneratorCompiler& GetGenerators() noexcept { return generators_; }

 private:
  using Row = KivOmbiCompoundObjectDescriptor;

  std::optional<Operand> CompileChain(const Chain& chain);
  std::optional<Operand> CompileUnary(const UnaryApplication& application, SourceRange range);
  std::optional<Operand> CompileMembership(const MembershipTest& test);
  std::optional<Operand> CompileConditional(const ConditionalExpression& conditional);
  // Reports a range, a set or a list where one value is expected.
  void RefuseSeveral(const Expression& expression);
  std::optional<Operand> CompileCall(const Call& call, SourceRange range);
  std::optional<Operand> ApplyUnary(const Word& symbol, const Operand& operand, SourceRange range);
  std::optional<Operand> ApplyRelation(const Word& symbol, const Operand& left,
                                       const Operand& right);
  // A connective, or `==`, over booleans, one of which at least is the constant true or false.
  std::optional<Operand> ApplyToConstantTruth(const Word& symbol, const Operand& left,
                                              const Operand& right);
  std::optional<Operand> ApplyScaling(const Row& row, const Operand& coefficient,
                                      const Operand& operand, SourceRange range);
  // The row for these operands; null, reported, when there is none.
  const Row* FindRow(const Word& symbol, const std::vector<const Operand*>& operands);
  // Reports a row whose constraint does not propagate.
  bool CheckPropagates(const Row& row, const Word& symbol,
                       const std::vector<const Operand*>& operands);
  // Posts the row between its operands and, unless it is a relation, a new variable, which is the
  // result. `right` is null for a unary operator.
  std::optional<Operand> Post(const Row& row, const Operand& left, const Operand* right,
                              bool has_result, SourceRange range);
  std::string DescribeKinds(const std::vector<const Operand*>& operands) const;

  CompiledModel& model_;
  const Vocabulary& vocabulary_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
  ReferenceCompiler references_;
  GeneratorCompiler generators_;
  const KivOmbiObjectDescriptor& constant_kind_;
  std::unordered_map<std::int32_t, KivOmbNetwork::VariableId> fixed_integers_;
  std::optional<KivOmbNetwork::VariableId> fixed_truths_[2];
};

}  // namespace kiv
