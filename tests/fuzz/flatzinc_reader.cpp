// Reads any bytes as a FlatZinc model. Either a model comes out whose tables hold together, or one
// error at a place within the text.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/reader.h"

namespace {

using kiv::flatzinc::Expression;
using kiv::flatzinc::List;
using kiv::flatzinc::Model;

void Require(bool condition) {
  if (!condition) std::abort();
}

std::size_t SizeOfTable(const Model& model, Expression::Kind kind) {
  switch (kind) {
    case Expression::Kind::kBool:
      return 2;
    case Expression::Kind::kInt:
      return 0;
    case Expression::Kind::kFloat:
      return model.floats.size();
    case Expression::Kind::kString:
      return model.strings.size();
    case Expression::Kind::kSet:
      return model.sets.size();
    case Expression::Kind::kArray:
      return model.arrays.size();
    case Expression::Kind::kVariable:
      return model.variables.size();
    case Expression::Kind::kName:
      return model.names.size();
    case Expression::Kind::kCall:
      return model.calls.size();
    case Expression::Kind::kFloatSet:
      return model.float_sets.size();
  }
  std::abort();
}

void RequireSound(Expression value, const Model& model) {
  const auto kind = value.GetKind();
  Require(kind == Expression::Kind::kInt || value.GetPlace() < SizeOfTable(model, kind));
}

template <class Table>
void RequireInside(List list, const Table& table) {
  Require(list.begin <= table.size() && list.size <= table.size() - list.begin);
}

void RequireSound(const Model& model, std::size_t text_size) {
  for (const Expression value : model.pool) RequireSound(value, model);
  RequireSound(model.solve.objective, model);
  for (const List array : model.arrays) RequireInside(array, model.pool);
  for (const auto& call : model.calls) {
    Require(call.name < model.names.size());
    RequireInside(call.arguments, model.pool);
  }
  for (const auto& set : model.sets) {
    RequireInside(set.values, model.set_values);
    const auto values = model.GetValues(set);
    for (std::size_t i = 1; i < values.size(); ++i) Require(values[i - 1] < values[i]);
  }
  for (const auto& set : model.float_sets) RequireInside(set.values, model.floats);
  for (const auto& variable : model.variables) {
    Require(variable.name < model.names.size() && variable.offset < text_size);
    RequireInside(variable.annotations, model.pool);
    if (variable.initialiser) RequireSound(*variable.initialiser, model);
    if (!variable.domain) continue;
    const bool is_float = variable.type == kiv::flatzinc::BaseType::kFloat;
    Require(*variable.domain < (is_float ? model.float_sets.size() : model.sets.size()));
  }
  for (const auto& array : model.variable_arrays) {
    Require(array.name < model.names.size() && array.offset < text_size);
    RequireInside(array.elements, model.pool);
    RequireInside(array.annotations, model.pool);
  }
  for (const auto& constraint : model.constraints) {
    Require(constraint.name < model.names.size() && constraint.offset < text_size);
    const std::uint32_t size = constraint.arguments + std::uint32_t{constraint.annotations};
    RequireInside({constraint.begin, size}, model.pool);
  }
  Require(model.solve.offset < text_size);
  RequireInside(model.solve.annotations, model.pool);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    RequireSound(kiv::flatzinc::ReadModel({reinterpret_cast<const char*>(data), size}), size);
  } catch (const kiv::flatzinc::Error& error) {
    Require(error.GetOffset() <= size && !std::string_view(error.what()).empty());
  }
  return 0;
}
