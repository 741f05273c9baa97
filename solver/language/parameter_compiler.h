#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/parameter_value.h"
#include "solver/language/scope.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// Gives parameters their values, those of the model or others in their place.
class KIV_EXPORT ParameterCompiler {
 public:
  // All of them must outlive this.
  ParameterCompiler(const std::map<std::string, ParameterValue>& given,
                    ExpressionCompiler& expressions, Scope& scope, ExpansionBudget& budget,
                    Diagnostics& diagnostics)
      : given_(given),
        expressions_(expressions),
        scope_(scope),
        budget_(budget),
        diagnostics_(diagnostics) {}

  void Compile(const Parameter& parameter);
  // Reports given values that were for none of the parameters.
  void ReportUnused();

 private:
  // What the parameter stands for; Broken, reported, when its value is none for it.
  Scope::Meaning CompileMeaning(const Parameter& parameter);
  // The value of an expression in the form of a given one.
  std::optional<ParameterValue> CompileValue(const Expression& expression);
  std::optional<ParameterValue> CompileList(const Comprehension& comprehension);
  Scope::Meaning CompileSet(const Expression& expression);

  const std::map<std::string, ParameterValue>& given_;
  ExpressionCompiler& expressions_;
  Scope& scope_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
  std::vector<std::string> names_;
};

}  // namespace kiv
