#include "solver/language/expression_compiler.h"

#include <utility>

#include "solver/language/aggregate_compiler.h"
#include "solver/language/call_compiler.h"
#include "solver/language/call_vocabulary.h"
#include "solver/language/membership_question.h"
#include "solver/language/near_name.h"
#include "solver/language/operator_precedence.h"

namespace kiv {

ExpressionCompiler::ExpressionCompiler(CompiledModel& model, const Vocabulary& vocabulary,
                                       Scope& scope, ExpansionBudget& budget,
                                       Diagnostics& diagnostics)
    : vocabulary_(vocabulary),
      diagnostics_(diagnostics),
      builder_(model, vocabulary, budget, diagnostics),
      operators_(builder_),
      references_(*this, scope, budget, diagnostics),
      generators_(*this, scope, budget, diagnostics) {}

std::optional<Operand> ExpressionCompiler::Compile(const Expression& expression) {
  const SourceRange range = expression.range;
  std::optional<Operand> operand;
  if (const auto* integer = std::get_if<IntegerLiteral>(&expression.form)) {
    operand = Operand{integer->value, KivOmbNetwork::kNone, range};
  } else if (const auto* truth = std::get_if<BooleanLiteral>(&expression.form)) {
    operand = builder_.GetTruth(truth->value, range);
  } else if (const auto* reference = std::get_if<Reference>(&expression.form)) {
    operand = references_.CompileValue(*reference, range);
  } else if (const auto* unary = std::get_if<UnaryApplication>(&expression.form)) {
    operand = CompileUnary(*unary, range);
  } else if (const auto* chain = std::get_if<Chain>(&expression.form)) {
    operand = CompileChain(*chain, range);
  } else if (const auto* call = std::get_if<Call>(&expression.form)) {
    operand = CompileCall(*call, range);
  } else if (const auto* aggregate = std::get_if<Aggregate>(&expression.form)) {
    operand = CompileAggregate(*aggregate, range, *this, diagnostics_);
  } else if (const auto* test = std::get_if<MembershipTest>(&expression.form)) {
    operand = CompileMembership(*test, range);
  } else if (const auto* conditional = std::get_if<ConditionalExpression>(&expression.form)) {
    operand = CompileConditional(*conditional);
  } else {
    RefuseSeveral(expression);
  }
  // Parentheses belong to what a message shows.
  if (operand) operand->range = range;
  return operand;
}

std::optional<std::int64_t> ExpressionCompiler::CompileConstant(const Expression& expression,
                                                                const char* what) {
  const std::optional<Operand> operand = Compile(expression);
  if (!operand) return std::nullopt;
  if (!operand->constant) {
    diagnostics_.Add(expression.range,
                     std::string(what) + " must be made of numbers, parameters and loop variables");
  }
  return operand->constant;
}

std::optional<bool> ExpressionCompiler::CompileCondition(const Expression& condition) {
  const std::optional<Operand> operand = Compile(condition);
  if (!operand) return std::nullopt;
  const std::optional<bool> truth = builder_.GetConstantTruth(*operand);
  if (!truth) {
    diagnostics_.Add(condition.range, builder_.IsTruth(*operand)
                                          ? "a condition must be made of numbers, parameters and "
                                            "loop variables"
                                          : "a condition is a truth value such as 'i < j'");
  }
  return truth;
}

std::optional<Operand> ExpressionCompiler::CompileMembership(const MembershipTest& test,
                                                             SourceRange range) {
  const std::optional<Operand> element = Compile(*test.element);
  const std::optional<IntegerSet> set = generators_.CompileSet(*test.set);
  if (!element || !set) return std::nullopt;
  return AskMembership(test.symbol, *element, *set, range, builder_);
}

std::optional<Operand> ExpressionCompiler::CompileConditional(
    const ConditionalExpression& conditional) {
  const std::optional<bool> condition = CompileCondition(*conditional.condition);
  if (!condition) return std::nullopt;
  return Compile(*condition ? *conditional.first : *conditional.second);
}

void ExpressionCompiler::RefuseSeveral(const Expression& expression) {
  const bool is_range = std::holds_alternative<RangeLiteral>(expression.form);
  const auto* comprehension = std::get_if<Comprehension>(&expression.form);
  const bool is_set = comprehension != nullptr
                          ? comprehension->is_set
                          : std::holds_alternative<SetLiteral>(expression.form);
  diagnostics_.Add(expression.range,
                   is_range ? "a range is no value; it stands behind 'in' or as a domain"
                   : is_set ? "a set is no value; it stands behind 'in' or as a domain"
                            : "a list is no value; it stands as an argument of a call");
}

std::optional<Operand> ExpressionCompiler::CompileUnary(const UnaryApplication& application,
                                                        SourceRange range) {
  const Word& symbol = application.symbol;
  if (symbol.text == "not" && !CheckAsks(symbol, *application.operand)) return std::nullopt;
  const std::optional<Operand> operand = Compile(*application.operand);
  return operand ? operators_.ApplyUnary(symbol, *operand, range) : std::nullopt;
}

std::optional<Operand> ExpressionCompiler::CompileChain(const Chain& chain, SourceRange range) {
  const Precedence precedence = GetPrecedence(chain.operators.front().text);
  std::vector<Operand> operands;
  for (std::size_t i = 0; i < chain.operands.size(); ++i) {
    const Word& symbol = chain.operators[i == 0 ? 0 : i - 1];
    if (IsConnective(precedence) && !CheckAsks(symbol, chain.operands[i])) continue;
    if (auto operand = Compile(chain.operands[i])) operands.push_back(*std::move(operand));
  }
  if (operands.size() != chain.operands.size()) return std::nullopt;
  if (IsConnective(precedence) && precedence != Precedence::kExclusiveOr) {
    return operators_.ApplyConnective(chain.operators.front(), std::move(operands), range);
  }
  std::optional<Operand> value = std::move(operands.front());
  for (std::size_t i = 0; i < chain.operators.size() && value; ++i) {
    value = operators_.ApplyBinary(chain.operators[i], *std::move(value), operands[i + 1]);
  }
  return value;
}

bool ExpressionCompiler::CheckAsks(const Word& symbol, const Expression& operand) {
  const Word* relation = FindOutermost(Precedence::kRelation, operand);
  if (relation == nullptr) return true;
  const std::string_view question = GetCounterpart(relation->text);
  diagnostics_.Add(relation->range,
                   "'" + relation->text + "' asserts, but '" + symbol.text +
                       "' needs a truth value; did you mean " +
                       (question.empty() ? "'not ... == ...'" : "'" + std::string(question) + "'") +
                       "?");
  return false;
}

std::optional<Operand> ExpressionCompiler::CompileCall(const Call& call, SourceRange range) {
  if (call.name.text == "size") {
    const auto size = references_.CompileSize(call);
    if (!size) return std::nullopt;
    return Operand{size, KivOmbNetwork::kNone, range};
  }
  if (FindCallEntry(call.name.text) != nullptr) return ApplyCall(call, range, *this);
  const KivOmbiOperatorTable& operators = vocabulary_.GetOperators();
  const bool known = !operators.FindRows(call.name.text, 1).empty() ||
                     !operators.FindRows(call.name.text, 2).empty();
  if (!known) {
    std::vector<std::string> names = {"size"};
    for (const CallEntry& entry : GetCallEntries()) names.emplace_back(entry.name);
    for (const KivOmbiCompoundObjectDescriptor* row : operators.GetRows())
      names.push_back(row->GetSymbol());
    diagnostics_.Add(call.name.range, "unknown function '" + call.name.text + '\'' +
                                          SuggestNearName(call.name.text, names));
    return std::nullopt;
  }
  std::vector<Operand> arguments;
  for (const Expression& argument : call.arguments) {
    if (std::optional<Operand> operand = Compile(argument)) arguments.push_back(*operand);
  }
  if (arguments.size() != call.arguments.size()) return std::nullopt;
  if (arguments.size() == 1) return operators_.ApplyUnary(call.name, arguments[0], range);
  if (arguments.size() == 2) {
    return operators_.ApplyBinary(call.name, arguments[0], arguments[1]);
  }
  diagnostics_.Add(call.name.range, '\'' + call.name.text + "' does not take " +
                                        std::to_string(arguments.size()) + " arguments");
  return std::nullopt;
}

}  // namespace kiv
