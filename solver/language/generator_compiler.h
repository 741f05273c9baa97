#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/integer_set.h"
#include "solver/language/scope.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class ExpressionCompiler;

// Computes constant sets, and runs through the combinations of generators with their variables in
// the scope.
//
// Every operation that returns nothing has reported why.
class KIV_EXPORT GeneratorCompiler {
 public:
  // All of them must outlive this.
  GeneratorCompiler(ExpressionCompiler& expressions, Scope& scope, ExpansionBudget& budget,
                    Diagnostics& diagnostics)
      : expressions_(expressions), scope_(scope), budget_(budget), diagnostics_(diagnostics) {}

  // The values of a range, a set, a set with generators or a parameter with several values. Any
  // other expression is the set of its value when `admits_value`; else it is refused.
  std::optional<IntegerSet> CompileSet(const Expression& expression, bool admits_value = false);

  // Calls `run` for each combination of the generators' values that meets their conditions, later
  // ones within those before. The first error ends it, as the other runs would repeat it; false
  // then. A parameter that is an array is run through in its own order.
  bool ForEach(std::span<const Generator> generators, const std::function<void()>& run);

 private:
  bool RunThrough(const Generator& generator, std::span<const Generator> rest,
                  const std::function<void()>& run);
  bool RunWith(std::int64_t value, const Generator& generator, std::span<const Generator> rest,
               const std::function<void()>& run);
  // The parameter that an expression names as a whole; null when it names none.
  const Scope::ConstantArray* FindArray(const Expression& expression) const;
  std::optional<IntegerSet> CompileRange(const RangeLiteral& range);
  std::optional<IntegerSet> CompileElements(const std::vector<Expression>& elements);
  std::optional<IntegerSet> CompileComprehension(const Comprehension& comprehension);
  std::optional<IntegerSet> CompileName(const Reference& reference, SourceRange range);

  ExpressionCompiler& expressions_;
  Scope& scope_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
  std::size_t open_generators_ = 0;
};

}  // namespace kiv
