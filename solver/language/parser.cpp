#include "solver/language/parser.h"

#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <tao/pegtl/contrib/limit_depth.hpp>
#include <tao/pegtl/contrib/parse_tree.hpp>
#include <utility>

#include "solver/language/grammar.h"
#include "solver/language/operator_precedence.h"

namespace kiv {
namespace {

namespace g = grammar;
namespace pegtl = tao::pegtl;
using Node = pegtl::parse_tree::node;

// What a rule missed, and where.
struct SyntaxError {
  std::size_t offset;
  const char* expected;
  bool closes_statement;
};

template <class Rule>
struct Control : pegtl::normal<Rule> {
  template <class Input, class... States>
  [[noreturn]] static void raise(const Input& in, States&&...) {
    constexpr bool closes_statement = requires { Rule::kClosesStatement; };
    throw SyntaxError{in.byte(), Rule::kName, closes_statement};
  }
};

template <class Rule>
struct Action : pegtl::nothing<Rule> {};
template <>
struct Action<g::operand> : pegtl::limit_depth<kDeepestNesting> {};
template <>
struct Action<g::negation> : pegtl::limit_depth<kDeepestNesting> {};
template <>
struct Action<g::loop> : pegtl::limit_depth<kDeepestNesting> {};

// The rules that leave a node.
template <class Rule>
using Selector = pegtl::parse_tree::selector<
    Rule, pegtl::parse_tree::store_content::on<
              g::number, g::digits, g::truth, g::group, g::reference, g::word_call, g::identifier,
              g::called_word, g::arguments, g::index, g::unary, g::unary_operator, g::cast,
              g::kind_word, g::power, g::power_operator, g::operand, g::binary_operator,
              g::not_word, g::negated, g::negation, g::inner_operator, g::expression, g::kind,
              g::any_domain, g::set_domain, g::interval_domain, g::value_domain, g::sentence,
              g::parameter, g::loop_range, g::loop, g::solve>>;

// Makes the syntax tree from the nodes of a parse.
class TreeBuilder {
 public:
  TreeBuilder(const SourceText& source, Diagnostics& diagnostics)
      : source_(source), diagnostics_(diagnostics) {}

  SyntaxTree BuildModel(const Node& root) {
    SyntaxTree tree;
    for (const auto& child : root.children) tree.statements.push_back(BuildStatement(*child));
    CheckEnd(tree);
    return tree;
  }

 private:
  SourceRange RangeOf(const Node& node) const {
    const auto begin =
        static_cast<std::uint32_t>(node.string_view().data() - source_.GetText().data());
    return {begin, begin + static_cast<std::uint32_t>(node.string_view().size())};
  }
  Word BuildWord(const Node& node) const { return {node.string(), RangeOf(node)}; }

  // The range of a node without the blanks that its tokens skipped.
  SourceRange TightRangeOf(const Node& node) const {
    SourceRange range = RangeOf(node);
    const SourceRange text = SkipBlanks(range.begin);
    range.begin = text.begin < range.end ? text.begin : range.end;
    return range;
  }

  // The empty range at the first token from `offset` on.
  SourceRange SkipBlanks(std::size_t offset) const {
    pegtl::memory_input<pegtl::tracking_mode::lazy> in(source_.GetText().substr(offset), "");
    pegtl::parse<g::blanks>(in);
    const auto token = static_cast<std::uint32_t>(offset + in.byte());
    return {token, token};
  }

  Statement BuildStatement(const Node& node) {
    Statement statement{TightRangeOf(node), Solve{}};
    if (node.is_type<g::parameter>()) {
      statement.form = BuildParameter(node);
    } else if (node.is_type<g::loop>()) {
      statement.form = BuildLoop(node);
    } else if (node.is_type<g::sentence>()) {
      if (node.children.size() == 1) {
        statement.form = Constraint{BuildExpression(*node.children.front())};
      } else {
        statement.form = BuildDeclaration(node);
      }
    }
    return statement;
  }

  Parameter BuildParameter(const Node& node) {
    return {BuildWord(*node.children[0]), BuildKind(*node.children[1]),
            BuildExpression(*node.children[2])};
  }

  Loop BuildLoop(const Node& node) {
    Loop loop;
    for (const auto& child : node.children) {
      if (child->is_type<g::loop_range>()) {
        loop.ranges.push_back({BuildWord(*child->children[0]), BuildExpression(*child->children[1]),
                               BuildExpression(*child->children[2])});
        continue;
      }
      loop.body.push_back(BuildStatement(*child));
      if (const auto* inner = std::get_if<Declaration>(&loop.body.back().form)) {
        diagnostics_.Add(inner->declarators.empty() ? loop.body.back().range
                                                    : inner->declarators.front().name.range,
                         "variables are declared outside of loops; an array holds one for each "
                         "value of the loop's variable");
        loop.body.pop_back();
      }
    }
    return loop;
  }

  Declaration BuildDeclaration(const Node& node) {
    Declaration declaration;
    for (const auto& child : node.children) {
      if (child->is_type<g::expression>()) {
        AddDeclarator(BuildExpression(*child), declaration);
      } else if (child->is_type<g::reference>()) {
        AddDeclarator(BuildPrimary(*child), declaration);
      } else if (child->is_type<g::kind>()) {
        declaration.kind = BuildKind(*child);
      } else {
        declaration.domain = BuildDomain(*child);
      }
    }
    return declaration;
  }

  void AddDeclarator(Expression expression, Declaration& declaration) {
    auto* reference = std::get_if<Reference>(&expression.form);
    if (reference == nullptr || source_.GetText()[expression.range.begin] == '(') {
      diagnostics_.Add(expression.range,
                       "a declaration names variables, as in 'x, y : enum int = [0, 9];'");
      return;
    }
    const SourceRange name{
        expression.range.begin,
        expression.range.begin + static_cast<std::uint32_t>(reference->name.size())};
    declaration.declarators.push_back(
        {{std::move(reference->name), name}, std::move(reference->index)});
  }

  Word BuildKind(const Node& node) const {
    Word kind{JoinWords(node), RangeOf(*node.children.front())};
    kind.range = Join(kind.range, RangeOf(*node.children.back()));
    return kind;
  }

  // The words of a kind as its display name has them.
  static std::string JoinWords(const Node& node) {
    std::string words;
    for (const auto& word : node.children) {
      if (!words.empty()) words += ' ';
      words += word->string_view();
    }
    return words;
  }

  Domain BuildDomain(const Node& node) {
    Domain domain;
    domain.range = TightRangeOf(node);
    if (node.is_type<g::any_domain>()) return domain;
    domain.form =
        node.is_type<g::interval_domain>() ? Domain::Form::kInterval : Domain::Form::kValues;
    for (const auto& child : node.children) domain.elements.push_back(BuildExpression(*child));
    return domain;
  }

  // Operands and operators in turn; precedence makes them a tree.
  Expression BuildExpression(const Node& node) {
    FlatExpression flat;
    for (const auto& child : node.children) {
      if (child->is_type<g::operand>()) {
        flat.operands.push_back(BuildOperand(*child));
      } else if (child->is_type<g::negation>()) {
        flat.operands.push_back(BuildNegation(*child));
      } else {
        flat.operators.push_back(BuildWord(*child));
      }
    }
    return GroupByPrecedence(std::move(flat), diagnostics_);
  }

  Expression BuildNegation(const Node& node) {
    Word symbol = BuildWord(*node.children[0]);
    auto operand = std::make_unique<Expression>(BuildExpression(*node.children[1]));
    const SourceRange range = Join(symbol.range, operand->range);
    return {range, UnaryApplication{std::move(symbol), std::move(operand)}};
  }

  Expression BuildOperand(const Node& node) {
    const Node& first = *node.children.front();
    if (first.is_type<g::unary>()) return BuildUnary(first);
    Expression base = BuildPrimary(first);
    if (node.children.size() == 1) return base;
    const Node& power = *node.children[1];
    FlatExpression flat;
    flat.operands.push_back(std::move(base));
    flat.operators.push_back(BuildWord(*power.children[0]));
    flat.operands.push_back(BuildOperand(*power.children[1]));
    return GroupByPrecedence(std::move(flat), diagnostics_);
  }

  Expression BuildUnary(const Node& node) {
    const Node& sign = *node.children[0];
    Word symbol = BuildWord(sign);
    if (sign.is_type<g::cast>()) symbol.text = '(' + JoinWords(sign) + ')';
    auto operand = std::make_unique<Expression>(BuildOperand(*node.children[1]));
    const SourceRange range = Join(symbol.range, operand->range);
    return {range, UnaryApplication{std::move(symbol), std::move(operand)}};
  }

  Expression BuildPrimary(const Node& node) {
    const SourceRange range = RangeOf(node);
    if (node.is_type<g::number>()) return {range, BuildNumber(*node.children.front())};
    if (node.is_type<g::truth>()) return {range, BooleanLiteral{node.string_view() == "true"}};
    if (node.is_type<g::group>()) {
      Expression inner = BuildExpression(*node.children.front());
      inner.range = range;
      return inner;
    }
    Word name = BuildWord(*node.children[0]);
    if (node.children.size() == 1) return {range, Reference{std::move(name.text), nullptr}};
    const Node& rest = *node.children[1];
    if (rest.is_type<g::index>()) {
      auto index = std::make_unique<Expression>(BuildExpression(*rest.children.front()));
      return {range, Reference{std::move(name.text), std::move(index)}};
    }
    Call call{std::move(name), {}};
    for (const auto& argument : rest.children) call.arguments.push_back(BuildExpression(*argument));
    return {range, std::move(call)};
  }

  IntegerLiteral BuildNumber(const Node& digits) {
    const std::string_view text = digits.string_view();
    IntegerLiteral literal{0};
    if (std::from_chars(text.data(), text.data() + text.size(), literal.value).ec != std::errc{}) {
      diagnostics_.Add(RangeOf(digits), "the number is too large: it does not fit 64 bits");
    }
    return literal;
  }

  void CheckEnd(const SyntaxTree& tree) {
    const auto is_solve = [](const Statement& statement) {
      return std::holds_alternative<Solve>(statement.form);
    };
    for (std::size_t i = 0; i + 1 < tree.statements.size(); ++i) {
      if (is_solve(tree.statements[i])) {
        diagnostics_.Add(tree.statements[i].range, "'solve;' must be the last statement");
      }
    }
    if (tree.statements.empty()) {
      diagnostics_.Add("the model is empty; it must end with 'solve;'");
    } else if (!is_solve(tree.statements.back())) {
      const std::uint32_t end = tree.statements.back().range.end;
      diagnostics_.Add(SourceRange{end, end}, "the model must end with 'solve;'");
    }
  }

  const SourceText& source_;
  Diagnostics& diagnostics_;
};

bool IsWordCharacter(char c) {
  return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9') || c == '_';
}

// The first token of `text`, for a message, and its length.
std::string DescribeToken(std::string_view text, std::size_t& length) {
  length = 0;
  if (text.empty()) return "the end of the model";
  while (length < text.size() && IsWordCharacter(text[length])) ++length;
  if (length > 0) return '\'' + std::string(text.substr(0, length)) + '\'';
  length = 1;
  const auto byte = static_cast<unsigned char>(text.front());
  if (0x20 < byte && byte < 0x7F) return std::string("'") + text.front() + '\'';
  constexpr char kDigits[] = "0123456789ABCDEF";
  return std::string("the byte 0x") + kDigits[byte / 16] + kDigits[byte % 16];
}

void Report(const SyntaxError& error, const SourceText& source, Diagnostics& diagnostics) {
  const std::string_view text = source.GetText();
  pegtl::memory_input<pegtl::tracking_mode::lazy> rest(text.substr(error.offset), "");
  pegtl::parse<g::blanks>(rest);
  const std::size_t token = error.offset + rest.byte();

  std::size_t length = 0;
  const std::string found = DescribeToken(text.substr(token), length);
  SourceRange range{static_cast<std::uint32_t>(token), static_cast<std::uint32_t>(token + length)};
  // What is missing at the end of a line or of the model is missed there.
  const bool next_line =
      text.substr(error.offset, token - error.offset).find('\n') != std::string_view::npos;
  if (token == text.size() || (error.closes_statement && next_line)) {
    range.begin = range.end = static_cast<std::uint32_t>(error.offset);
  }
  diagnostics.Add(range, std::string("expected ") + error.expected + ", found " + found);
}

}  // namespace

std::optional<SyntaxTree> ParseModel(const SourceText& source, Diagnostics& diagnostics) {
  const std::string_view text = source.GetText();
  if (text.size() > SourceText::kMaxSize) {
    diagnostics.Add("the model is too long: more than " + std::to_string(SourceText::kMaxSize) +
                    " bytes");
    return std::nullopt;
  }
  try {
    pegtl::memory_input<pegtl::tracking_mode::lazy> in(text.data(), text.size(), "");
    const auto root = pegtl::parse_tree::parse<g::model, Selector, Action, Control>(in);
    SyntaxTree tree = TreeBuilder(source, diagnostics).BuildModel(*root);
    if (diagnostics.IsEmpty()) return tree;
  } catch (const SyntaxError& error) {
    Report(error, source, diagnostics);
  } catch (const pegtl::parse_error& error) {
    // The only error of the library's own that can arise is that of limit_depth.
    const auto offset = static_cast<std::uint32_t>(error.positions().front().byte);
    diagnostics.Add(SourceRange{offset, offset},
                    "nested more than " + std::to_string(kDeepestNesting) + " levels deep");
  }
  return std::nullopt;
}

}  // namespace kiv
