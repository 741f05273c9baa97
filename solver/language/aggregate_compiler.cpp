#include "solver/language/aggregate_compiler.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "solver/language/expression_compiler.h"
#include "solver/language/near_name.h"
#include "solver/language/truth_count.h"

namespace kiv {
namespace {

enum class Operation { kSum, kProduct, kLeast, kGreatest, kAll, kAny, kCount };

struct Entry {
  std::string_view name;
  std::string_view symbol;  // of the operator between two values
  Operation operation;
};

constexpr std::array kEntries = {
    Entry{"sum", "+", Operation::kSum},      Entry{"product", "*", Operation::kProduct},
    Entry{"min", "/\\", Operation::kLeast},  Entry{"max", "\\/", Operation::kGreatest},
    Entry{"forall", "and", Operation::kAll}, Entry{"exists", "or", Operation::kAny},
    Entry{"count", "", Operation::kCount}};

const Entry* FindEntry(const Word& name, Diagnostics& diagnostics) {
  std::vector<std::string> names;
  for (const Entry& entry : kEntries) {
    if (entry.name == name.text) return &entry;
    names.emplace_back(entry.name);
  }
  diagnostics.Add(name.range,
                  "unknown aggregate '" + name.text + '\'' + SuggestNearName(name.text, names));
  return nullptr;
}

bool TakesTruths(Operation operation) {
  return operation == Operation::kAll || operation == Operation::kAny ||
         operation == Operation::kCount;
}

}  // namespace

std::optional<Operand> CompileAggregate(const Aggregate& aggregate, SourceRange range,
                                        ExpressionCompiler& expressions, Diagnostics& diagnostics) {
  const Entry* entry = FindEntry(aggregate.name, diagnostics);
  if (entry == nullptr) return std::nullopt;
  if (TakesTruths(entry->operation) && !expressions.CheckAsks(aggregate.name, *aggregate.body)) {
    return std::nullopt;
  }
  std::vector<Operand> values;
  bool complete = true;
  complete &= expressions.GetGenerators().ForEach(aggregate.generators, [&] {
    auto value = expressions.Compile(*aggregate.body);
    complete &= value.has_value();
    if (value) values.push_back(*std::move(value));
  });
  if (!complete) return std::nullopt;

  OperatorCompiler& operators = expressions.GetOperators();
  const Word symbol{std::string(entry->symbol), aggregate.name.range};
  switch (entry->operation) {
    case Operation::kSum:
    case Operation::kProduct: {
      const std::int64_t neutral = entry->operation == Operation::kSum ? 0 : 1;
      std::optional<Operand> value = Operand{neutral, KivOmbNetwork::kNone, range};
      if (!values.empty()) value = std::move(values.front());
      for (std::size_t i = 1; i < values.size() && value; ++i) {
        value = operators.ApplyBinary(symbol, *std::move(value), values[i]);
      }
      return value;
    }
    case Operation::kLeast:
    case Operation::kGreatest:
      if (!values.empty()) return operators.ApplyExtremum(symbol, values, range);
      diagnostics.Add(aggregate.name.range, '\'' + aggregate.name.text + "' has no values here");
      return std::nullopt;
    case Operation::kAll:
    case Operation::kAny:
      return operators.ApplyConnective(symbol, std::move(values), range);
    case Operation::kCount:
      break;
  }
  return CountTruths(aggregate.name, values, range, expressions.GetBuilder());
}

}  // namespace kiv
