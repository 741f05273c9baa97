#pragma once

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Posts what stands as a statement of its own: relations, truth values that must be true, and calls
// that constrain many variables. Errors are reported.
class KIV_EXPORT ConstraintCompiler {
 public:
  // Both must outlive this.
  ConstraintCompiler(ExpressionCompiler& expressions, Diagnostics& diagnostics)
      : expressions_(expressions), diagnostics_(diagnostics) {}

  void Compile(const Constraint& constraint);

 private:
  // Recursive, as deep as the expression is nested.
  void Assert(const Expression& expression, const std::vector<Word>& annotations);
  void RefuseAnnotations(const std::vector<Word>& annotations);

  ExpressionCompiler& expressions_;
  Diagnostics& diagnostics_;
};

}  // namespace kiv
