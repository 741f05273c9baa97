#include "solver/language/compiled_model.h"

#include <cassert>
#include <ostream>

#include "framework/utilities/text_stream.h"

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

void CompiledModel::PrintOn(std::ostream& out) const {
  for (const Variable& variable : variables_) {
    Kivostrstream values;
    for (std::uint32_t i = 0; i < variable.count; ++i) {
      if (i > 0) values << ", ";
      network_.GetDomain(variable.first + i).PrintOn(values);
    }
    out << variable.name << " = ";
    if (!variable.shape.empty()) {
      out << '[' << values.Str() << "]\n";
    } else {
      out << values.Str() << '\n';
    }
  }
}

void CompiledModel::AddOrigin(KivOmbNetwork::ConstraintId constraint, SourceRange origin) {
  assert(constraint == origins_.size());
  (void)constraint;
  origins_.push_back(origin);
}

}  // namespace kiv
