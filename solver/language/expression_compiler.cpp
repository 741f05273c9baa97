#include "solver/language/expression_compiler.h"

#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "solver/constraints/linear_posting.h"
#include "solver/language/aggregate_compiler.h"
#include "solver/language/constant_folding.h"
#include "solver/language/declared_domain.h"
#include "solver/language/near_name.h"
#include "solver/language/operator_precedence.h"

namespace kiv {
namespace {

std::string OutOfRange(std::int64_t value) {
  return "the constant " + std::to_string(value) + " is outside " + std::to_string(kLeastInteger) +
         ".." + std::to_string(kGreatestInteger);
}

}  // namespace

ExpressionCompiler::ExpressionCompiler(CompiledModel& model, const Vocabulary& vocabulary,
                                       Scope& scope, ExpansionBudget& budget,
                                       Diagnostics& diagnostics)
    : model_(model),
      vocabulary_(vocabulary),
      budget_(budget),
      diagnostics_(diagnostics),
      references_(*this, scope, budget, diagnostics),
      generators_(*this, scope, budget, diagnostics),
      constant_kind_(*vocabulary.FindKind("int")) {}

std::optional<Operand> ExpressionCompiler::Compile(const Expression& expression) {
  const SourceRange range = expression.range;
  std::optional<Operand> operand;
  if (const auto* integer = std::get_if<IntegerLiteral>(&expression.form)) {
    operand = Operand{integer->value, KivOmbNetwork::kNone, range};
  } else if (const auto* truth = std::get_if<BooleanLiteral>(&expression.form)) {
    operand = CompileTruth(truth->value, range);
  } else if (const auto* reference = std::get_if<Reference>(&expression.form)) {
    operand = references_.CompileValue(*reference, range);
  } else if (const auto* unary = std::get_if<UnaryApplication>(&expression.form)) {
    operand = CompileUnary(*unary, range);
  } else if (const auto* chain = std::get_if<Chain>(&expression.form)) {
    operand = CompileChain(*chain);
  } else if (const auto* call = std::get_if<Call>(&expression.form)) {
    operand = CompileCall(*call, range);
  } else if (const auto* aggregate = std::get_if<Aggregate>(&expression.form)) {
    operand = CompileAggregate(*aggregate, range, *this, diagnostics_);
  } else if (const auto* test = std::get_if<MembershipTest>(&expression.form)) {
    operand = CompileMembership(*test);
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
  const std::optional<bool> truth = GetConstantTruth(*operand);
  if (!truth) {
    diagnostics_.Add(condition.range, IsTruth(*operand)
                                          ? "a condition must be made of numbers, parameters and "
                                            "loop variables"
                                          : "a condition is a truth value such as 'i < j'");
  }
  return truth;
}

std::optional<KivOmbNetwork::VariableId> ExpressionCompiler::GetVariable(const Operand& operand) {
  if (!operand.constant) return operand.variable;
  if (!IsModelInteger(*operand.constant)) {
    diagnostics_.Add(operand.range, OutOfRange(*operand.constant));
    return std::nullopt;
  }
  const auto value = static_cast<std::int32_t>(*operand.constant);
  if (const auto found = fixed_integers_.find(value); found != fixed_integers_.end()) {
    return found->second;
  }
  const auto variable = AddVariable(constant_kind_, operand.range);
  if (!variable) return std::nullopt;
  model_.GetNetwork().Update(*variable, [value](KivOmbiAny& domain) {
    domain.SetNilValue();
    static_cast<KivOmbiInteger&>(domain).InsertExactValue(value);
  });
  fixed_integers_.emplace(value, *variable);
  return variable;
}

std::optional<KivOmbNetwork::VariableId> ExpressionCompiler::AddVariable(
    const KivOmbiObjectDescriptor& kind, SourceRange range) {
  if (!budget_.Spend(1, range, diagnostics_)) return std::nullopt;
  return model_.GetNetwork().AddVariable(kind);
}

const KivOmbiObjectDescriptor& ExpressionCompiler::GetKind(const Operand& operand) const {
  return operand.constant ? constant_kind_ : model_.GetNetwork().GetKind(operand.variable);
}

bool ExpressionCompiler::IsTruth(const Operand& operand) const {
  return KivOmbiBoolean::sDescriptor->IsMatched(&GetKind(operand)) != 0;
}

void ExpressionCompiler::AssertTruth(const Operand& operand) {
  const auto truth = CompileTruth(true, operand.range);
  if (truth && GetConstantTruth(operand) != true) {
    ApplyRelation({"=", operand.range}, operand, *truth);
  }
}

std::optional<bool> ExpressionCompiler::GetConstantTruth(const Operand& operand) const {
  for (const bool value : {false, true}) {
    const auto& fixed = fixed_truths_[value ? 1 : 0];
    if (!operand.constant && fixed == operand.variable) return value;
  }
  return std::nullopt;
}

std::optional<Operand> ExpressionCompiler::CompileTruth(bool value, SourceRange range) {
  auto& fixed = fixed_truths_[value ? 1 : 0];
  if (!fixed) {
    const KivOmbiObjectDescriptor* kind = vocabulary_.FindKind("bool");
    if (kind == nullptr) {
      diagnostics_.Add(range, "no module that is loaded has the kind 'bool'");
      return std::nullopt;
    }
    fixed = AddVariable(*kind, range);
    if (!fixed) return std::nullopt;
    model_.GetNetwork().Update(*fixed, [value](KivOmbiAny& domain) {
      static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value);
    });
  }
  return Operand{std::nullopt, *fixed, range};
}

std::optional<Operand> ExpressionCompiler::CompileMembership(const MembershipTest& test) {
  const std::optional<Operand> element = Compile(*test.element);
  const std::optional<IntegerSet> set = generators_.CompileSet(*test.set);
  if (!element || !set) return std::nullopt;
  if (element->constant) return CompileTruth(set->Contains(*element->constant), element->range);
  diagnostics_.Add(test.symbol.range, "'in' asks only about constants");
  return std::nullopt;
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
  return operand ? ApplyUnary(symbol, *operand, range) : std::nullopt;
}

std::optional<Operand> ExpressionCompiler::CompileChain(const Chain& chain) {
  const Precedence precedence = GetPrecedence(chain.operators.front().text);
  std::vector<Operand> operands;
  for (std::size_t i = 0; i < chain.operands.size(); ++i) {
    const Word& symbol = chain.operators[i == 0 ? 0 : i - 1];
    if (IsConnective(precedence) && !CheckAsks(symbol, chain.operands[i])) continue;
    if (const auto operand = Compile(chain.operands[i])) operands.push_back(*operand);
  }
  if (operands.size() != chain.operands.size()) return std::nullopt;

  const bool from_right = precedence == Precedence::kImplication;
  const std::size_t count = chain.operators.size();
  std::optional<Operand> value = from_right ? operands.back() : operands.front();
  for (std::size_t i = 0; i < count && value; ++i) {
    value = from_right
                ? ApplyBinary(chain.operators[count - 1 - i], operands[count - 1 - i], *value)
                : ApplyBinary(chain.operators[i], *value, operands[i + 1]);
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
  if (call.name.text == "all_different") {
    diagnostics_.Add(call.name.range,
                     "'all_different' is a constraint of its own, not part of an expression");
    return std::nullopt;
  }
  if (call.name.text == "size") {
    const auto size = references_.CompileSize(call);
    if (!size) return std::nullopt;
    return Operand{size, KivOmbNetwork::kNone, range};
  }
  const KivOmbiOperatorTable& operators = vocabulary_.GetOperators();
  const bool known = !operators.FindRows(call.name.text, 1).empty() ||
                     !operators.FindRows(call.name.text, 2).empty();
  if (!known) {
    std::vector<std::string> names = {"all_different", "size"};
    for (const Row* row : operators.GetRows()) names.push_back(row->GetSymbol());
    diagnostics_.Add(call.name.range, "unknown function '" + call.name.text + '\'' +
                                          SuggestNearName(call.name.text, names));
    return std::nullopt;
  }
  std::vector<Operand> arguments;
  for (const Expression& argument : call.arguments) {
    if (std::optional<Operand> operand = Compile(argument)) arguments.push_back(*operand);
  }
  if (arguments.size() != call.arguments.size()) return std::nullopt;
  if (arguments.size() == 1) return ApplyUnary(call.name, arguments[0], range);
  if (arguments.size() == 2) return ApplyBinary(call.name, arguments[0], arguments[1]);
  diagnostics_.Add(call.name.range, '\'' + call.name.text + "' does not take " +
                                        std::to_string(arguments.size()) + " arguments");
  return std::nullopt;
}

std::optional<Operand> ExpressionCompiler::ApplyUnary(const Word& symbol, const Operand& operand,
                                                      SourceRange range) {
  if (operand.constant) {
    const FoldedConstant folded = FoldUnary(symbol.text, *operand.constant);
    if (folded.value) return Operand{folded.value, KivOmbNetwork::kNone, range};
    if (!folded.error.empty()) {
      diagnostics_.Add(symbol.range, folded.error);
      return std::nullopt;
    }
  }
  const Row* row = FindRow(symbol, {&operand});
  if (row == nullptr || !CheckPropagates(*row, symbol, {&operand})) return std::nullopt;
  if (const auto truth = GetConstantTruth(operand); truth && symbol.text == "not") {
    return CompileTruth(!*truth, range);
  }
  return Post(*row, operand, nullptr, true, range);
}

std::optional<Operand> ExpressionCompiler::ApplyBinary(const Word& symbol, const Operand& left,
                                                       const Operand& right) {
  if (GetPrecedence(symbol.text) == Precedence::kRelation) {
    return ApplyRelation(symbol, left, right);
  }
  const SourceRange range = Join(left.range, right.range);
  if (left.constant && right.constant) {
    if (const auto answer = FoldQuestion(symbol.text, *left.constant, *right.constant)) {
      return CompileTruth(*answer, range);
    }
    const FoldedConstant folded = FoldBinary(symbol.text, *left.constant, *right.constant);
    if (folded.value) return Operand{folded.value, KivOmbNetwork::kNone, range};
    if (!folded.error.empty()) {
      diagnostics_.Add(symbol.range, folded.error);
      return std::nullopt;
    }
  }
  const Row* row = FindRow(symbol, {&left, &right});
  if (row == nullptr) return std::nullopt;
  if (symbol.text == "*" && left.constant) return ApplyScaling(*row, left, right, range);
  if (symbol.text == "*" && right.constant) return ApplyScaling(*row, right, left, range);
  if (!CheckPropagates(*row, symbol, {&left, &right})) return std::nullopt;
  const bool constant_truth = GetConstantTruth(left) || GetConstantTruth(right);
  if (constant_truth && FoldConnective(symbol.text, true, true)) {
    return ApplyToConstantTruth(symbol, left, right);
  }
  return Post(*row, left, &right, true, range);
}

// The open operand alone decides: the value is constant, that operand or its negation.
std::optional<Operand> ExpressionCompiler::ApplyToConstantTruth(const Word& symbol,
                                                                const Operand& left,
                                                                const Operand& right) {
  const auto left_truth = GetConstantTruth(left);
  const auto right_truth = GetConstantTruth(right);
  const auto value_for = [&](bool open) {
    return *FoldConnective(symbol.text, left_truth.value_or(open), right_truth.value_or(open));
  };
  const SourceRange range = Join(left.range, right.range);
  if (value_for(false) == value_for(true)) return CompileTruth(value_for(true), range);
  const Operand& open = left_truth ? right : left;
  return value_for(true) ? open : ApplyUnary({"not", symbol.range}, open, range);
}

std::optional<Operand> ExpressionCompiler::ApplyRelation(const Word& symbol, const Operand& left,
                                                         const Operand& right) {
  const Row* row = FindRow(symbol, {&left, &right});
  if (row == nullptr || !CheckPropagates(*row, symbol, {&left, &right})) return std::nullopt;
  if (!Post(*row, left, &right, false, Join(left.range, right.range))) return std::nullopt;
  return right;
}

std::optional<Operand> ExpressionCompiler::ApplyScaling(const Row& row, const Operand& coefficient,
                                                        const Operand& operand, SourceRange range) {
  if (!IsModelInteger(*coefficient.constant)) {
    diagnostics_.Add(coefficient.range, OutOfRange(*coefficient.constant));
    return std::nullopt;
  }
  const auto result = AddVariable(*row.GetResult(), range);
  if (!result || !budget_.Spend(1, range, diagnostics_)) return std::nullopt;
  const LinearTerm terms[] = {{*coefficient.constant, operand.variable}, {-1, *result}};
  model_.AddOrigin(PostLinear(model_.GetNetwork(), terms, LinearRelation::kEqual, 0), range);
  return Operand{std::nullopt, *result, range};
}

const KivOmbiCompoundObjectDescriptor* ExpressionCompiler::FindRow(
    const Word& symbol, const std::vector<const Operand*>& operands) {
  std::vector<const KivOmbiObjectDescriptor*> kinds;
  kinds.reserve(operands.size());
  for (const Operand* operand : operands) kinds.push_back(&GetKind(*operand));
  const KivOmbiOperatorTable& operators = vocabulary_.GetOperators();
  if (const Row* row = operators.Resolve(symbol.text, kinds)) return row;

  std::vector<std::string> notes;
  const auto count = static_cast<unsigned>(operands.size());
  for (const Row* row : operators.FindRows(symbol.text, count)) notes.push_back(DescribeRow(*row));
  if (notes.empty()) {
    diagnostics_.Add(symbol.range, "no module that is loaded has an operator '" + symbol.text +
                                       "' with " + std::to_string(count) +
                                       (count == 1 ? " operand" : " operands"));
  } else {
    notes.insert(notes.begin(), '\'' + symbol.text + "' is known for:");
    if (symbol.text == "not" || IsConnective(GetPrecedence(symbol.text))) {
      notes.push_back("'x == 1' has a truth value; 'x = 1' asserts and binds looser");
    }
    if (symbol.text == "=>") notes.push_back("greater or equal is written '>='");
    diagnostics_.Add(symbol.range,
                     "operator '" + symbol.text + "' is not known for " + DescribeKinds(operands),
                     notes);
  }
  return nullptr;
}

bool ExpressionCompiler::CheckPropagates(const Row& row, const Word& symbol,
                                         const std::vector<const Operand*>& operands) {
  if (row.GetConstraint()->CanPropagate()) return true;
  diagnostics_.Add(symbol.range, "operator '" + symbol.text + "' on " + DescribeKinds(operands) +
                                     ": its constraint (" + row.GetConstraint()->GetName() +
                                     ") cannot propagate yet");
  return false;
}

std::optional<Operand> ExpressionCompiler::Post(const Row& row, const Operand& left,
                                                const Operand* right, bool has_result,
                                                SourceRange range) {
  const auto first = GetVariable(left);
  const auto second = right != nullptr ? GetVariable(*right) : std::optional(KivOmbNetwork::kNone);
  if (!first || !second || !budget_.Spend(1, range, diagnostics_)) return std::nullopt;
  KivOmbNetwork::VariableId result = KivOmbNetwork::kNone;
  if (has_result) {
    const auto added = AddVariable(*row.GetResult(), range);
    if (!added) return std::nullopt;
    result = *added;
  }
  model_.AddOrigin(model_.GetNetwork().Post(row, *first, *second, result), range);
  return Operand{std::nullopt, result, range};
}

std::string ExpressionCompiler::DescribeKinds(const std::vector<const Operand*>& operands) const {
  std::string text;
  for (const Operand* operand : operands) {
    if (!text.empty()) text += ", ";
    text += GetKind(*operand).GetName();
  }
  return text;
}

}  // namespace kiv
