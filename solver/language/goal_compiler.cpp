#include "solver/language/goal_compiler.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "solver/language/list_compiler.h"
#include "solver/language/near_name.h"
#include "solver/search/strategy_names.h"

namespace kiv {
namespace {

// Reports a word that names no choice of a strategy.
void ReportChoice(const Word& name, const std::string& what, const std::vector<std::string>& names,
                  Diagnostics& diagnostics) {
  diagnostics.Add(
      name.range,
      "unknown choice of " + what + " '" + name.text + '\'' + SuggestNearName(name.text, names),
      {"choices of " + what + ": " + ListNames(names)});
}

}  // namespace

void GoalCompiler::CompileGoal(const Goal& goal) {
  CompiledModel::Goal compiled{goal.kind};
  if (goal.objective != nullptr) {
    const std::optional<Operand> objective = expressions_.Compile(*goal.objective);
    const auto variable =
        objective ? expressions_.GetBuilder().GetVariable(*objective) : std::nullopt;
    if (!variable) return;
    const KivOmbiObjectDescriptor& kind = expressions_.GetBuilder().GetKind(*objective);
    if (KivOmbiInteger::sDescriptor->IsMatched(&kind) == 0) {
      diagnostics_.Add(goal.objective->range,
                       "an integer can be as small or as great as possible, "
                       "not a '" +
                           kind.GetName() + '\'');
      return;
    }
    compiled.objective = *variable;
  }
  model_.SetGoal(compiled);
}

void GoalCompiler::CompileBranch(const BranchStatement& branch) {
  StrategyBlock block;
  const auto operands = CompileList(branch.variables, expressions_);
  const auto variable_choice = FindVariableChoice(branch.variable_choice.text);
  if (!variable_choice) {
    ReportChoice(branch.variable_choice, "variables", GetVariableChoiceNames(), diagnostics_);
  }
  const bool has_value_choice = !branch.value_choice.text.empty();
  const auto value_choice =
      has_value_choice ? FindValueChoice(branch.value_choice.text) : ValueChoice::kSmallest;
  if (!value_choice) {
    ReportChoice(branch.value_choice, "values", GetValueChoiceNames(), diagnostics_);
  }
  if (!operands || !variable_choice || !value_choice) return;
  for (const Operand& operand : *operands) {
    if (operand.constant) {
      diagnostics_.Add(operand.range, "'branch' takes variables, not constants");
      return;
    }
    const auto variable = expressions_.GetBuilder().GetVariable(operand);
    if (!variable) return;
    block.variables.push_back(*variable);
  }
  block.variable_choice = *variable_choice;
  block.value_choice = *value_choice;
  model_.AddStrategy(std::move(block));
}

void GoalCompiler::CompileShow(const ShowStatement& show) {
  for (const auto& item : show.items) {
    if (const auto* literal = std::get_if<TextLiteral>(&item)) {
      model_.AddShown({{}, {{KivOmbNetwork::kNone, literal->text}}});
    } else if (auto shown = CompileItem(std::get<Expression>(item))) {
      model_.AddShown(*std::move(shown));
    }
  }
}

std::optional<ShownItem> GoalCompiler::CompileItem(const Expression& expression) {
  ShownItem item;
  std::vector<Operand> operands;
  const auto* reference = std::get_if<Reference>(&expression.form);
  const auto* comprehension = std::get_if<Comprehension>(&expression.form);
  if (reference != nullptr && expressions_.GetReferences().IsArray(*reference)) {
    auto view = expressions_.GetReferences().CompileArray(*reference, expression.range);
    if (!view) return std::nullopt;
    item.shape = std::move(view->shape);
    operands = std::move(view->elements);
  } else if (std::holds_alternative<ListLiteral>(expression.form) ||
             (comprehension != nullptr && !comprehension->is_set)) {
    auto list = CompileList(expression, expressions_);
    if (!list) return std::nullopt;
    operands = *std::move(list);
    item.shape = {{1, static_cast<std::int64_t>(operands.size())}};
  } else {
    const auto operand = expressions_.Compile(expression);
    if (!operand) return std::nullopt;
    operands.push_back(*operand);
  }
  for (const Operand& operand : operands) {
    auto value = MakeValue(operand);
    if (!value) return std::nullopt;
    item.values.push_back(*std::move(value));
  }
  return item;
}

std::optional<ShownItem::Value> GoalCompiler::MakeValue(const Operand& operand) {
  if (operand.constant) {
    return ShownItem::Value{KivOmbNetwork::kNone, std::to_string(*operand.constant)};
  }
  const auto variable = expressions_.GetBuilder().GetVariable(operand);
  return variable ? std::optional(ShownItem::Value{*variable, {}}) : std::nullopt;
}

}  // namespace kiv
