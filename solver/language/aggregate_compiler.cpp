#include "solver/language/aggregate_compiler.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "solver/language/expression_compiler.h"
#include "solver/language/near_name.h"

namespace kiv {
namespace {

enum class Empty { kNumber, kTruth, kError };

// What applies between two values, and what there is without any.
struct Operation {
  std::string_view name;
  std::string_view symbol;
  Empty empty;
  std::int64_t neutral;
};

constexpr std::array kOperations = {
    Operation{"sum", "+", Empty::kNumber, 0},     Operation{"product", "*", Empty::kNumber, 1},
    Operation{"min", "/\\", Empty::kError, 0},    Operation{"max", "\\/", Empty::kError, 0},
    Operation{"forall", "and", Empty::kTruth, 1}, Operation{"exists", "or", Empty::kTruth, 0}};

const Operation* FindOperation(const Word& name, Diagnostics& diagnostics) {
  std::vector<std::string> names;
  for (const Operation& operation : kOperations) {
    if (operation.name == name.text) return &operation;
    names.emplace_back(operation.name);
  }
  diagnostics.Add(name.range,
                  "unknown aggregate '" + name.text + '\'' + SuggestNearName(name.text, names));
  return nullptr;
}

}  // namespace

std::optional<Operand> CompileAggregate(const Aggregate& aggregate, SourceRange range,
                                        ExpressionCompiler& expressions, Diagnostics& diagnostics) {
  const Operation* operation = FindOperation(aggregate.name, diagnostics);
  if (operation == nullptr) return std::nullopt;
  const bool connects = operation->empty == Empty::kTruth;
  if (connects && !expressions.CheckAsks(aggregate.name, *aggregate.body)) return std::nullopt;

  const Word symbol{std::string(operation->symbol), aggregate.name.range};
  std::vector<Operand> values;
  bool complete = true;
  complete &= expressions.GetGenerators().ForEach(aggregate.generators, [&] {
    const std::optional<Operand> value = expressions.Compile(*aggregate.body);
    complete &= value.has_value();
    if (value) values.push_back(*value);
  });
  if (!complete) return std::nullopt;
  if (!values.empty()) {
    std::optional<Operand> result = values.front();
    for (std::size_t i = 1; i < values.size() && result; ++i) {
      result = expressions.ApplyBinary(symbol, *result, values[i]);
    }
    return result;
  }
  switch (operation->empty) {
    case Empty::kNumber:
      return Operand{operation->neutral, KivOmbNetwork::kNone, range};
    case Empty::kTruth:
      return expressions.CompileTruth(operation->neutral != 0, range);
    case Empty::kError:
      break;
  }
  diagnostics.Add(aggregate.name.range, '\'' + aggregate.name.text + "' has no values here");
  return std::nullopt;
}

}  // namespace kiv
