#include "solver/language/expression_builder.h"

#include <charconv>
#include <memory>
#include <string_view>
#include <utility>

#include "solver/language/grammar.h"

namespace kiv {

namespace g = grammar;

// Operands and operators in turn; precedence makes them a tree.
Expression ExpressionBuilder::Build(const ParseNode& node) {
  FlatExpression flat;
  for (const auto& child : node.children) {
    if (child->is_type<g::operand>()) {
      flat.operands.push_back(BuildOperand(*child));
    } else if (child->is_type<g::negation>()) {
      flat.operands.push_back(BuildNegation(*child));
    } else {
      flat.operators.push_back(WordOf(*child, source_));
    }
  }
  return GroupByPrecedence(std::move(flat), reading_, diagnostics_);
}

ExpressionPointer ExpressionBuilder::BuildPointer(const ParseNode& node) {
  return std::make_unique<Expression>(Build(node));
}

Expression ExpressionBuilder::BuildQuestion(const ParseNode& node) {
  const Reading around = std::exchange(reading_, Reading::kAsking);
  Expression question = Build(node);
  reading_ = around;
  return question;
}

Generator ExpressionBuilder::BuildGenerator(const ParseNode& node) {
  Generator generator{WordOf(*node.children[0], source_), BuildPointer(*node.children[1]), nullptr};
  if (node.children.size() > 2) {
    generator.condition = std::make_unique<Expression>(BuildQuestion(*node.children[2]));
  }
  return generator;
}

std::string ExpressionBuilder::JoinWords(const ParseNode& node) {
  std::string words;
  for (const auto& word : node.children) {
    if (!words.empty()) words += ' ';
    words += word->string_view();
  }
  return words;
}

Expression ExpressionBuilder::BuildNegation(const ParseNode& node) {
  Word symbol = WordOf(*node.children[0], source_);
  ExpressionPointer operand = BuildPointer(*node.children[1]);
  const SourceRange range = Join(symbol.range, operand->range);
  return {range, UnaryApplication{std::move(symbol), std::move(operand)}};
}

Expression ExpressionBuilder::BuildOperand(const ParseNode& node) {
  const ParseNode& first = *node.children.front();
  if (first.is_type<g::unary>()) return BuildUnary(first);
  Expression base = BuildPrimary(first);
  if (node.children.size() == 1) return base;
  const ParseNode& power = *node.children[1];
  FlatExpression flat;
  flat.operands.push_back(std::move(base));
  flat.operators.push_back(WordOf(*power.children[0], source_));
  flat.operands.push_back(BuildOperand(*power.children[1]));
  return GroupByPrecedence(std::move(flat), reading_, diagnostics_);
}

Expression ExpressionBuilder::BuildUnary(const ParseNode& node) {
  const ParseNode& sign = *node.children[0];
  Word symbol = WordOf(sign, source_);
  if (sign.is_type<g::cast>()) symbol.text = '(' + JoinWords(sign) + ')';
  auto operand = std::make_unique<Expression>(BuildOperand(*node.children[1]));
  const SourceRange range = Join(symbol.range, operand->range);
  return {range, UnaryApplication{std::move(symbol), std::move(operand)}};
}

Expression ExpressionBuilder::BuildPrimary(const ParseNode& node) {
  const SourceRange range = RangeOf(node, source_);
  if (node.is_type<g::number>()) return {range, BuildNumber(*node.children.front())};
  if (node.is_type<g::truth>()) return {range, BooleanLiteral{node.string_view() == "true"}};
  if (node.is_type<g::list>()) return BuildElements(node, false);
  if (node.is_type<g::set>()) return BuildElements(node, true);
  if (node.is_type<g::conditional_expression>()) return BuildConditional(node);
  if (node.is_type<g::group>()) {
    Expression inner = Build(*node.children.front());
    inner.range = range;
    return inner;
  }
  Word name = WordOf(*node.children[0], source_);
  if (node.children.size() == 1) return {range, Reference{std::move(name.text), {}}};
  const ParseNode& rest = *node.children[1];
  if (rest.is_type<g::index>()) return BuildElement(std::move(name), rest, range);
  if (rest.is_type<g::aggregate>()) return BuildAggregate(std::move(name), rest, range);
  return BuildCall(std::move(name), rest, range);
}

Expression ExpressionBuilder::BuildElements(const ParseNode& node, bool is_set) {
  const SourceRange range = RangeOf(node, source_);
  std::vector<Expression> elements;
  std::vector<Generator> generators;
  for (const auto& child : node.children) {
    if (child->is_type<g::generator>()) {
      generators.push_back(BuildGenerator(*child));
    } else {
      elements.push_back(Build(*child));
    }
  }
  if (!generators.empty()) {
    auto element = std::make_unique<Expression>(std::move(elements.front()));
    return {range, Comprehension{is_set, std::move(element), std::move(generators)}};
  }
  if (is_set) return {range, SetLiteral{std::move(elements)}};
  return {range, ListLiteral{std::move(elements)}};
}

Expression ExpressionBuilder::BuildConditional(const ParseNode& node) {
  auto condition = std::make_unique<Expression>(BuildQuestion(*node.children[0]));
  return {RangeOf(node, source_),
          ConditionalExpression{std::move(condition), BuildPointer(*node.children[1]),
                                BuildPointer(*node.children[2])}};
}

Expression ExpressionBuilder::BuildAggregate(Word name, const ParseNode& rest, SourceRange range) {
  Aggregate aggregate{std::move(name), {}, BuildPointer(*rest.children.back())};
  for (std::size_t i = 0; i + 1 < rest.children.size(); ++i) {
    aggregate.generators.push_back(BuildGenerator(*rest.children[i]));
  }
  return {range, std::move(aggregate)};
}

Expression ExpressionBuilder::BuildCall(Word name, const ParseNode& arguments, SourceRange range) {
  Call call{std::move(name), {}};
  for (const auto& argument : arguments.children) call.arguments.push_back(Build(*argument));
  return {range, std::move(call)};
}

Expression ExpressionBuilder::BuildElement(Word name, const ParseNode& index, SourceRange range) {
  Reference reference{std::move(name.text), {}};
  for (const auto& item : index.children) {
    reference.indices.push_back(item->is_type<g::star>() ? nullptr : BuildPointer(*item));
  }
  return {range, std::move(reference)};
}

IntegerLiteral ExpressionBuilder::BuildNumber(const ParseNode& digits) {
  const std::string_view text = digits.string_view();
  IntegerLiteral literal{0};
  if (std::from_chars(text.data(), text.data() + text.size(), literal.value).ec != std::errc{}) {
    diagnostics_.Add(RangeOf(digits, source_), "the number is too large: it does not fit 64 bits");
  }
  return literal;
}

}  // namespace kiv
