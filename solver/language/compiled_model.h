#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"
#include "solver/language/array_shape.h"
#include "solver/language/goal_kind.h"
#include "solver/language/shown_item.h"
#include "solver/language/source_text.h"
#include "solver/search/strategy.h"

namespace kiv {

// A model turned into a network: the variables that it declares, what it asks for and how it wants
// to be searched and shown, and where each constraint comes from.
class KIV_EXPORT CompiledModel {
 public:
  // One declared name: a variable, or an array of `count` variables that are numbered from `first`
  // on, row by row.
  struct Variable {
    std::string name;
    ArrayShape shape;  // none for a single variable
    KivOmbNetwork::VariableId first;
    std::uint32_t count;
  };

  struct Goal {
    GoalKind kind = GoalKind::kSatisfy;
    // The integer to minimize or maximize, if any.
    KivOmbNetwork::VariableId objective = KivOmbNetwork::kNone;
  };

  // `source` must outlive this.
  explicit CompiledModel(const SourceText& source) : source_(source) {}

  KivOmbNetwork& GetNetwork() noexcept { return network_; }
  const KivOmbNetwork& GetNetwork() const noexcept { return network_; }
  // In order of declaration; other variables of the network are values of expressions.
  const std::vector<Variable>& GetVariables() const noexcept { return variables_; }
  const Goal& GetGoal() const noexcept { return goal_; }
  // What the model says of the search, in order; nothing when it leaves it to the solver.
  const Strategy& GetStrategy() const noexcept { return strategy_; }
  const SourceText& GetSource() const noexcept { return source_; }
  // The network's variables that were declared, in order.
  std::vector<KivOmbNetwork::VariableId> GetDeclared() const;
  // How the model calls a declared variable of the network: "x" or "q[3]"; empty for any other.
  std::string NameOf(KivOmbNetwork::VariableId variable) const;

  // The expression that a constraint comes from.
  SourceRange GetOrigin(KivOmbNetwork::ConstraintId constraint) const {
    return origins_.at(constraint);
  }
  // The same in words, with its place: "file:line:column: x < y".
  std::string Describe(KivOmbNetwork::ConstraintId constraint) const;

  // What the network holds now: a line "name = domain" or "name = [domain, domain]" for each
  // declared name, in the text form of the domains; an array of two dimensions as a list of rows,
  // each on a line of its own.
  void PrintOn(std::ostream& out) const;
  // What the model shows of a solution, ended with its line, or the same as PrintOn when it leaves
  // that to the solver.
  void PrintSolutionOn(std::ostream& out) const;

  // For the compiler.
  void AddVariable(Variable variable) { variables_.push_back(std::move(variable)); }
  void SetGoal(Goal goal) { goal_ = goal; }
  void AddStrategy(StrategyBlock block) { strategy_.push_back(std::move(block)); }
  void AddShown(ShownItem item) { shown_.push_back(std::move(item)); }
  // Notes where the constraint that was just added to the network comes from.
  void AddOrigin(KivOmbNetwork::ConstraintId constraint, SourceRange origin);

 private:
  std::string TextOf(KivOmbNetwork::VariableId variable) const;

  const SourceText& source_;
  KivOmbNetwork network_;
  std::vector<Variable> variables_;
  Goal goal_;
  Strategy strategy_;
  std::vector<ShownItem> shown_;
  std::vector<SourceRange> origins_;  // by constraint
};

}  // namespace kiv
