#include "solver/language/generator_compiler.h"

#include <cstdint>
#include <string>
#include <utility>

#include "solver/language/expression_compiler.h"
#include "solver/language/parser.h"

namespace kiv {
namespace {

constexpr const char* kEndOfRange = "the end of a range";
constexpr const char* kElement = "an element of a set";

}  // namespace

std::optional<IntegerSet> GeneratorCompiler::CompileSet(const Expression& expression,
                                                        bool admits_value) {
  if (const auto* range = std::get_if<RangeLiteral>(&expression.form)) return CompileRange(*range);
  if (const auto* set = std::get_if<SetLiteral>(&expression.form)) {
    return CompileElements(set->elements);
  }
  const auto* comprehension = std::get_if<Comprehension>(&expression.form);
  if (comprehension != nullptr && comprehension->is_set) {
    return CompileComprehension(*comprehension);
  }
  if (const auto* reference = std::get_if<Reference>(&expression.form)) {
    const Scope::Entry* entry = expressions_.GetReferences().Resolve(*reference, expression.range);
    if (entry == nullptr) return std::nullopt;
    const bool is_set = std::holds_alternative<Scope::Set>(entry->meaning);
    if (is_set || FindArray(expression) != nullptr) {
      return CompileName(*reference, expression.range);
    }
  }
  if (admits_value) {
    const auto value = expressions_.CompileConstant(expression, "a value of a domain");
    return value ? std::optional(IntegerSet::FromRange(*value, *value)) : std::nullopt;
  }
  diagnostics_.Add(expression.range,
                   "expected a range such as 1..9, a set such as { 1, 3 }, or a parameter that is "
                   "a set or an array");
  return std::nullopt;
}

std::optional<IntegerSet> GeneratorCompiler::CompileRange(const RangeLiteral& range) {
  const auto first = expressions_.CompileConstant(*range.first, kEndOfRange);
  const auto last = expressions_.CompileConstant(*range.last, kEndOfRange);
  return first && last ? std::optional(IntegerSet::FromRange(*first, *last)) : std::nullopt;
}

std::optional<IntegerSet> GeneratorCompiler::CompileElements(
    const std::vector<Expression>& elements) {
  std::vector<std::int64_t> values;
  bool complete = true;
  for (const Expression& element : elements) {
    const auto value = expressions_.CompileConstant(element, kElement);
    complete &= value.has_value();
    if (value) values.push_back(*value);
  }
  return complete ? std::optional(IntegerSet::FromValues(std::move(values))) : std::nullopt;
}

std::optional<IntegerSet> GeneratorCompiler::CompileComprehension(
    const Comprehension& comprehension) {
  std::vector<std::int64_t> values;
  bool complete = true;
  complete &= ForEach(comprehension.generators, [&] {
    const auto value = expressions_.CompileConstant(*comprehension.element, kElement);
    complete &= value.has_value();
    if (value) values.push_back(*value);
  });
  return complete ? std::optional(IntegerSet::FromValues(std::move(values))) : std::nullopt;
}

std::optional<IntegerSet> GeneratorCompiler::CompileName(const Reference& reference,
                                                         SourceRange range) {
  if (!reference.indices.empty()) {
    diagnostics_.Add(range, '\'' + reference.name + "' is no array of sets");
    return std::nullopt;
  }
  const Scope::Meaning& meaning = scope_.Find(reference.name)->meaning;
  if (const auto* set = std::get_if<Scope::Set>(&meaning)) return *set->values;
  const auto& values = *std::get<Scope::ConstantArray>(meaning).values;
  if (!budget_.Spend(values.size(), range, diagnostics_)) return std::nullopt;
  return IntegerSet::FromValues(values);
}

const Scope::ConstantArray* GeneratorCompiler::FindArray(const Expression& expression) const {
  const auto* reference = std::get_if<Reference>(&expression.form);
  if (reference == nullptr || !reference->indices.empty()) return nullptr;
  const Scope::Entry* entry = scope_.Find(reference->name);
  const auto* array =
      entry != nullptr ? std::get_if<Scope::ConstantArray>(&entry->meaning) : nullptr;
  return array != nullptr && !array->are_truths ? array : nullptr;
}

bool GeneratorCompiler::ForEach(std::span<const Generator> generators,
                                const std::function<void()>& run) {
  if (generators.empty()) {
    const std::size_t errors = diagnostics_.Count();
    run();
    return diagnostics_.Count() == errors;
  }
  const Generator& generator = generators.front();
  if (open_generators_ == kDeepestNesting) {
    diagnostics_.Add(generator.name.range, "loops run within each other more than " +
                                               std::to_string(kDeepestNesting) + " deep");
    return false;
  }
  ++open_generators_;
  const bool complete = RunThrough(generator, generators.subspan(1), run);
  --open_generators_;
  return complete;
}

bool GeneratorCompiler::RunThrough(const Generator& generator, std::span<const Generator> rest,
                                   const std::function<void()>& run) {
  const auto visit = [&](std::int64_t value) { return RunWith(value, generator, rest, run); };
  if (const Scope::ConstantArray* array = FindArray(*generator.values)) {
    // Shared, so that what the runs declare cannot take the values away.
    const auto values = array->values;
    for (const std::int64_t value : *values) {
      if (!visit(value)) return false;
    }
    return true;
  }
  const std::optional<IntegerSet> values = CompileSet(*generator.values);
  return values && values->ForEach(visit);
}

bool GeneratorCompiler::RunWith(std::int64_t value, const Generator& generator,
                                std::span<const Generator> rest, const std::function<void()>& run) {
  if (!budget_.Spend(1, generator.name.range, diagnostics_)) return false;
  if (!DeclareName(scope_, generator.name, Scope::Constant{value}, diagnostics_)) return false;
  bool complete = true;
  bool runs = true;
  if (generator.condition != nullptr) {
    const auto met = expressions_.CompileCondition(*generator.condition);
    complete = met.has_value();
    runs = met.value_or(false);
  }
  if (runs) complete = ForEach(rest, run);
  scope_.Remove(generator.name.text);
  return complete;
}

}  // namespace kiv
