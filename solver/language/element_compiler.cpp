#include "solver/language/element_compiler.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "solver/constraints/element_of_constants.h"
#include "solver/constraints/element_of_variables.h"
#include "solver/language/declared_domain.h"

namespace kiv {
namespace {

// A variable that is the index, and the index that the array then begins with.
struct Index {
  KivOmbNetwork::VariableId variable;
  std::int64_t first;
};

// An index x + c of an array from 1 is the index x of an array from 1 - c.
std::optional<Index> CompileIndex(const Operand& index, const IndexRange& indices,
                                  NetworkBuilder& builder) {
  if (const auto shifted = FindShift(index)) {
    std::int64_t first = 0;
    std::int64_t last = 0;
    if (!__builtin_sub_overflow(indices.first, shifted->constant, &first) &&
        !__builtin_sub_overflow(indices.last, shifted->constant, &last) && IsModelInteger(first) &&
        IsModelInteger(last)) {
      return Index{shifted->variable, first};
    }
  }
  const auto variable = builder.GetVariable(index);
  return variable ? std::optional(Index{*variable, indices.first}) : std::nullopt;
}

// The number of the element, row by row from 0.
std::optional<Index> CompilePosition(const ArrayShape& shape, const std::vector<Operand>& indices,
                                     SourceRange range, NetworkBuilder& builder) {
  LinearExpression position;
  bool fits = true;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    LinearExpression index = NetworkBuilder::ToSum(indices[i]);
    const bool in_range = builder.PostSum(index, LinearRelation::kGreaterOrEqual,
                                          LinearExpression(shape[i].first), indices[i].range) &&
                          builder.PostSum(index, LinearRelation::kLessOrEqual,
                                          LinearExpression(shape[i].last), indices[i].range);
    if (!in_range) return std::nullopt;
    fits = fits && position.Scale(static_cast<std::int64_t>(shape[i].Count())) &&
           position.Add(index) && position.Subtract(LinearExpression(shape[i].first));
  }
  if (!fits) {
    builder.GetDiagnostics().Add(range, "a coefficient of these indices does not fit 64 bits");
    return std::nullopt;
  }
  const auto last = static_cast<std::int32_t>(CountElements(shape) - 1);
  const auto number = builder.AddInteger(DeclaredDomain::FromInterval(0, last), range);
  if (!number || !builder.PostSum(position, LinearRelation::kEqual,
                                  LinearExpression(LinearTerm{1, *number}), range)) {
    return std::nullopt;
  }
  return Index{*number, 0};
}

std::optional<Operand> PostElementOfConstants(const std::vector<Operand>& elements,
                                              const Index& index, SourceRange range,
                                              NetworkBuilder& builder) {
  std::vector<std::int32_t> values;
  for (const Operand& element : elements) {
    if (!IsModelInteger(*element.constant)) {
      builder.GetDiagnostics().Add(range, "the element " + std::to_string(*element.constant) +
                                              " is outside " + DescribeModelIntegers());
      return std::nullopt;
    }
    values.push_back(static_cast<std::int32_t>(*element.constant));
  }
  const auto value = builder.AddInteger(DeclaredDomain::FromValues(values), range);
  if (!value || !builder.Post<ElementOfConstants>(std::array{index.variable, *value}, range,
                                                  std::move(values),
                                                  static_cast<std::int32_t>(index.first))) {
    return std::nullopt;
  }
  return Operand{std::nullopt, *value, range};
}

// The elements of an array have one kind, and so has the value.
std::optional<Operand> PostElementOfVariables(const std::vector<Operand>& elements,
                                              const Index& index, SourceRange range,
                                              NetworkBuilder& builder) {
  ValueWidth width{kEmptyHull, 0};
  for (const Operand& element : elements) {
    const ValueWidth next = builder.GetWidths().Of(element);
    width = {Union(width.hull, next.hull),
             std::min(width.count + next.count, ValueWidth::kMostCounted)};
  }
  const auto value = builder.AddResult(builder.GetKind(elements.front()), width, range);
  auto arguments = builder.GetVariables(elements);
  if (!value || !arguments) return std::nullopt;
  arguments->insert(arguments->begin(), {index.variable, *value});
  if (!builder.Post<ElementOfVariables>(*arguments, range,
                                        static_cast<std::int32_t>(index.first))) {
    return std::nullopt;
  }
  return Operand{std::nullopt, *value, range};
}

}  // namespace

std::optional<Operand> CompileElement(const ArrayView& view, const std::vector<Operand>& indices,
                                      SourceRange range, NetworkBuilder& builder) {
  Diagnostics& diagnostics = builder.GetDiagnostics();
  for (const Operand& index : indices) {
    if (builder.IsInteger(index)) continue;
    diagnostics.Add(index.range,
                    "an index is an integer, not '" + builder.GetKind(index).GetName() + '\'');
    return std::nullopt;
  }
  if (view.elements.empty()) {
    diagnostics.Add(range, "an array without elements has no element at any index");
    return std::nullopt;
  }
  if (!builder.IsInteger(view.elements.front())) {
    diagnostics.Add(range,
                    "an index of truth values must be made of numbers, parameters and loop "
                    "variables");
    return std::nullopt;
  }
  const auto index = indices.size() == 1
                         ? CompileIndex(indices.front(), view.shape.front(), builder)
                         : CompilePosition(view.shape, indices, range, builder);
  if (!index) return std::nullopt;
  return view.elements.front().constant
             ? PostElementOfConstants(view.elements, *index, range, builder)
             : PostElementOfVariables(view.elements, *index, range, builder);
}

}  // namespace kiv
