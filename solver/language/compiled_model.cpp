#include "solver/language/compiled_model.h"

#include <cassert>
#include <ostream>

#include "framework/utilities/text_stream.h"
#include "solver/language/array_layout.h"

namespace kiv {

std::vector<KivOmbNetwork::VariableId> CompiledModel::GetDeclared() const {
  std::vector<KivOmbNetwork::VariableId> declared;
  for (const Variable& variable : variables_) {
    for (std::uint32_t i = 0; i < variable.count; ++i) declared.push_back(variable.first + i);
  }
  return declared;
}

std::string CompiledModel::NameOf(KivOmbNetwork::VariableId variable) const {
  for (const Variable& candidate : variables_) {
    if (variable < candidate.first || variable - candidate.first >= candidate.count) continue;
    return candidate.name + DescribeIndices(candidate.shape, variable - candidate.first);
  }
  return {};
}

std::string CompiledModel::Describe(KivOmbNetwork::ConstraintId constraint) const {
  const SourceRange origin = origins_.at(constraint);
  return source_.DescribePosition(origin.begin) + ": " + source_.Quote(origin);
}

std::string CompiledModel::TextOf(KivOmbNetwork::VariableId variable) const {
  Kivostrstream text;
  network_.GetDomain(variable).PrintOn(text);
  return text.Str();
}

void CompiledModel::PrintOn(std::ostream& out) const {
  for (const Variable& variable : variables_) {
    const std::string beginning = variable.name + " = ";
    std::vector<std::string> cells;
    cells.reserve(variable.count);
    for (std::uint32_t i = 0; i < variable.count; ++i) cells.push_back(TextOf(variable.first + i));
    out << beginning
        << (variable.shape.empty()
                ? cells.front()
                : LayOutList(variable.shape, std::move(cells), CountCharacters(beginning)))
        << '\n';
  }
}

void CompiledModel::PrintSolutionOn(std::ostream& out) const {
  if (shown_.empty()) {
    PrintOn(out);
    return;
  }
  std::string text;
  for (const ShownItem& item : shown_) {
    std::vector<std::string> cells;
    cells.reserve(item.values.size());
    for (const ShownItem::Value& value : item.values) {
      cells.push_back(value.variable == KivOmbNetwork::kNone ? value.text : TextOf(value.variable));
    }
    text += item.shape.empty() ? cells.front() : LayOutGrid(item.shape, std::move(cells));
  }
  out << text;
  if (!text.ends_with('\n')) out << '\n';
}

void CompiledModel::AddOrigin(KivOmbNetwork::ConstraintId constraint, SourceRange origin) {
  assert(constraint == origins_.size());
  (void)constraint;
  origins_.push_back(origin);
}

}  // namespace kiv
