#include "solver/flatzinc/annotations.h"

namespace kiv::flatzinc {

using Kind = Expression::Kind;

std::string_view NameOfAnnotation(const Model& model, Expression annotation) {
  if (annotation.Is(Kind::kName)) return model.names[annotation.GetPlace()];
  if (annotation.Is(Kind::kCall)) return model.names[model.calls[annotation.GetPlace()].name];
  return {};
}

std::span<const Expression> ArgumentsOfAnnotation(const Model& model, Expression annotation) {
  if (!annotation.Is(Kind::kCall)) return {};
  return model.Get(model.calls[annotation.GetPlace()].arguments);
}

const Expression* FindAnnotation(const Model& model, List annotations, std::string_view name) {
  for (const Expression& annotation : model.Get(annotations)) {
    if (NameOfAnnotation(model, annotation) == name) return &annotation;
  }
  return nullptr;
}

bool IsIntroduced(const Model& model, const Variable& variable) {
  return FindAnnotation(model, variable.annotations, "var_is_introduced") != nullptr;
}

}  // namespace kiv::flatzinc
