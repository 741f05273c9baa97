#pragma once

#include <tao/pegtl.hpp>

// The words and signs of models, for the grammar alone. Every token skips the blanks and comments
// before it. A rule that can be asked for by `expect` says by `kName` what is missing where it
// fails, and by `kClosesStatement` that it is missed behind what stands before it rather than at
// what follows.
namespace kiv::grammar {

namespace p = tao::pegtl;

// `Rule`, or an error at the place where it should begin.
template <class Rule>
struct expect : p::sor<Rule, p::raise<Rule>> {};

struct comment : p::seq<p::one<'#'>, p::until<p::eolf>> {};
struct blanks : p::star<p::sor<p::space, comment>> {};

template <char... Characters>
struct symbol : p::seq<blanks, p::string<Characters...>> {};

// A word of the language, not the beginning of a longer one.
template <class Letters>
struct whole_word : p::seq<Letters, p::not_at<p::identifier_other>> {};

// Words that stand before an operand.
struct unary_word
    : p::sor<whole_word<TAO_PEGTL_STRING("abs")>, whole_word<TAO_PEGTL_STRING("next")>,
             whole_word<TAO_PEGTL_STRING("prev")>, whole_word<TAO_PEGTL_STRING("sign")>> {};
struct not_word : whole_word<TAO_PEGTL_STRING("not")> {};

// Words between operands.
struct mod_word : whole_word<TAO_PEGTL_STRING("mod")> {};
struct div_word : whole_word<TAO_PEGTL_STRING("div")> {};
struct and_word : whole_word<TAO_PEGTL_STRING("and")> {};
struct or_word : whole_word<TAO_PEGTL_STRING("or")> {};
struct xor_word : whole_word<TAO_PEGTL_STRING("xor")> {};
struct in_word : whole_word<TAO_PEGTL_STRING("in")> {};
struct binary_word : p::sor<mod_word, div_word, and_word, or_word, xor_word, in_word> {};

// Words behind an expression that do not go on with it.
struct where_word : whole_word<TAO_PEGTL_STRING("where")> {};
struct then_word : whole_word<TAO_PEGTL_STRING("then")> {};
struct else_word : whole_word<TAO_PEGTL_STRING("else")> {};
struct with_word : whole_word<TAO_PEGTL_STRING("with")> {};
struct by_word : whole_word<TAO_PEGTL_STRING("by")> {};
struct ending_word : p::sor<where_word, then_word, else_word, with_word, by_word> {};

// Words that are values.
struct any_word : whole_word<TAO_PEGTL_STRING("Any")> {};
struct true_word : whole_word<TAO_PEGTL_STRING("true")> {};
struct false_word : whole_word<TAO_PEGTL_STRING("false")> {};
struct value_word : p::sor<any_word, true_word, false_word> {};

// Words that begin a statement; `if` an expression, too.
struct param_word : whole_word<TAO_PEGTL_STRING("param")> {};
struct for_word : whole_word<TAO_PEGTL_STRING("for")> {};
struct if_word : whole_word<TAO_PEGTL_STRING("if")> {};
struct branch_word : whole_word<TAO_PEGTL_STRING("branch")> {};
struct show_word : whole_word<TAO_PEGTL_STRING("show")> {};
struct solve_word : whole_word<TAO_PEGTL_STRING("solve")> {};
struct minimize_word : whole_word<TAO_PEGTL_STRING("minimize")> {};
struct maximize_word : whole_word<TAO_PEGTL_STRING("maximize")> {};
struct statement_word : p::sor<param_word, for_word, if_word, branch_word, show_word, solve_word,
                               minimize_word, maximize_word> {};

struct keyword
    : p::sor<unary_word, not_word, binary_word, ending_word, value_word, statement_word> {};

// Words with a meaning in one place that are names everywhere else.
struct all_word : whole_word<TAO_PEGTL_STRING("all")> {};
struct on_word : whole_word<TAO_PEGTL_STRING("on")> {};

struct identifier : p::seq<p::not_at<keyword>, p::identifier> {};
struct name : p::seq<blanks, identifier> {
  static constexpr const char* kName = "a name";
};

// A word that must come next, with the text for the error when it does not.
template <class Letters>
struct next_word : p::seq<blanks, Letters> {};
struct in_sign : next_word<in_word> {
  static constexpr const char* kName = "'in'";
};
struct then_sign : next_word<then_word> {
  static constexpr const char* kName = "an operator or 'then'";
};
struct else_sign : next_word<else_word> {
  static constexpr const char* kName = "an operator or 'else'";
};
struct on_sign : next_word<on_word> {
  static constexpr const char* kName = "'on'";
};
struct by_sign : next_word<by_word> {
  static constexpr const char* kName = "an operator, ',' or 'by'";
};

template <char Character>
struct punctuation : symbol<Character> {
  static constexpr char kText[] = {'\'', Character, '\'', '\0'};
  static constexpr const char* kName = kText;
};
struct colon : punctuation<':'> {};
struct comma : punctuation<','> {};
struct bar : punctuation<'|'> {};
struct equals_sign : punctuation<'='> {};
struct open_parenthesis : punctuation<'('> {};
struct open_brace : punctuation<'{'> {};
struct semicolon : punctuation<';'> {
  static constexpr bool kClosesStatement = true;
};
struct end_of_statement : symbol<';'> {
  static constexpr const char* kName = "an operator or ';'";
  static constexpr bool kClosesStatement = true;
};
struct end_of_list : symbol<';'> {
  static constexpr const char* kName = "',' or ';'";
  static constexpr bool kClosesStatement = true;
};

// Behind an expression.
template <char Closing>
struct closing : symbol<Closing> {
  static constexpr const char* kName = Closing == ')' ? "an operator or ')'" : "an operator or ']'";
};
template <char Closing>
struct closing_list : symbol<Closing> {
  static constexpr const char* kName = Closing == ')'   ? "an operator, ',' or ')'"
                                       : Closing == ']' ? "an operator, ',' or ']'"
                                                        : "an operator, ',' or '}'";
};

// Text between quotes, on one line.
struct escape : p::one<'n', 't', '"', '\\'> {
  static constexpr const char* kName = "one of the escapes \\n, \\t, \\\" and \\\\";
};
struct quoted_character
    : p::sor<p::seq<p::one<'\\'>, expect<escape>>, p::not_one<'"', '\n', '\r'>> {};
struct quoted_text : p::star<quoted_character> {};
struct closing_quote : p::one<'"'> {
  static constexpr const char* kName = "'\"' on the same line";
  static constexpr bool kClosesStatement = true;
};
struct text : p::seq<blanks, p::one<'"'>, quoted_text, expect<closing_quote>> {};

}  // namespace kiv::grammar
