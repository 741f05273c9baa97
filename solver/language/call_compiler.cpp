#include "solver/language/call_compiler.h"

#include <algorithm>
#include <utility>

#include "solver/language/call_vocabulary.h"
#include "solver/language/expression_compiler.h"
#include "solver/language/list_compiler.h"
#include "solver/language/near_name.h"

namespace kiv {
namespace {

// Computes the arguments of one call.
class Arguments {
 public:
  Arguments(const CallEntry& entry, const Call& call, ExpressionCompiler& expressions)
      : entry_(entry), call_(call), expressions_(expressions), builder_(expressions.GetBuilder()) {}

  std::optional<std::vector<CallArgument>> Compile() {
    const std::vector<Expression>& given = call_.arguments;
    if (entry_.takes_any_number && given.size() != 1) return CompileAsOneList();
    if (given.size() != entry_.parameters.size()) {
      Report(call_.name.range, "takes " + std::to_string(entry_.parameters.size()) +
                                   (entry_.parameters.size() == 1 ? " argument" : " arguments") +
                                   ", not " + std::to_string(given.size()));
      return std::nullopt;
    }
    std::vector<CallArgument> arguments;
    for (std::size_t i = 0; i < given.size(); ++i) {
      if (auto argument = CompileOne(given[i], entry_.parameters[i])) {
        arguments.push_back(*std::move(argument));
      }
    }
    if (arguments.size() != given.size()) return std::nullopt;
    return arguments;
  }

 private:
  void Report(SourceRange range, const std::string& text) {
    builder_.GetDiagnostics().Add(
        range, '\'' + call_.name.text + "' " + text,
        {std::string(entry_.signature) + ": " + std::string(entry_.meaning)});
  }

  std::optional<std::vector<CallArgument>> CompileAsOneList() {
    auto operands = CompileList(call_.arguments, expressions_);
    if (!operands || !CheckIntegers(*operands)) return std::nullopt;
    CallArgument list;
    list.range = call_.name.range;
    list.operands = *std::move(operands);
    return std::vector{std::move(list)};
  }

  std::optional<CallArgument> CompileOne(const Expression& expression, ParameterKind kind) {
    CallArgument argument;
    argument.range = expression.range;
    if (kind == ParameterKind::kSet) return CompileSet(expression, std::move(argument));
    if (kind == ParameterKind::kInteger || kind == ParameterKind::kTruth) {
      auto operand = expressions_.Compile(expression);
      if (!operand) return std::nullopt;
      argument.operands.push_back(*std::move(operand));
      // Functions of truth values tell what they take themselves.
      if (kind == ParameterKind::kInteger && !CheckIntegers(argument.operands)) {
        return std::nullopt;
      }
      return argument;
    }
    if (!CompileElements(expression, kind, argument)) return std::nullopt;
    const bool fits = kind == ParameterKind::kIntegers ? CheckIntegers(argument.operands)
                                                       : TakeConstants(argument);
    return fits ? std::optional(std::move(argument)) : std::nullopt;
  }

  // The elements of a list in order, with what the list tells of their indices and rows.
  bool CompileElements(const Expression& expression, ParameterKind kind, CallArgument& argument) {
    const auto* reference = std::get_if<Reference>(&expression.form);
    if (reference != nullptr && expressions_.GetReferences().IsArray(*reference)) {
      auto view = expressions_.GetReferences().CompileArray(*reference, expression.range);
      if (!view) return false;
      if (view->shape.size() == 1) argument.first = view->shape.front().first;
      argument.row_length = static_cast<std::size_t>(view->shape.back().Count());
      argument.operands = std::move(view->elements);
      return true;
    }
    const auto* list = std::get_if<ListLiteral>(&expression.form);
    if (kind == ParameterKind::kTuples && list != nullptr && !list->elements.empty()) {
      return CompileRows(list->elements, argument);
    }
    auto operands = CompileList(expression, expressions_);
    if (operands) argument.operands = *std::move(operands);
    return operands.has_value();
  }

  bool CompileRows(const std::vector<Expression>& rows, CallArgument& argument) {
    for (const Expression& row : rows) {
      const auto operands = CompileList(row, expressions_);
      if (!operands) return false;
      if (&row == &rows.front()) argument.row_length = operands->size();
      if (operands->size() != argument.row_length) {
        Report(row.range, "takes rows of one length");
        return false;
      }
      argument.operands.insert(argument.operands.end(), operands->begin(), operands->end());
    }
    return true;
  }

  bool CheckIntegers(const std::vector<Operand>& operands) {
    for (const Operand& operand : operands) {
      if (builder_.IsInteger(operand)) continue;
      Report(operand.range, "takes integers, not '" + builder_.GetKind(operand).GetName() + '\'');
      return false;
    }
    return true;
  }

  bool TakeConstants(CallArgument& argument) {
    for (const Operand& operand : argument.operands) {
      if (!operand.constant) {
        Report(operand.range, "takes numbers, parameters and loop variables here");
        return false;
      }
      if (!IsModelInteger(*operand.constant)) {
        Report(operand.range, "takes integers of " + DescribeModelIntegers());
        return false;
      }
      argument.constants.push_back(static_cast<std::int32_t>(*operand.constant));
    }
    argument.operands.clear();
    return true;
  }

  std::optional<CallArgument> CompileSet(const Expression& expression, CallArgument argument) {
    constexpr std::uint64_t kMost = 1'000'000;
    const auto set = expressions_.GetGenerators().CompileSet(expression);
    if (!set) return std::nullopt;
    if (set->Count() > kMost) {
      Report(expression.range, "takes sets of at most " + std::to_string(kMost) + " values");
      return std::nullopt;
    }
    set->ForEach([&](std::int64_t value) {
      if (IsModelInteger(value)) argument.constants.push_back(static_cast<std::int32_t>(value));
      return true;
    });
    return argument;
  }

  const CallEntry& entry_;
  const Call& call_;
  ExpressionCompiler& expressions_;
  NetworkBuilder& builder_;
};

std::optional<CallSite> CompileSite(const CallEntry& entry, const Call& call, SourceRange range,
                                    const std::vector<Word>& annotations,
                                    ExpressionCompiler& expressions) {
  auto arguments = Arguments(entry, call, expressions).Compile();
  if (!arguments) return std::nullopt;
  return CallSite{call.name,
                  range,
                  *std::move(arguments),
                  annotations,
                  expressions.GetBuilder(),
                  expressions.GetOperators()};
}

}  // namespace

bool IsConstraintCall(const Call& call) {
  const CallEntry* entry = FindCallEntry(call.name.text);
  return entry != nullptr && entry->post != nullptr;
}

void PostCall(const Call& call, SourceRange range, const std::vector<Word>& annotations,
              ExpressionCompiler& expressions) {
  const CallEntry& entry = *FindCallEntry(call.name.text);
  for (const Word& annotation : annotations) {
    if (std::ranges::find(entry.annotations, annotation.text) != entry.annotations.end()) continue;
    const std::vector<std::string> known(entry.annotations.begin(), entry.annotations.end());
    expressions.GetBuilder().GetDiagnostics().Add(
        annotation.range,
        "unknown annotation '" + annotation.text + '\'' + SuggestNearName(annotation.text, known),
        {"annotations of '" + call.name.text + "': " + ListNames(known)});
    return;
  }
  if (const auto site = CompileSite(entry, call, range, annotations, expressions)) {
    entry.post(*site);
  }
}

std::optional<Operand> ApplyCall(const Call& call, SourceRange range,
                                 ExpressionCompiler& expressions) {
  const CallEntry& entry = *FindCallEntry(call.name.text);
  if (entry.apply == nullptr) {
    expressions.GetBuilder().GetDiagnostics().Add(
        call.name.range,
        '\'' + call.name.text + "' is a constraint of its own, not part of an expression");
    return std::nullopt;
  }
  const auto site = CompileSite(entry, call, range, {}, expressions);
  return site ? entry.apply(*site) : std::nullopt;
}

}  // namespace kiv
