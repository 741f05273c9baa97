#include "solver/language/model_compiler.h"

#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "solver/language/constraint_compiler.h"
#include "solver/language/declaration_compiler.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/goal_compiler.h"
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
        constraints_(expressions_, diagnostics),
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
      constraints_.Compile(*constraint);
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

  Diagnostics& diagnostics_;
  std::unique_ptr<CompiledModel> model_;
  Scope scope_;
  ExpansionBudget budget_;
  ExpressionCompiler expressions_;
  ParameterCompiler parameters_;
  DeclarationCompiler declarations_;
  ConstraintCompiler constraints_;
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
