#include "solver/flatzinc/search_plan.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "solver/flatzinc/annotations.h"
#include "solver/flatzinc/error.h"
#include "solver/flatzinc/search_annotations.h"
#include "solver/search/default_search.h"

namespace kiv::flatzinc {
namespace {

// Variables of a network in the order in which they are added, each once.
class VariableList {
 public:
  explicit VariableList(const KivOmbNetwork& network) : has_(network.CountVariables(), false) {}

  void Add(KivOmbNetwork::VariableId variable) {
    if (has_[variable]) return;
    has_[variable] = true;
    variables_.push_back(variable);
  }
  std::vector<KivOmbNetwork::VariableId> Take() && { return std::move(variables_); }

 private:
  std::vector<bool> has_;
  std::vector<KivOmbNetwork::VariableId> variables_;
};

// What tells solutions apart: the variables that the user declared, and whatever is printed.
VariableList ListDecisions(Builder& builder) {
  const Model& model = builder.GetModel();
  VariableList decisions(builder.GetNetwork());
  for (std::uint32_t i = 0; i < model.variables.size(); ++i) {
    const Variable& variable = model.variables[i];
    const bool is_printed = FindAnnotation(model, variable.annotations, "output_var") != nullptr;
    if (is_printed || !IsIntroduced(model, variable)) decisions.Add(builder.GetVariable(i));
  }
  for (const VariableArray& array : model.variable_arrays) {
    if (FindAnnotation(model, array.annotations, "output_array") == nullptr) continue;
    for (const Expression element : model.Get(array.elements)) {
      if (!element.Is(Expression::Kind::kVariable)) continue;
      decisions.Add(builder.GetVariable(element.GetPlace()));
    }
  }
  return decisions;
}

std::optional<Objective> FindObjective(Builder& builder) {
  const Solve& solve = builder.GetModel().solve;
  if (solve.goal == Solve::Goal::kSatisfy) return std::nullopt;
  const bool minimize = solve.goal == Solve::Goal::kMinimize;
  Objective objective;
  objective.sense = minimize ? Objective::Sense::kMinimize : Objective::Sense::kMaximize;
  switch (solve.objective.GetKind()) {
    case Expression::Kind::kVariable:
      objective.variable = builder.GetVariable(solve.objective.GetPlace());
      return objective;
    case Expression::Kind::kInt:
      objective.variable = builder.GetConstant(solve.objective.GetValue(), solve.offset);
      return objective;
    default:
      throw Error(solve.offset, "the objective is no integer");
  }
}

}  // namespace

SearchPlan PlanSearch(Builder& builder, const SearchWishes& wishes) {
  const std::optional<Objective> objective = FindObjective(builder);
  AnnotatedSearch annotated = ReadSearchAnnotations(builder);

  SearchPlan plan;
  plan.warnings = std::move(annotated.warnings);
  plan.remarks = std::move(annotated.remarks);
  VariableList decisions = ListDecisions(builder);
  plan.options = DefaultSearch(std::move(decisions).Take(), objective);
  plan.options.complete_once = true;
  const bool is_annotated = !annotated.strategy.empty();
  if (is_annotated) {
    // Even a free search profits from knowing which variables decide, and in which direction.
    if (wishes.free) {
      for (StrategyBlock& block : annotated.strategy) {
        block.variable_choice = VariableChoice::kDomWDeg;
      }
    }
    // The default block takes what the others leave of the decisions.
    std::ranges::move(plan.options.strategy, std::back_inserter(annotated.strategy));
    plan.options.strategy = std::move(annotated.strategy);
  }
  if ((is_annotated && !wishes.free) || (wishes.all && !objective)) plan.options.restarts = {};
  if (annotated.restarts && !wishes.free) plan.options.restarts = *annotated.restarts;
  // Where every solution is wanted it would only slow the search down.
  plan.options.restarts.on_solution = annotated.restarts_on_solution && objective;
  return plan;
}

}  // namespace kiv::flatzinc
