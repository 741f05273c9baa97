#include "solver/language/shape_compiler.h"

#include <cstdint>
#include <string>

#include "solver/language/declared_domain.h"
#include "solver/language/expression_compiler.h"

namespace kiv {
namespace {

std::optional<IndexRange> CompileSize(const Expression& size, ExpressionCompiler& expressions,
                                      const ExpansionLimits& limits, Diagnostics& diagnostics) {
  const auto count = expressions.CompileConstant(size, "the size of an array");
  if (count && (*count < 0 || *count > limits.array_size)) {
    diagnostics.Add(size.range, "the size " + std::to_string(*count) +
                                    " of an array is outside 0.." +
                                    std::to_string(limits.array_size));
    return std::nullopt;
  }
  return count ? std::optional(IndexRange{1, *count}) : std::nullopt;
}

std::optional<IndexRange> CompileIndices(const RangeLiteral& range, SourceRange place,
                                         ExpressionCompiler& expressions,
                                         Diagnostics& diagnostics) {
  const auto first = expressions.CompileConstant(*range.first, "an index");
  const auto last = expressions.CompileConstant(*range.last, "an index");
  if (!first || !last) return std::nullopt;
  if (!IsModelInteger(*first) || !IsModelInteger(*last)) {
    diagnostics.Add(place, "the indices of an array are outside " + DescribeModelIntegers());
    return std::nullopt;
  }
  return IndexRange{*first, *last};
}

}  // namespace

std::optional<ArrayShape> CompileShape(const Declarator& declarator,
                                       ExpressionCompiler& expressions,
                                       const ExpansionLimits& limits, Diagnostics& diagnostics) {
  if (declarator.dimensions.size() > kMostDimensions) {
    diagnostics.Add(declarator.name.range, "an array has one or two dimensions, not " +
                                               std::to_string(declarator.dimensions.size()));
    return std::nullopt;
  }
  ArrayShape shape;
  for (const ExpressionPointer& dimension : declarator.dimensions) {
    if (dimension == nullptr) {
      shape.push_back({});
      continue;
    }
    const auto* range = std::get_if<RangeLiteral>(&dimension->form);
    const auto indices = range != nullptr
                             ? CompileIndices(*range, dimension->range, expressions, diagnostics)
                             : CompileSize(*dimension, expressions, limits, diagnostics);
    if (indices) shape.push_back(*indices);
  }
  if (shape.size() != declarator.dimensions.size()) return std::nullopt;
  // The bounds of indices keep the product within 64 bits.
  if (CountElements(shape) > limits.array_size) {
    diagnostics.Add(declarator.name.range, "the array has " + std::to_string(CountElements(shape)) +
                                               " elements, more than " +
                                               std::to_string(limits.array_size));
    return std::nullopt;
  }
  return shape;
}

}  // namespace kiv
