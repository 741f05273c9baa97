#pragma once

#include <tao/pegtl.hpp>

// The grammar of models, for the parser alone. Every token skips the blanks and comments before it.
// A rule that can be asked for by `expect` says by `kName` what is missing where it fails, and by
// `kClosesStatement` that it is missed behind what stands before it rather than at what follows.
// Precedence is not the grammar's business: an expression is operands with operators between them.
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
struct unary_word
    : p::sor<whole_word<TAO_PEGTL_STRING("abs")>, whole_word<TAO_PEGTL_STRING("next")>,
             whole_word<TAO_PEGTL_STRING("prev")>, whole_word<TAO_PEGTL_STRING("sign")>> {};
struct mod_word : whole_word<TAO_PEGTL_STRING("mod")> {};
struct div_word : whole_word<TAO_PEGTL_STRING("div")> {};
struct and_word : whole_word<TAO_PEGTL_STRING("and")> {};
struct or_word : whole_word<TAO_PEGTL_STRING("or")> {};
struct xor_word : whole_word<TAO_PEGTL_STRING("xor")> {};
struct binary_word : p::sor<mod_word, div_word, and_word, or_word, xor_word> {};
struct not_word : whole_word<TAO_PEGTL_STRING("not")> {};
struct any_word : whole_word<TAO_PEGTL_STRING("Any")> {};
struct true_word : whole_word<TAO_PEGTL_STRING("true")> {};
struct false_word : whole_word<TAO_PEGTL_STRING("false")> {};
struct param_word : whole_word<TAO_PEGTL_STRING("param")> {};
struct for_word : whole_word<TAO_PEGTL_STRING("for")> {};
struct in_word : whole_word<TAO_PEGTL_STRING("in")> {};
struct solve_word : whole_word<TAO_PEGTL_STRING("solve")> {};
struct keyword : p::sor<unary_word, binary_word, not_word, any_word, true_word, false_word,
                        param_word, for_word, in_word, solve_word> {};

struct identifier : p::seq<p::not_at<keyword>, p::identifier> {};
struct name : p::seq<blanks, identifier> {
  static constexpr const char* kName = "a name";
};

template <char Character>
struct punctuation : symbol<Character> {
  static constexpr char kText[] = {'\'', Character, '\'', '\0'};
  static constexpr const char* kName = kText;
};
struct colon : punctuation<':'> {};
struct comma : punctuation<','> {};
struct equals_sign : punctuation<'='> {};
struct end_of_statement : symbol<';'> {
  static constexpr const char* kName = "an operator or ';'";
  static constexpr bool kClosesStatement = true;
};
struct semicolon : punctuation<';'> {
  static constexpr bool kClosesStatement = true;
};

struct expression;
struct operand;
struct term;

template <char Closing>
struct closing : symbol<Closing> {
  static constexpr const char* kName = Closing == ')'   ? "an operator or ')'"
                                       : Closing == ']' ? "an operator or ']'"
                                                        : "an operator, ',' or '}'";
};

// Expressions.
struct digits : p::plus<p::digit> {};
struct number_end : p::not_at<p::identifier_first> {
  static constexpr const char* kName = "an operator after the number";
};
struct number : p::seq<digits, expect<number_end>> {};
struct truth : p::sor<true_word, false_word> {};

struct argument : p::seq<expression> {
  static constexpr const char* kName = "an expression";
};
struct end_of_arguments : symbol<')'> {
  static constexpr const char* kName = "an operator, ',' or ')'";
};
struct arguments : p::seq<symbol<'('>, p::opt<expression, p::star<comma, expect<argument>>>,
                          expect<end_of_arguments>> {};
struct index : p::seq<symbol<'['>, expect<argument>, expect<closing<']'>>> {};
struct reference : p::seq<identifier, p::opt<p::sor<arguments, index>>> {};
// `abs(x)` is a call and binds as one; `abs x` is an operator before its operand.
struct called_word : p::seq<unary_word, p::at<symbol<'('>>> {};
struct word_call : p::seq<called_word, arguments> {};
struct group : p::seq<p::one<'('>, expect<argument>, expect<closing<')'>>> {};
struct primary : p::sor<number, truth, group, word_call, reference> {};

// A kind in parentheses. One word can also be a name in parentheses: it is a kind where an operand
// follows that cannot go on an expression.
struct kind_word : identifier {};
struct many_word_cast : p::seq<p::one<'('>, p::rep_min<2, p::seq<blanks, kind_word>>, symbol<')'>> {
};
struct operand_start : p::seq<blanks, p::sor<p::identifier_first, p::digit, p::one<'('>>> {};
struct one_word_cast : p::seq<p::one<'('>, blanks, kind_word, symbol<')'>, p::at<operand_start>,
                              p::not_at<blanks, binary_word>> {};
struct cast : p::sor<many_word_cast, one_word_cast> {};
struct unary_operator : p::sor<p::one<'-'>, unary_word> {};
struct unary
    : p::seq<p::sor<cast, p::seq<p::not_at<called_word>, unary_operator>>, expect<operand>> {};

struct power_operator : p::one<'^'> {};
struct power : p::seq<blanks, power_operator, expect<operand>> {};
struct operand : p::seq<blanks, p::sor<unary, p::seq<primary, p::opt<power>>>> {
  static constexpr const char* kName = "an operand";
};

// The operators that bind tighter than `not`; the longest first.
struct inner_symbol
    : p::sor<p::string<'<', '=', '='>, p::string<'>', '=', '='>, p::string<'=', '='>,
             p::string<'<', '<'>, p::string<'>', '>'>, p::string<'/', '\\'>, p::string<'\\', '/'>,
             p::one<'+', '-', '*', '/'>, mod_word, div_word> {};
struct outer_symbol
    : p::sor<p::string<'=', '>'>, p::string<'<', '>'>, p::string<'<', '='>, p::string<'>', '='>,
             p::one<'=', '<', '>'>, and_word, or_word, xor_word> {};
struct inner_operator : p::seq<inner_symbol> {};
// The inner ones first: "<==" is not "<=" and "=".
struct binary_operator : p::sor<inner_symbol, outer_symbol> {};

// What `not` takes reaches as far as the operators that bind tighter.
struct negated : p::seq<term, p::star<blanks, inner_operator, expect<term>>> {
  static constexpr const char* kName = "an operand";
};
struct negation : p::seq<blanks, not_word, expect<negated>> {};
struct term : p::sor<negation, operand> {
  static constexpr const char* kName = "an operand";
};
struct expression : p::seq<term, p::star<blanks, binary_operator, expect<term>>> {};

// Declarations.
struct kind : p::plus<p::seq<blanks, kind_word>> {
  static constexpr const char* kName = "a kind such as 'enum int'";
};
struct any_domain : p::seq<blanks, any_word> {};
struct set_domain : p::seq<symbol<'{'>, p::opt<expression, p::star<comma, expect<argument>>>,
                           expect<closing<'}'>>> {};
struct interval_comma : comma {
  static constexpr const char* kName = "an operator or ','";
};
struct interval_domain : p::seq<symbol<'['>, expect<argument>, expect<interval_comma>,
                                expect<argument>, expect<closing<']'>>> {};
struct value_domain : p::seq<expression> {};
struct domain : p::sor<any_domain, set_domain, interval_domain, value_domain> {
  static constexpr const char* kName = "a domain: a value, { ... }, [ ... ] or Any";
};

// What stands before the colon or the first comma is read as an expression, so that a declaration
// and a constraint need no look ahead; what does not name a variable is refused afterwards.
struct declarator : p::seq<blanks, reference> {
  static constexpr const char* kName = "a name";
};
struct end_of_declaration : punctuation<';'> {
  static constexpr const char* kName = "'=' and a domain, or ';'";
  static constexpr bool kClosesStatement = true;
};
struct domain_part : p::seq<equals_sign, expect<domain>, expect<end_of_statement>> {};
struct declaration_part
    : p::seq<p::at<p::sor<comma, colon>>, p::star<comma, expect<declarator>>, expect<colon>,
             expect<kind>, p::sor<domain_part, expect<end_of_declaration>>> {};

// Statements.
struct sentence : p::seq<expression, p::sor<declaration_part, expect<end_of_statement>>> {};
struct parameter : p::seq<blanks, param_word, expect<name>, expect<colon>, expect<kind>,
                          expect<equals_sign>, expect<argument>, expect<end_of_statement>> {};
struct in_sign : p::seq<blanks, in_word> {
  static constexpr const char* kName = "'in'";
};
struct dots : symbol<'.', '.'> {
  static constexpr const char* kName = "an operator or '..'";
};
struct loop_range
    : p::seq<name, expect<in_sign>, expect<argument>, expect<dots>, expect<argument>> {
  static constexpr const char* kName = "a name";
};
struct loop_brace : symbol<'{'> {
  static constexpr const char* kName = "an operator, ',' or '{'";
};
struct end_of_loop : symbol<'}'> {
  static constexpr const char* kName = "a constraint, 'for' or '}'";
};
struct loop;
struct loop_body : p::star<p::sor<loop, sentence>> {};
struct loop : p::seq<blanks, for_word, expect<loop_range>, p::star<comma, expect<loop_range>>,
                     expect<loop_brace>, loop_body, expect<end_of_loop>> {};
struct solve : p::seq<blanks, solve_word, expect<semicolon>> {};

struct end_of_model : p::seq<blanks, p::eof> {
  static constexpr const char* kName = "a statement";
};
struct statement : p::sor<parameter, loop, solve, sentence> {};
struct model : p::seq<p::opt<p::utf8::bom>, p::star<statement>, expect<end_of_model>> {};

}  // namespace kiv::grammar
