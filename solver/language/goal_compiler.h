#pragma once

#include "framework/base/export.h"
#include "solver/language/compiled_model.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Turns the statements about solutions, which constrain nothing, into properties of a model: what
// is asked for, how to search and what to show. Errors are reported.
class KIV_EXPORT GoalCompiler {
 public:
  // All of them must outlive this.
  GoalCompiler(CompiledModel& model, ExpressionCompiler& expressions, Diagnostics& diagnostics)
      : model_(model), expressions_(expressions), diagnostics_(diagnostics) {}

  void CompileGoal(const Goal& goal);
  void CompileBranch(const BranchStatement& branch);
  void CompileShow(const ShowStatement& show);

 private:
  std::optional<ShownItem> CompileItem(const Expression& expression);
  std::optional<ShownItem::Value> MakeValue(const Operand& operand);

  CompiledModel& model_;
  ExpressionCompiler& expressions_;
  Diagnostics& diagnostics_;
};

}  // namespace kiv
