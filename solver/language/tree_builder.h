#pragma once

#include <vector>

#include "solver/language/expression_builder.h"

namespace kiv {

// Makes the syntax tree from the nodes of a parse, and reports what the grammar admits but a model
// does not.
class TreeBuilder {
 public:
  // Both must outlive this.
  TreeBuilder(const SourceText& source, Diagnostics& diagnostics)
      : source_(source), diagnostics_(diagnostics), expressions_(source, diagnostics) {}

  SyntaxTree BuildModel(const ParseNode& root);

 private:
  SourceRange TightRangeOf(const ParseNode& node) const;
  Statement BuildStatement(const ParseNode& node);
  Parameter BuildParameter(const ParseNode& node);
  Constraint BuildConstraint(const ParseNode& node);
  Declaration BuildDeclaration(const ParseNode& node);
  void AddDeclarator(Expression expression, Declaration& declaration);
  Word BuildKind(const ParseNode& node) const;
  ExpressionPointer BuildDomain(const ParseNode& node);
  Loop BuildLoop(const ParseNode& node);
  ConditionalStatement BuildConditional(const ParseNode& node);
  std::vector<Statement> BuildBlock(const ParseNode& node);
  Goal BuildOptimum(const ParseNode& node);
  BranchStatement BuildBranch(const ParseNode& node);
  ShowStatement BuildShow(const ParseNode& node);
  // Reports a goal that is missing or not the last statement but for those that show.
  void CheckGoal(const SyntaxTree& tree);

  const SourceText& source_;
  Diagnostics& diagnostics_;
  ExpressionBuilder expressions_;
};

}  // namespace kiv
