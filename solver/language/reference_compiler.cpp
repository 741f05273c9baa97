#include "solver/language/reference_compiler.h"

#include <string>
#include <utility>

#include "solver/language/element_compiler.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/near_name.h"

namespace kiv {

const Scope::Entry* ReferenceCompiler::Resolve(const Reference& reference, SourceRange range) {
  const Scope::Entry* entry = scope_.Find(reference.name);
  if (entry == nullptr) {
    std::vector<std::string> names = scope_.GetNames();
    names.insert(names.end(), {"solve", "minimize", "maximize", "param", "for", "if", "branch",
                               "show", "true", "false"});
    diagnostics_.Add(
        range, "unknown name '" + reference.name + '\'' + SuggestNearName(reference.name, names));
    return nullptr;
  }
  return std::holds_alternative<Scope::Broken>(entry->meaning) ? nullptr : entry;
}

const ArrayShape* ReferenceCompiler::FindShape(const Reference& reference) const {
  const Scope::Entry* entry = scope_.Find(reference.name);
  if (entry == nullptr) return nullptr;
  if (const auto* array = std::get_if<Scope::Array>(&entry->meaning)) return &array->shape;
  const auto* constants = std::get_if<Scope::ConstantArray>(&entry->meaning);
  return constants != nullptr ? &constants->shape : nullptr;
}

bool ReferenceCompiler::IsArray(const Reference& reference) const {
  if (FindShape(reference) == nullptr) return false;
  if (reference.indices.empty()) return true;
  for (const ExpressionPointer& index : reference.indices) {
    if (index == nullptr) return true;
  }
  return false;
}

std::optional<Operand> ReferenceCompiler::CompileValue(const Reference& reference,
                                                       SourceRange range) {
  const Scope::Entry* entry = Resolve(reference, range);
  if (entry == nullptr) return std::nullopt;
  if (const ArrayShape* shape = FindShape(reference)) {
    if (reference.indices.empty()) {
      diagnostics_.Add(range, '\'' + reference.name + "' is an array with indices " +
                                  DescribeShape(*shape) + "; write '" + reference.name +
                                  (shape->size() == 1 ? "[...]'" : "[..., ...]'"));
      return std::nullopt;
    }
    if (IsArray(reference)) {
      diagnostics_.Add(range, "a row or column of '" + reference.name +
                                  "' stands only where a list can: as an argument of a call");
      return std::nullopt;
    }
    return CompileElementOf(reference, entry->meaning, *shape, range);
  }
  if (!reference.indices.empty()) {
    diagnostics_.Add(range, '\'' + reference.name + "' is no array");
    return std::nullopt;
  }
  if (std::holds_alternative<Scope::Set>(entry->meaning)) {
    diagnostics_.Add(range, '\'' + reference.name +
                                "' is a set; it stands behind 'in' or as the domain of a variable");
    return std::nullopt;
  }
  if (const auto* constant = std::get_if<Scope::Constant>(&entry->meaning)) {
    return Operand{constant->value, KivOmbNetwork::kNone, range};
  }
  if (const auto* truth = std::get_if<Scope::Truth>(&entry->meaning)) {
    return expressions_.GetBuilder().GetTruth(truth->value, range);
  }
  return Operand{std::nullopt, std::get<Scope::Scalar>(entry->meaning).variable, range};
}

std::optional<ArrayView> ReferenceCompiler::CompileArray(const Reference& reference,
                                                         SourceRange range) {
  const Scope::Entry* entry = Resolve(reference, range);
  if (entry == nullptr) return std::nullopt;
  const ArrayShape& shape = *FindShape(reference);
  if (!reference.indices.empty() && !CheckDimensions(reference, shape, range)) return std::nullopt;

  FixedIndices fixed(shape.size());
  for (std::size_t i = 0; i < reference.indices.size(); ++i) {
    if (reference.indices[i] == nullptr) continue;
    fixed[i] = CompileIndex(reference, *reference.indices[i], shape[i]);
    if (!fixed[i]) return std::nullopt;
  }
  return TakeView(entry->meaning, shape, fixed, range);
}

std::optional<ArrayView> ReferenceCompiler::TakeView(const Scope::Meaning& array,
                                                     const ArrayShape& shape,
                                                     const FixedIndices& fixed, SourceRange range) {
  // The first element and the distance to the next one of each dimension that is not fixed.
  ArrayView view;
  std::vector<std::uint64_t> steps;
  std::uint64_t first = 0;
  std::uint64_t step = CountElements(shape);
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (shape[i].Count() > 0) step /= shape[i].Count();
    if (!fixed[i]) {
      view.shape.push_back(shape[i]);
      steps.push_back(step);
      continue;
    }
    first += static_cast<std::uint64_t>(*fixed[i] - shape[i].first) * step;
  }

  const std::uint64_t count = CountElements(view.shape);
  if (count > 1 && !budget_.Spend(count, range, diagnostics_)) return std::nullopt;
  view.elements.reserve(count);
  for (std::uint64_t i = 0; i < count; ++i) {
    // The last dimension counts fastest.
    std::uint64_t offset = first;
    std::uint64_t rest = i;
    for (std::size_t dimension = view.shape.size(); dimension-- > 0;) {
      const std::uint64_t size = view.shape[dimension].Count();
      offset += rest % size * steps[dimension];
      rest /= size;
    }
    const auto element = GetElement(array, static_cast<std::uint32_t>(offset), range);
    if (!element) return std::nullopt;
    view.elements.push_back(*element);
  }
  return view;
}

std::optional<std::int64_t> ReferenceCompiler::CompileSize(const Call& call) {
  const auto* reference =
      call.arguments.empty() ? nullptr : std::get_if<Reference>(&call.arguments.front().form);
  const Scope::Entry* entry = nullptr;
  if (reference != nullptr && reference->indices.empty() && call.arguments.size() <= 2) {
    entry = Resolve(*reference, call.arguments.front().range);
    if (entry == nullptr) return std::nullopt;
  }
  const auto* set = entry != nullptr ? std::get_if<Scope::Set>(&entry->meaning) : nullptr;
  if (set != nullptr && call.arguments.size() == 1) {
    return static_cast<std::int64_t>(set->values->Count());
  }
  const ArrayShape* shape = entry != nullptr ? FindShape(*reference) : nullptr;
  if (shape == nullptr) {
    diagnostics_.Add(call.name.range,
                     "'size' takes the name of an array or a set, and for an array the number of "
                     "one of its indices");
    return std::nullopt;
  }
  if (call.arguments.size() == 1) return static_cast<std::int64_t>(CountElements(*shape));
  const Expression& number = call.arguments.back();
  const auto dimension = expressions_.CompileConstant(number, "the number of an index");
  if (!dimension) return std::nullopt;
  const IndexRange dimensions{1, static_cast<std::int64_t>(shape->size())};
  if (!dimensions.Contains(*dimension)) {
    diagnostics_.Add(number.range,
                     '\'' + reference->name + "' has the indices number " + dimensions.Describe());
    return std::nullopt;
  }
  return static_cast<std::int64_t>((*shape)[static_cast<std::size_t>(*dimension - 1)].Count());
}

bool ReferenceCompiler::CheckDimensions(const Reference& reference, const ArrayShape& shape,
                                        SourceRange range) {
  if (reference.indices.size() == shape.size()) return true;
  diagnostics_.Add(range, '\'' + reference.name + "' has " + std::to_string(shape.size()) +
                              (shape.size() == 1 ? " index, " : " indices, ") +
                              DescribeShape(shape) + ", not " +
                              std::to_string(reference.indices.size()));
  return false;
}

std::optional<Operand> ReferenceCompiler::CompileElementOf(const Reference& reference,
                                                           const Scope::Meaning& array,
                                                           const ArrayShape& shape,
                                                           SourceRange range) {
  if (!CheckDimensions(reference, shape, range)) return std::nullopt;
  FixedIndices fixed(shape.size());
  std::vector<Operand> open;
  bool complete = true;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    auto index = expressions_.Compile(*reference.indices[i]);
    complete &= index.has_value();
    if (!index) continue;
    if (index->constant) {
      fixed[i] = index->constant;
      complete &= CheckIndex(reference, *reference.indices[i], *index->constant, shape[i]);
    } else {
      open.push_back(*std::move(index));
    }
  }
  if (!complete) return std::nullopt;
  const auto view = TakeView(array, shape, fixed, range);
  if (!view) return std::nullopt;
  return open.empty() ? view->elements.front()
                      : CompileElement(*view, open, range, expressions_.GetBuilder());
}

bool ReferenceCompiler::CheckIndex(const Reference& reference, const Expression& index,
                                   std::int64_t value, const IndexRange& indices) {
  if (indices.Contains(value)) return true;
  diagnostics_.Add(index.range, "the index " + std::to_string(value) + " of '" + reference.name +
                                    "' is outside " + indices.Describe());
  return false;
}

std::optional<std::int64_t> ReferenceCompiler::CompileIndex(const Reference& reference,
                                                            const Expression& index,
                                                            const IndexRange& indices) {
  const auto value = expressions_.CompileConstant(index, "an index");
  if (value && !CheckIndex(reference, index, *value, indices)) return std::nullopt;
  return value;
}

std::optional<Operand> ReferenceCompiler::GetElement(const Scope::Meaning& array,
                                                     std::uint32_t offset, SourceRange range) {
  if (const auto* variables = std::get_if<Scope::Array>(&array)) {
    return Operand{std::nullopt, variables->first + offset, range};
  }
  const auto& constants = std::get<Scope::ConstantArray>(array);
  const std::int64_t value = (*constants.values)[offset];
  if (constants.are_truths) return expressions_.GetBuilder().GetTruth(value != 0, range);
  return Operand{value, KivOmbNetwork::kNone, range};
}

}  // namespace kiv
