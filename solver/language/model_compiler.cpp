#include "solver/language/model_compiler.h"

#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "solver/constraints/all_different.h"
#include "solver/language/declaration_compiler.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/goal_compiler.h"
#include "solver/language/list_compiler.h"
#include "solver/language/operator_precedence.h"
#include "solver/language/parameter_compiler.h"
#include "solver/language/parser.h"
#include "solver/language/scope.h"

namespace kiv {
namespace {

class ModelCompiler {
 public:
  ModelCompiler(const SourceText& source, const Vocabulary& vocabulary,
                const CompileOptions& options, Diagnostics& diagnostics)
      : diagnostics_(diagnostics),
        model_(std::make_unique<CompiledModel>(source)),
        budget_(options.limits),
        expressions_(*model_, vocabulary, scope_, budget_, diagnostics),
        parameters_(options.parameters, expressions_, scope_, budget_, diagnostics),
        declarations_(*model_, vocabulary, expressions_, scope_, budget_, diagnostics),
        goals_(*model_, expressions_, diagnostics) {}

  std::unique_ptr<CompiledModel> Run(const SyntaxTree& tree) {
    for (const Statement& statement : tree.statements) {
      if (diagnostics_.IsFull()) break;
      CompileStatement(statement);
    }
    parameters_.ReportUnused();
    return diagnostics_.IsEmpty() ? std::move(model_) : nullptr;
  }

 private:
  void CompileStatement(const Statement& statement) {
    if (const auto* parameter = std::get_if<Parameter>(&statement.form)) {
      parameters_.Compile(*parameter);
    } else if (const auto* declaration = std::get_if<Declaration>(&statement.form)) {
      declarations_.CompileDeclaration(*declaration);
    } else if (const auto* constraint = std::get_if<Constraint>(&statement.form)) {
      CompileConstraint(*constraint);
    } else if (const auto* loop = std::get_if<Loop>(&statement.form)) {
      expressions_.GetGenerators().ForEach(loop->generators, [&] { CompileAll(loop->body); });
    } else if (const auto* conditional = std::get_if<ConditionalStatement>(&statement.form)) {
      const auto condition = expressions_.CompileCondition(conditional->condition);
      if (condition) CompileAll(*condition ? conditional->first : conditional->second);
    } else if (const auto* branch = std::get_if<BranchStatement>(&statement.form)) {
      goals_.CompileBranch(*branch);
    } else if (const auto* show = std::get_if<ShowStatement>(&statement.form)) {
      goals_.CompileShow(*show);
    } else {
      goals_.CompileGoal(std::get<Goal>(statement.form));
    }
  }

  void CompileAll(const std::vector<Statement>& statements) {
    for (const Statement& statement : statements) CompileStatement(statement);
  }

  void CompileConstraint(const Constraint& constraint) {
    for (const Word& annotation : constraint.annotations) {
      diagnostics_.Add(annotation.range, "unknown annotation '" + annotation.text + '\'');
    }
    Assert(constraint.expression);
  }

  void Assert(const Expression& expression) {
    const auto* call = std::get_if<Call>(&expression.form);
    if (call != nullptr && call->name.text == "all_different") {
      CompileAllDifferent(*call, expression.range);
      return;
    }
    const auto* aggregate = std::get_if<Aggregate>(&expression.form);
    if (aggregate != nullptr && aggregate->name.text == "forall") {
      expressions_.GetGenerators().ForEach(aggregate->generators,
                                           [&] { Assert(*aggregate->body); });
      return;
    }
    if (const auto* conditional = std::get_if<ConditionalExpression>(&expression.form)) {
      const auto condition = expressions_.CompileCondition(*conditional->condition);
      if (condition) Assert(*condition ? *conditional->first : *conditional->second);
      return;
    }
    const std::optional<Operand> value = expressions_.Compile(expression);
    if (!value || FindOutermost(Precedence::kRelation, expression) != nullptr) return;
    if (const Word* question = FindOutermost(Precedence::kBooleanRelation, expression)) {
      diagnostics_.Add(question->range, "this asserts nothing: '" + question->text +
                                            "' only has a truth value; did you mean '" +
                                            std::string(GetCounterpart(question->text)) + "'?");
    } else if (expressions_.IsTruth(*value)) {
      expressions_.AssertTruth(*value);
    } else {
      diagnostics_.Add(expression.range,
                       "this asserts nothing; a constraint is a relation such as 'x = y', a truth "
                       "value such as 't or x == y', or 'all_different(...)'");
    }
  }

  void CompileAllDifferent(const Call& call, SourceRange range) {
    if (!budget_.Spend(call.arguments.size() + 1, range, diagnostics_)) return;
    const auto operands = CompileList(call.arguments, expressions_);
    if (!operands) return;
    std::vector<KivOmbNetwork::VariableId> variables;
    for (const Operand& operand : *operands) {
      const auto variable = expressions_.GetVariable(operand);
      if (variable && CheckInteger(operand)) variables.push_back(*variable);
    }
    if (variables.size() != operands->size()) return;
    model_->AddOrigin(model_->GetNetwork().Emplace<AllDifferent>(variables), range);
  }

  bool CheckInteger(const Operand& operand) {
    const KivOmbiObjectDescriptor& kind = expressions_.GetKind(operand);
    if (KivOmbiInteger::sDescriptor->IsMatched(&kind) != 0) return true;
    diagnostics_.Add(operand.range,
                     "'all_different' takes integers, not '" + kind.GetName() + '\'');
    return false;
  }

  Diagnostics& diagnostics_;
  std::unique_ptr<CompiledModel> model_;
  Scope scope_;
  ExpansionBudget budget_;
  ExpressionCompiler expressions_;
  ParameterCompiler parameters_;
  DeclarationCompiler declarations_;
  GoalCompiler goals_;
};

}  // namespace

std::unique_ptr<CompiledModel> CompileModel(const SyntaxTree& tree, const SourceText& source,
                                            const Vocabulary& vocabulary,
                                            const CompileOptions& options,
                                            Diagnostics& diagnostics) {
  if (vocabulary.FindKind("int") == nullptr) {
    diagnostics.Add("no module that is loaded has the kind 'int', which constants need");
    return nullptr;
  }
  return ModelCompiler(source, vocabulary, options, diagnostics).Run(tree);
}

std::unique_ptr<CompiledModel> ReadModel(const SourceText& source, const Vocabulary& vocabulary,
                                         const CompileOptions& options, Diagnostics& diagnostics) {
  const std::optional<SyntaxTree> tree = ParseModel(source, diagnostics);
  if (!tree) return nullptr;
  return CompileModel(*tree, source, vocabulary, options, diagnostics);
}

}  // namespace kiv
