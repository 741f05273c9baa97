#include "solver/language/parameter_compiler.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "solver/language/declared_domain.h"
#include "solver/language/near_name.h"
#include "solver/language/parameter_fit.h"
#include "solver/language/shape_compiler.h"

namespace kiv {
namespace {

using Kind = ParameterType::Kind;

constexpr std::array<std::pair<const char*, Kind>, 3> kKinds = {
    {{"int", Kind::kInteger}, {"bool", Kind::kTruth}, {"set", Kind::kSet}}};

std::optional<Kind> FindKind(const Word& kind, Diagnostics& diagnostics) {
  for (const auto& [name, found] : kKinds) {
    if (kind.text == name) return found;
  }
  diagnostics.Add(kind.range, "a parameter is an 'int', a 'bool' or a 'set'");
  return std::nullopt;
}

}  // namespace

void ParameterCompiler::Compile(const Parameter& parameter) {
  names_.push_back(parameter.declarator.name.text);
  DeclareName(scope_, parameter.declarator.name, CompileMeaning(parameter), diagnostics_);
}

void ParameterCompiler::ReportUnused() {
  for (const auto& [name, value] : given_) {
    if (std::find(names_.begin(), names_.end(), name) != names_.end()) continue;
    diagnostics_.Add("the model has no parameter '" + name + '\'' + SuggestNearName(name, names_),
                     {"parameters: " + ListNames(names_)});
  }
}

Scope::Meaning ParameterCompiler::CompileMeaning(const Parameter& parameter) {
  const Word& name = parameter.declarator.name;
  const std::optional<Kind> kind = FindKind(parameter.kind, diagnostics_);
  const auto shape =
      CompileShape(parameter.declarator, expressions_, budget_.GetLimits(), diagnostics_);
  const auto given = given_.find(name.text);
  const bool is_given = given != given_.end();
  if (!is_given && parameter.value == nullptr) {
    diagnostics_.Add(name.range, "the parameter '" + name.text +
                                     "' has no value; give it one with -D '" + name.text +
                                     "=...' or in a file with --data");
  }
  if (!kind || !shape) return Scope::Broken{};
  if (*kind == Kind::kSet && !shape->empty()) {
    diagnostics_.Add(parameter.kind.range, "an array of sets is no parameter");
    return Scope::Broken{};
  }
  // The declared value is read even when another takes its place.
  std::optional<ParameterValue> declared;
  if (parameter.value != nullptr) {
    if (*kind == Kind::kSet) {
      Scope::Meaning set = CompileSet(*parameter.value);
      if (!is_given) return set;
    } else {
      declared = CompileValue(*parameter.value);
    }
  }
  if (!is_given && !declared) return Scope::Broken{};

  ParameterType type{*kind, *shape, {}};
  for (const ExpressionPointer& dimension : parameter.declarator.dimensions) {
    type.open.push_back(dimension == nullptr);
  }
  ParameterFit fit = FitParameter(
      is_given ? given->second : *declared, type,
      is_given ? "the value given for '" + name.text + '\'' : "the value of '" + name.text + '\'');
  if (fit.meaning) return *std::move(fit.meaning);
  diagnostics_.Add(is_given ? name.range : parameter.value->range, fit.error);
  return Scope::Broken{};
}

std::optional<ParameterValue> ParameterCompiler::CompileValue(const Expression& expression) {
  if (const auto* literal = std::get_if<ListLiteral>(&expression.form)) {
    ParameterList list;
    for (const Expression& element : literal->elements) {
      if (auto value = CompileValue(element)) list.push_back(*std::move(value));
    }
    if (list.size() != literal->elements.size()) return std::nullopt;
    return list;
  }
  const auto* comprehension = std::get_if<Comprehension>(&expression.form);
  if (comprehension != nullptr && !comprehension->is_set) return CompileList(*comprehension);

  const std::optional<Operand> operand = expressions_.Compile(expression);
  if (!operand) return std::nullopt;
  if (operand->constant) return *operand->constant;
  if (const auto truth = expressions_.GetBuilder().GetConstantTruth(*operand)) return *truth;
  diagnostics_.Add(
      expression.range,
      "the value of a parameter must be made of numbers, parameters and loop variables");
  return std::nullopt;
}

std::optional<ParameterValue> ParameterCompiler::CompileList(const Comprehension& comprehension) {
  ParameterList list;
  bool complete = true;
  complete &= expressions_.GetGenerators().ForEach(comprehension.generators, [&] {
    auto value = CompileValue(*comprehension.element);
    complete &= value.has_value();
    if (value) list.push_back(*std::move(value));
  });
  if (!complete) return std::nullopt;
  return list;
}

Scope::Meaning ParameterCompiler::CompileSet(const Expression& expression) {
  std::optional<IntegerSet> set = expressions_.GetGenerators().CompileSet(expression);
  if (!set) return Scope::Broken{};
  if (!set->IsEmpty() && !(IsModelInteger(set->GetFirst()) && IsModelInteger(set->GetLast()))) {
    diagnostics_.Add(expression.range, "the set has elements outside " + DescribeModelIntegers());
    return Scope::Broken{};
  }
  return Scope::Set{std::make_shared<const IntegerSet>(*std::move(set))};
}

}  // namespace kiv
