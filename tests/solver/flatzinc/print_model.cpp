#include "tests/solver/flatzinc/print_model.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <span>

namespace kiv::test {
namespace {

using flatzinc::BaseType;
using flatzinc::Expression;
using flatzinc::Model;
using Kind = Expression::Kind;

std::string PrintFloat(double value) {
  std::array<char, 32> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  const std::string text(digits.data(), end);
  return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

std::string PrintText(const std::string& text) {
  std::string printed = "\"";
  for (const char c : text) {
    if (c == '\n') {
      printed += "\\n";
    } else if (c == '\t') {
      printed += "\\t";
    } else {
      if (c == '"' || c == '\\') printed += '\\';
      printed += c;
    }
  }
  return printed + '"';
}

// All of `elements`, each printed by `print`, with commas between them.
template <class Elements, class PrintElement>
std::string Join(const Elements& elements, PrintElement print) {
  std::string text;
  for (const auto& element : elements) text += (text.empty() ? "" : ",") + print(element);
  return text;
}

std::string PrintAll(std::span<const Expression> values, const Model& model) {
  return Join(values, [&](Expression value) { return Print(value, model); });
}

std::string PrintSet(std::uint32_t place, const Model& model) {
  const auto& set = model.sets[place];
  const auto print = [](std::int64_t value) { return std::to_string(value); };
  if (set.values.size > 0) return '{' + Join(model.GetValues(set), print) + '}';
  return print(set.lower) + ".." + print(set.upper);
}

std::string PrintFloatSet(std::uint32_t place, const Model& model) {
  const auto& set = model.float_sets[place];
  const auto values = std::span(model.floats).subspan(set.values.begin, set.values.size);
  if (set.is_range) return PrintFloat(values[0]) + ".." + PrintFloat(values[1]);
  return '{' + Join(values, PrintFloat) + '}';
}

std::string PrintBaseType(BaseType type) {
  switch (type) {
    case BaseType::kBool:
      return "bool";
    case BaseType::kInt:
      return "int";
    case BaseType::kFloat:
      return "float";
    case BaseType::kSetOfInt:
      return "set of int";
    case BaseType::kSetOfFloat:
      return "set of float";
  }
  return {};
}

std::string PrintType(const flatzinc::Variable& variable, const Model& model) {
  if (!variable.domain) return PrintBaseType(variable.type);
  if (variable.type == BaseType::kFloat) return PrintFloatSet(*variable.domain, model);
  const std::string domain = PrintSet(*variable.domain, model);
  return variable.type == BaseType::kSetOfInt ? "set of " + domain : domain;
}

std::string PrintAnnotations(std::span<const Expression> annotations, const Model& model) {
  std::string text;
  for (const Expression annotation : annotations) text += " :: " + Print(annotation, model);
  return text;
}

std::string PrintSolve(const Model& model) {
  const std::string annotations = PrintAnnotations(model.Get(model.solve.annotations), model);
  switch (model.solve.goal) {
    case flatzinc::Solve::Goal::kSatisfy:
      return "solve" + annotations + " satisfy;\n";
    case flatzinc::Solve::Goal::kMinimize:
      return "solve" + annotations + " minimize " + Print(model.solve.objective, model) + ";\n";
    case flatzinc::Solve::Goal::kMaximize:
      return "solve" + annotations + " maximize " + Print(model.solve.objective, model) + ";\n";
  }
  return {};
}

}  // namespace

std::string Print(Expression value, const Model& model) {
  switch (value.GetKind()) {
    case Kind::kBool:
      return value.GetValue() != 0 ? "true" : "false";
    case Kind::kInt:
      return std::to_string(value.GetValue());
    case Kind::kFloat:
      return PrintFloat(model.floats[value.GetPlace()]);
    case Kind::kString:
      return PrintText(model.strings[value.GetPlace()]);
    case Kind::kSet:
      return PrintSet(value.GetPlace(), model);
    case Kind::kFloatSet:
      return PrintFloatSet(value.GetPlace(), model);
    case Kind::kArray:
      return '[' + PrintAll(model.Get(model.arrays[value.GetPlace()]), model) + ']';
    case Kind::kVariable:
      return model.names[model.variables[value.GetPlace()].name];
    case Kind::kName:
      return model.names[value.GetPlace()];
    case Kind::kCall: {
      const auto& call = model.calls[value.GetPlace()];
      return model.names[call.name] + '(' + PrintAll(model.Get(call.arguments), model) + ')';
    }
  }
  return {};
}

std::string Print(const Model& model) {
  std::string text;
  for (const auto& variable : model.variables) {
    text += "var " + PrintType(variable, model) + ": " + model.names[variable.name] +
            PrintAnnotations(model.Get(variable.annotations), model);
    if (variable.initialiser) text += " = " + Print(*variable.initialiser, model);
    text += ";\n";
  }
  for (const auto& array : model.variable_arrays) {
    text += "array [1.." + std::to_string(array.elements.size) + "] of var " +
            PrintBaseType(array.type) + ": " + model.names[array.name] +
            PrintAnnotations(model.Get(array.annotations), model) + " = [" +
            PrintAll(model.Get(array.elements), model) + "];\n";
  }
  for (const auto& constraint : model.constraints) {
    text += "constraint " + model.names[constraint.name] + '(' +
            PrintAll(model.GetArguments(constraint), model) + ')' +
            PrintAnnotations(model.GetAnnotations(constraint), model) + ";\n";
  }
  return text + PrintSolve(model);
}

}  // namespace kiv::test
