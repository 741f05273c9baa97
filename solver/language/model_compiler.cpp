#include "solver/language/model_compiler.h"

#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "solver/constraints/all_different.h"
#include "solver/language/declaration_compiler.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/near_name.h"
#include "solver/language/operator_precedence.h"
#include "solver/language/parser.h"
#include "solver/language/scope.h"

namespace kiv {
namespace {

class ModelCompiler {
 public:
  ModelCompiler(const SourceText& source, const Vocabulary& vocabulary,
                const CompileOptions& options, Diagnostics& diagnostics)
      : options_(options),
        diagnostics_(diagnostics),
        model_(std::make_unique<CompiledModel>(source)),
        budget_(options.limits),
        expressions_(*model_, vocabulary, scope_, budget_, diagnostics),
        declarations_(*model_, vocabulary, expressions_, scope_, budget_, diagnostics) {}

  std::unique_ptr<CompiledModel> Run(const SyntaxTree& tree) {
    for (const Statement& statement : tree.statements) {
      if (diagnostics_.IsFull()) break;
      CompileStatement(statement);
    }
    for (const auto& [name, value] : options_.parameters) {
      if (!declarations_.HasParameter(name)) {
        diagnostics_.Add("the model has no parameter '" + name + '\'' +
                             SuggestNearName(name, declarations_.GetParameters()),
                         {"parameters: " + ListNames(declarations_.GetParameters())});
      }
    }
    return diagnostics_.IsEmpty() ? std::move(model_) : nullptr;
  }

 private:
  void CompileStatement(const Statement& statement) {
    if (const auto* parameter = std::get_if<Parameter>(&statement.form)) {
      declarations_.CompileParameter(*parameter, options_.parameters);
    } else if (const auto* declaration = std::get_if<Declaration>(&statement.form)) {
      declarations_.CompileDeclaration(*declaration);
    } else if (const auto* constraint = std::get_if<Constraint>(&statement.form)) {
      CompileConstraint(constraint->expression);
    } else if (const auto* loop = std::get_if<Loop>(&statement.form)) {
      CompileLoop(*loop, 0);
    }
  }

  void CompileConstraint(const Expression& expression) {
    const auto* call = std::get_if<Call>(&expression.form);
    if (call != nullptr && call->name.text == "all_different") {
      CompileAllDifferent(*call, expression.range);
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
    std::vector<KivOmbNetwork::VariableId> variables;
    bool complete = true;
    for (const Expression& argument : call.arguments) {
      if (const Scope::Array* array = FindWholeArray(argument)) {
        if (!budget_.Spend(array->size, argument.range, diagnostics_)) return;
        for (std::uint32_t i = 0; i < array->size; ++i) {
          complete &= CheckInteger({std::nullopt, array->first + i, argument.range});
          variables.push_back(array->first + i);
        }
        continue;
      }
      const std::optional<Operand> operand = expressions_.Compile(argument);
      const auto variable = operand ? expressions_.GetVariable(*operand) : std::nullopt;
      if (variable && CheckInteger(*operand)) {
        variables.push_back(*variable);
      } else {
        complete = false;
      }
    }
    if (!complete) return;
    model_->AddOrigin(model_->GetNetwork().Emplace<AllDifferent>(variables), range);
  }

  bool CheckInteger(const Operand& operand) {
    const KivOmbiObjectDescriptor& kind = expressions_.GetKind(operand);
    if (KivOmbiInteger::sDescriptor->IsMatched(&kind) != 0) return true;
    diagnostics_.Add(operand.range,
                     "'all_different' takes integers, not '" + kind.GetName() + '\'');
    return false;
  }

  // The array that an argument names as a whole, or null.
  const Scope::Array* FindWholeArray(const Expression& argument) const {
    const auto* reference = std::get_if<Reference>(&argument.form);
    if (reference == nullptr || reference->index != nullptr) return nullptr;
    const Scope::Entry* entry = scope_.Find(reference->name);
    return entry != nullptr ? std::get_if<Scope::Array>(&entry->meaning) : nullptr;
  }

  // Runs through the ranges of a loop from number `range` on, each within those before it.
  void CompileLoop(const Loop& loop, std::size_t range) {
    if (range == loop.ranges.size()) {
      for (const Statement& statement : loop.body) CompileStatement(statement);
      return;
    }
    if (open_ranges_ == kDeepestNesting) {
      diagnostics_.Add(
          loop.ranges[range].name.range,
          "loops run within each other more than " + std::to_string(kDeepestNesting) + " deep");
      return;
    }
    ++open_ranges_;
    CompileRange(loop, range);
    --open_ranges_;
  }

  // A run with an error is the last: the others would repeat it.
  void CompileRange(const Loop& loop, std::size_t range) {
    const Loop::Range& header = loop.ranges[range];
    const auto first = expressions_.CompileConstant(header.first, "the first value of a loop");
    const auto last = expressions_.CompileConstant(header.last, "the last value of a loop");
    if (!first || !last) return;
    const std::size_t errors = diagnostics_.Count();
    for (std::int64_t value = *first; value <= *last; ++value) {
      if (!budget_.Spend(1, header.name.range, diagnostics_)) return;
      if (!declarations_.Declare(header.name, Scope::Constant{value})) return;
      CompileLoop(loop, range + 1);
      scope_.Remove(header.name.text);
      // The test against `last` comes before the increment that could overflow.
      if (diagnostics_.Count() > errors || value == *last) return;
    }
  }

  const CompileOptions& options_;
  Diagnostics& diagnostics_;
  std::unique_ptr<CompiledModel> model_;
  Scope scope_;
  std::size_t open_ranges_ = 0;
  ExpansionBudget budget_;
  ExpressionCompiler expressions_;
  DeclarationCompiler declarations_;
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
