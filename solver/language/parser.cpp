#include "solver/language/parser.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <tao/pegtl/contrib/limit_depth.hpp>
#include <tao/pegtl/contrib/parse_tree.hpp>

#include "solver/language/grammar.h"
#include "solver/language/syntax_error.h"
#include "solver/language/token_description.h"
#include "solver/language/tree_builder.h"

namespace kiv {
namespace {

namespace g = grammar;
namespace pegtl = tao::pegtl;

template <class Rule>
struct Action : pegtl::nothing<Rule> {};
template <>
struct Action<g::operand> : pegtl::limit_depth<kDeepestNesting> {};
template <>
struct Action<g::negation> : pegtl::limit_depth<kDeepestNesting> {};
template <>
struct Action<g::loop> : pegtl::limit_depth<kDeepestNesting> {};
template <>
struct Action<g::conditional_statement> : pegtl::limit_depth<kDeepestNesting> {};

// The rules that leave a node.
template <class Rule>
using Selector = pegtl::parse_tree::selector<
    Rule, pegtl::parse_tree::store_content::on<
              g::number, g::digits, g::truth, g::group, g::list, g::set, g::conditional_expression,
              g::reference, g::word_call, g::identifier, g::called_word, g::arguments, g::aggregate,
              g::generator, g::index, g::star, g::unary, g::unary_operator, g::cast, g::kind_word,
              g::power, g::power_operator, g::operand, g::binary_operator, g::not_word, g::negated,
              g::negation, g::inner_operator, g::expression, g::kind, g::any_domain,
              g::interval_domain, g::dimensions, g::open_dimension, g::parameter, g::sentence,
              g::annotations, g::loop, g::block, g::conditional_statement, g::solve,
              g::all_solutions, g::optimum, g::optimum_word, g::branch, g::show, g::quoted_text>>;

void Report(const SyntaxError& error, const SourceText& source, Diagnostics& diagnostics) {
  const std::string_view text = source.GetText();
  pegtl::memory_input<pegtl::tracking_mode::lazy> rest(text.substr(error.offset), "");
  pegtl::parse<g::blanks>(rest);
  const std::size_t token = error.offset + rest.byte();

  const TokenDescription found = DescribeToken(text.substr(token));
  SourceRange range{static_cast<std::uint32_t>(token),
                    static_cast<std::uint32_t>(token + found.length)};
  // What is missing at the end of a line or of the model is missed there.
  const bool next_line =
      text.substr(error.offset, token - error.offset).find('\n') != std::string_view::npos;
  if (token == text.size() || (error.closes_statement && next_line)) {
    range.begin = range.end = static_cast<std::uint32_t>(error.offset);
  }
  diagnostics.Add(range, std::string("expected ") + error.expected + ", found " + found.text);
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
    const auto root = pegtl::parse_tree::parse<g::model, Selector, Action, SyntaxControl>(in);
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
