#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/array_shape.h"
#include "solver/language/diagnostics.h"
#include "solver/language/expansion_budget.h"
#include "solver/language/operand.h"
#include "solver/language/scope.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class ExpressionCompiler;

// The elements of an array, or of a row or column of it, row by row.
struct ArrayView {
  ArrayShape shape;
  std::vector<Operand> elements;
};

// Finds what names with their indices stand for.
//
// Every operation that returns nothing has reported why.
class KIV_EXPORT ReferenceCompiler {
 public:
  // All of them must outlive this.
  ReferenceCompiler(ExpressionCompiler& expressions, const Scope& scope, ExpansionBudget& budget,
                    Diagnostics& diagnostics)
      : expressions_(expressions), scope_(scope), budget_(budget), diagnostics_(diagnostics) {}

  // What the name stands for. Nothing, without a report, when its declaration was reported.
  const Scope::Entry* Resolve(const Reference& reference, SourceRange range);
  // Whether the reference is to several values: a whole array, a row or a column.
  bool IsArray(const Reference& reference) const;

  // A single value: a constant, a variable or an element.
  std::optional<Operand> CompileValue(const Reference& reference, SourceRange range);
  // A reference that IsArray.
  std::optional<ArrayView> CompileArray(const Reference& reference, SourceRange range);
  // `size(a)` elements of an array or a set, `size(a, 2)` columns of an array: a constant.
  std::optional<std::int64_t> CompileSize(const Call& call);

 private:
  // By dimension; nothing for all indices.
  using FixedIndices = std::vector<std::optional<std::int64_t>>;

  const ArrayShape* FindShape(const Reference& reference) const;
  bool CheckDimensions(const Reference& reference, const ArrayShape& shape, SourceRange range);
  // The element at the indices, which may be known only in a solution.
  std::optional<Operand> CompileElementOf(const Reference& reference, const Scope::Meaning& array,
                                          const ArrayShape& shape, SourceRange range);
  // The elements with the fixed indices.
  std::optional<ArrayView> TakeView(const Scope::Meaning& array, const ArrayShape& shape,
                                    const FixedIndices& fixed, SourceRange range);
  // A constant index.
  std::optional<std::int64_t> CompileIndex(const Reference& reference, const Expression& index,
                                           const IndexRange& indices);
  // Reports an index outside its dimension.
  bool CheckIndex(const Reference& reference, const Expression& index, std::int64_t value,
                  const IndexRange& indices);
  // The element of that number.
  std::optional<Operand> GetElement(const Scope::Meaning& array, std::uint32_t offset,
                                    SourceRange range);

  ExpressionCompiler& expressions_;
  const Scope& scope_;
  ExpansionBudget& budget_;
  Diagnostics& diagnostics_;
};

}  // namespace kiv
