#include "solver/language/operator_compiler.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "framework/abstract_types/integer.h"
#include "solver/constraints/extremum.h"
#include "solver/language/constant_folding.h"
#include "solver/language/formula.h"
#include "solver/language/operator_precedence.h"
#include "solver/language/truth_posting.h"

namespace kiv {
namespace {

struct Relation {
  std::string_view assertion;
  std::string_view question;
  LinearRelation meaning;
};

constexpr std::array kRelations = {Relation{"=", "==", LinearRelation::kEqual},
                                   Relation{"<>", "", LinearRelation::kUnequal},
                                   Relation{"<", "<<", LinearRelation::kLess},
                                   Relation{"<=", "<==", LinearRelation::kLessOrEqual},
                                   Relation{">", ">>", LinearRelation::kGreater},
                                   Relation{">=", ">==", LinearRelation::kGreaterOrEqual}};

std::optional<LinearRelation> FindRelation(std::string_view symbol) {
  for (const Relation& relation : kRelations) {
    if (symbol == relation.assertion || symbol == relation.question) return relation.meaning;
  }
  return std::nullopt;
}

Operand MakeConstant(std::int64_t value, SourceRange range) {
  return {value, KivOmbNetwork::kNone, range};
}

Operand MakeVariable(KivOmbNetwork::VariableId variable, SourceRange range) {
  return {std::nullopt, variable, range};
}

Operand MakeSum(LinearExpression sum, const KivOmbiObjectDescriptor& kind, SourceRange range) {
  return {std::nullopt, KivOmbNetwork::kNone, range, &kind, std::move(sum)};
}

bool AreOne(const Operand& left, const Operand& right) {
  return left.variable != KivOmbNetwork::kNone && left.variable == right.variable;
}

}  // namespace

std::optional<Operand> OperatorCompiler::ApplyUnary(const Word& symbol, const Operand& operand,
                                                    SourceRange range) {
  if (operand.constant) {
    const FoldedConstant folded = FoldUnary(symbol.text, *operand.constant);
    if (folded.value) return MakeConstant(*folded.value, range);
    if (!folded.error.empty()) {
      builder_.GetDiagnostics().Add(symbol.range, folded.error);
      return std::nullopt;
    }
  }
  const Row* row = FindRow(symbol, {&operand});
  if (row == nullptr) return std::nullopt;
  if (symbol.text == "not" && builder_.IsTruth(operand)) return Negate(operand, range, builder_);
  if (symbol.text == "-" && builder_.IsInteger(operand)) {
    LinearExpression sum = NetworkBuilder::ToSum(operand);
    return sum.Scale(-1) ? MakeSum(std::move(sum), *row->GetResult(), range)
                         : ReportOverflow(range);
  }
  return Post(*row, symbol, operand, nullptr, range);
}

std::optional<Operand> OperatorCompiler::ApplyBinary(const Word& symbol, Operand left,
                                                     const Operand& right) {
  if (GetPrecedence(symbol.text) == Precedence::kRelation) {
    return ApplyRelation(symbol, left, right);
  }
  const SourceRange range = Join(left.range, right.range);
  if (left.constant && right.constant) {
    if (const auto answer = FoldQuestion(symbol.text, *left.constant, *right.constant)) {
      return builder_.GetTruth(*answer, range);
    }
    const FoldedConstant folded = FoldBinary(symbol.text, *left.constant, *right.constant);
    if (folded.value) return MakeConstant(*folded.value, range);
    if (!folded.error.empty()) {
      builder_.GetDiagnostics().Add(symbol.range, folded.error);
      return std::nullopt;
    }
  }
  const Row* row = FindRow(symbol, {&left, &right});
  if (row == nullptr) return std::nullopt;
  if (builder_.IsInteger(left) && builder_.IsInteger(right)) {
    const bool scales = symbol.text == "*" && (left.constant || right.constant);
    if (symbol.text == "+" || symbol.text == "-" || scales) {
      return ApplyLinear(*row, symbol, std::move(left), right);
    }
    if (FindRelation(symbol.text)) return ApplyQuestion(*row, symbol, left, right);
  }
  const bool constant_truth = builder_.GetConstantTruth(left) || builder_.GetConstantTruth(right);
  if (constant_truth && FoldConnective(symbol.text, true, true)) {
    return ApplyToConstantTruth(symbol, left, right);
  }
  return Post(*row, symbol, left, &right, range);
}

std::optional<Operand> OperatorCompiler::ApplyConnective(const Word& symbol,
                                                         std::vector<Operand> operands,
                                                         SourceRange range) {
  const auto which = symbol.text == "and" ? Junction::kAll : Junction::kAny;
  if (operands.empty()) return builder_.GetTruth(which == Junction::kAll, range);
  const KivOmbiObjectDescriptor* kind = nullptr;
  for (std::size_t i = 0; i == 0 || i + 1 < operands.size(); ++i) {
    const Row* row =
        FindRow(symbol, {&operands[i], &operands[std::min(i + 1, operands.size() - 1)]});
    if (row == nullptr) return std::nullopt;
    kind = row->GetResult();
  }
  // a => b => c is not a, or not b, or c.
  const std::size_t premises = symbol.text == "=>" ? operands.size() - 1 : 0;
  for (std::size_t i = 0; i < premises; ++i) {
    auto negation = Negate(operands[i], operands[i].range, builder_);
    if (!negation) return std::nullopt;
    operands[i] = *std::move(negation);
  }
  return Connect(which, std::move(operands), *kind, range, builder_);
}

std::optional<Operand> OperatorCompiler::ApplyExtremum(const Word& symbol,
                                                       const std::vector<Operand>& operands,
                                                       SourceRange range) {
  std::optional<Operand> constant;
  std::vector<Operand> parts;
  for (const Operand& operand : operands) {
    if (!operand.constant) {
      parts.push_back(operand);
    } else {
      constant = constant ? ApplyBinary(symbol, *constant, operand) : operand;
    }
  }
  if (constant) parts.push_back(*constant);
  if (parts.size() == 1 && builder_.IsInteger(parts.front())) return parts.front();
  if (parts.size() <= 2) return ApplyBinary(symbol, parts.front(), parts.back());

  Operand value = parts.front();
  ValueWidth width = builder_.GetWidths().Of(value);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const Row* row = FindRow(symbol, {&value, &parts[i]});
    if (row == nullptr) return std::nullopt;
    value = MakeSum({}, *row->GetResult(), range);
    const ValueWidth next = builder_.GetWidths().Of(parts[i]);
    width = ValueWidths::Apply(symbol.text, width, &next);
  }
  const auto result = builder_.AddResult(*value.kind, width, range);
  auto variables = builder_.GetVariables(parts);
  if (!result || !variables) return std::nullopt;
  variables->insert(variables->begin(), *result);
  const auto which = symbol.text == "/\\" ? Extremum::kLeast : Extremum::kGreatest;
  if (!builder_.Post<Extremum>(*variables, range, which)) return std::nullopt;
  return MakeVariable(*result, range);
}

std::optional<Operand> OperatorCompiler::ApplyLinear(const Row& row, const Word& symbol,
                                                     Operand left, const Operand& right) {
  const SourceRange range = Join(left.range, right.range);
  if (symbol.text == "*") {
    const std::int64_t factor = left.constant ? *left.constant : *right.constant;
    LinearExpression sum = NetworkBuilder::ToSum(left.constant ? right : std::move(left));
    if (!sum.Scale(factor)) return ReportOverflow(range);
    return MakeSum(std::move(sum), *row.GetResult(), range);
  }
  LinearExpression sum = NetworkBuilder::ToSum(std::move(left));
  const LinearExpression other = NetworkBuilder::ToSum(right);
  const bool fits = symbol.text == "+" ? sum.Add(other) : sum.Subtract(other);
  return fits ? MakeSum(std::move(sum), *row.GetResult(), range) : ReportOverflow(range);
}

std::optional<Operand> OperatorCompiler::ApplyQuestion(const Row& row, const Word& symbol,
                                                       const Operand& left, const Operand& right) {
  Operand question;
  question.range = Join(left.range, right.range);
  question.kind = row.GetResult();
  question.formula = std::make_shared<const Formula>(Formula{Formula::Question{
      NetworkBuilder::ToSum(left), *FindRelation(symbol.text), NetworkBuilder::ToSum(right)}});
  return question;
}

// The open operand alone decides: the value is constant, that operand or its negation.
std::optional<Operand> OperatorCompiler::ApplyToConstantTruth(const Word& symbol,
                                                              const Operand& left,
                                                              const Operand& right) {
  const auto left_truth = builder_.GetConstantTruth(left);
  const auto right_truth = builder_.GetConstantTruth(right);
  const auto value_for = [&](bool open) {
    return *FoldConnective(symbol.text, left_truth.value_or(open), right_truth.value_or(open));
  };
  const SourceRange range = Join(left.range, right.range);
  if (value_for(false) == value_for(true)) return builder_.GetTruth(value_for(true), range);
  const Operand& open = left_truth ? right : left;
  return value_for(true) ? open : Negate(open, range, builder_);
}

// Between single variables the kinds' own operations do best. A sum goes into one constraint as a
// whole, and so does a variable related to itself, which decides at once.
std::optional<Operand> OperatorCompiler::ApplyRelation(const Word& symbol, const Operand& left,
                                                       const Operand& right) {
  const Row* row = FindRow(symbol, {&left, &right});
  if (row == nullptr) return std::nullopt;
  const SourceRange range = Join(left.range, right.range);
  if (builder_.IsInteger(left) && builder_.IsInteger(right)) {
    if (left.IsSum() || right.IsSum() || AreOne(left, right)) {
      const bool posted = builder_.PostSum(NetworkBuilder::ToSum(left), *FindRelation(symbol.text),
                                           NetworkBuilder::ToSum(right), range);
      return posted ? std::optional(right) : std::nullopt;
    }
  } else if (symbol.text == "=" && builder_.IsTruth(left) && builder_.IsTruth(right)) {
    const bool is_left = left.formula != nullptr;
    if (is_left || right.formula != nullptr) {
      const auto variable = builder_.GetVariable(is_left ? right : left);
      if (!variable) return std::nullopt;
      Operand formula = is_left ? left : right;
      const auto constant = builder_.GetConstantTruth(MakeVariable(*variable, range));
      const bool posted = constant ? AssertTruth(formula, *constant, builder_)
                                   : PostEquivalence(formula, *variable, builder_);
      return posted ? std::optional(MakeVariable(*variable, right.range)) : std::nullopt;
    }
  }
  const auto first = builder_.GetVariable(left);
  const auto second = builder_.GetVariable(right);
  if (!first || !second || !builder_.PostRow(*row, *first, *second, KivOmbNetwork::kNone, range)) {
    return std::nullopt;
  }
  return right.kind != nullptr ? MakeVariable(*second, right.range) : right;
}

const KivOmbiCompoundObjectDescriptor* OperatorCompiler::FindRow(
    const Word& symbol, const std::vector<const Operand*>& operands) {
  std::vector<const KivOmbiObjectDescriptor*> kinds;
  kinds.reserve(operands.size());
  for (const Operand* operand : operands) kinds.push_back(&builder_.GetKind(*operand));
  const KivOmbiOperatorTable& operators = builder_.GetVocabulary().GetOperators();
  if (const Row* row = operators.Resolve(symbol.text, kinds)) {
    return CheckPropagates(*row, symbol, operands) ? row : nullptr;
  }

  Diagnostics& diagnostics = builder_.GetDiagnostics();
  std::vector<std::string> notes;
  const auto count = static_cast<unsigned>(operands.size());
  for (const Row* row : operators.FindRows(symbol.text, count)) notes.push_back(DescribeRow(*row));
  if (notes.empty()) {
    diagnostics.Add(symbol.range, "no module that is loaded has an operator '" + symbol.text +
                                      "' with " + std::to_string(count) +
                                      (count == 1 ? " operand" : " operands"));
    return nullptr;
  }
  notes.insert(notes.begin(), '\'' + symbol.text + "' is known for:");
  if (symbol.text == "not" || IsConnective(GetPrecedence(symbol.text))) {
    notes.push_back("'x == 1' has a truth value; 'x = 1' asserts and binds looser");
  }
  if (symbol.text == "=>") notes.push_back("greater or equal is written '>='");
  diagnostics.Add(symbol.range,
                  "operator '" + symbol.text + "' is not known for " + DescribeKinds(operands),
                  notes);
  return nullptr;
}

bool OperatorCompiler::CheckPropagates(const Row& row, const Word& symbol,
                                       const std::vector<const Operand*>& operands) {
  if (row.GetConstraint()->CanPropagate()) return true;
  builder_.GetDiagnostics().Add(symbol.range, "operator '" + symbol.text + "' on " +
                                                  DescribeKinds(operands) + ": its constraint (" +
                                                  row.GetConstraint()->GetName() +
                                                  ") cannot propagate yet");
  return false;
}

std::optional<Operand> OperatorCompiler::Post(const Row& row, const Word& symbol,
                                              const Operand& left, const Operand* right,
                                              SourceRange range) {
  const auto first = builder_.GetVariable(left);
  const auto second =
      right != nullptr ? builder_.GetVariable(*right) : std::optional(KivOmbNetwork::kNone);
  if (!first || !second) return std::nullopt;
  const KivOmbiObjectDescriptor& kind = *row.GetResult();
  if (KivOmbiInteger::sDescriptor->IsMatched(&kind) == 0) {
    const auto result = builder_.AddVariable(kind, range);
    const bool posted = result && builder_.PostRow(row, *first, *second, *result, range);
    return posted ? std::optional(MakeVariable(*result, range)) : std::nullopt;
  }
  const ValueWidths& widths = builder_.GetWidths();
  const auto right_width = right != nullptr ? std::optional(widths.Of(*right)) : std::nullopt;
  const ValueWidth width =
      ValueWidths::Apply(symbol.text, widths.Of(left), right_width ? &*right_width : nullptr);
  const Row& chosen = ChooseRow(row, builder_.ChooseKind(kind, width));
  const auto result = builder_.AddVariable(*chosen.GetResult(), range);
  if (!result || !builder_.PostRow(chosen, *first, *second, *result, range)) return std::nullopt;
  builder_.GetWidths().Note(*result, width);
  return MakeVariable(*result, range);
}

// A row for all kinds with that result, if it has one.
const KivOmbiCompoundObjectDescriptor& OperatorCompiler::ChooseRow(
    const Row& row, const KivOmbiObjectDescriptor& result) const {
  if (&result == row.GetResult()) return row;
  const auto& operators = builder_.GetVocabulary().GetOperators();
  for (const Row* candidate : operators.FindRows(row.GetSymbol(), row.GetOperandCount())) {
    bool takes_all =
        candidate->GetResult() == &result && candidate->GetConstraint()->CanPropagate();
    for (unsigned i = 0; i < row.GetOperandCount(); ++i) {
      takes_all &= candidate->GetOperand(i) == KivOmbiInteger::sDescriptor;
    }
    if (takes_all) return *candidate;
  }
  return row;
}

std::optional<Operand> OperatorCompiler::ReportOverflow(SourceRange range) {
  builder_.GetDiagnostics().Add(range, "a coefficient of this sum does not fit 64 bits");
  return std::nullopt;
}

std::string OperatorCompiler::DescribeKinds(const std::vector<const Operand*>& operands) const {
  std::string text;
  for (const Operand* operand : operands) {
    if (!text.empty()) text += ", ";
    text += builder_.GetKind(*operand).GetName();
  }
  return text;
}

}  // namespace kiv
