#pragma once

#include "solver/language/tokens.h"

// The grammar of models, for the parser alone. Precedence is not the grammar's business: an
// expression is operands with operators between them. Each alternative shows by its first token
// whether it is meant, so that reading never goes back further than that.
namespace kiv::grammar {

struct expression;
struct operand;
struct term;

struct argument : p::seq<expression> {
  static constexpr const char* kName = "an expression";
};

// Generators: what the variables of a loop run through.
struct condition : p::seq<expression> {
  static constexpr const char* kName = "a condition";
};
struct where_part : p::seq<blanks, where_word, expect<condition>> {};
struct generator : p::seq<name, expect<in_sign>, expect<argument>, p::opt<where_part>> {
  static constexpr const char* kName = "a variable and its values such as 'i in 1..n'";
};
struct generators : p::seq<expect<generator>, p::star<comma, expect<generator>>> {};

// Expressions.
struct digits : p::plus<p::digit> {};
struct number_end : p::not_at<p::identifier_first> {
  static constexpr const char* kName = "an operator after the number";
};
struct number : p::seq<digits, expect<number_end>> {};
struct truth : p::sor<true_word, false_word> {};

// What stands between brackets or braces: elements, or one with generators.
template <char Closing>
struct elements
    : p::seq<p::opt<expression, p::sor<p::seq<bar, generators>, p::star<comma, expect<argument>>>>,
             expect<closing_list<Closing>>> {};
struct list : p::seq<p::one<'['>, elements<']'>> {};
struct set : p::seq<p::one<'{'>, elements<'}'>> {};

struct arguments : p::seq<symbol<'('>, p::opt<expression, p::star<comma, expect<argument>>>,
                          expect<closing_list<')'>>> {};
// A name and `in` behind the parenthesis begin generators; a membership in a call stands in
// parentheses of its own.
struct generators_start : p::at<blanks, p::not_at<keyword>, p::identifier, blanks, in_word> {};
struct aggregate : p::seq<symbol<'('>, generators_start, generators, expect<closing_list<')'>>,
                          expect<open_parenthesis>, expect<argument>, expect<closing<')'>>> {};
struct star : p::seq<p::one<'*'>, p::at<blanks, p::one<',', ']'>>> {};
struct index_item : p::sor<p::seq<blanks, star>, argument> {
  static constexpr const char* kName = "an expression or '*'";
};
struct index : p::seq<symbol<'['>, expect<index_item>, p::star<comma, expect<index_item>>,
                      expect<closing_list<']'>>> {};
struct reference : p::seq<identifier, p::opt<p::sor<aggregate, arguments, index>>> {};
// `abs(x)` is a call and binds as one; `abs x` is an operator before its operand.
struct called_word : p::seq<unary_word, p::at<symbol<'('>>> {};
struct word_call : p::seq<called_word, arguments> {};
struct group : p::seq<p::one<'('>, expect<argument>, expect<closing<')'>>> {};
struct conditional_expression : p::seq<if_word, expect<condition>, expect<then_sign>,
                                       expect<argument>, expect<else_sign>, expect<argument>> {};
struct primary
    : p::sor<number, truth, group, list, set, conditional_expression, word_call, reference> {};

// A kind in parentheses. One word can also be a name in parentheses: it is a kind where an operand
// follows that cannot go on an expression.
struct kind_word : identifier {};
struct many_word_cast : p::seq<p::one<'('>, p::rep_min<2, p::seq<blanks, kind_word>>, symbol<')'>> {
};
struct operand_start : p::seq<blanks, p::not_at<p::sor<binary_word, ending_word>>,
                              p::sor<p::identifier_first, p::digit, p::one<'('>>> {};
struct one_word_cast : p::seq<p::one<'('>, blanks, kind_word, symbol<')'>, p::at<operand_start>> {};
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
             p::string<'<', '<'>, p::string<'>', '>'>, p::string<'.', '.'>, p::string<'/', '\\'>,
             p::string<'\\', '/'>, p::one<'+', '-', '*', '/'>, mod_word, div_word, in_word> {};
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
struct interval_comma : comma {
  static constexpr const char* kName = "an operator or ','";
};
struct interval_domain : p::seq<symbol<'['>, expect<argument>, expect<interval_comma>,
                                expect<argument>, expect<closing<']'>>> {};
struct domain : p::sor<any_domain, interval_domain, expression> {
  static constexpr const char* kName = "a domain: a value, a..b, { ... }, [ ... ] or Any";
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

struct open_dimension : p::at<blanks, p::one<',', ']'>> {};
struct dimension : p::sor<open_dimension, argument> {
  static constexpr const char* kName = "a size or ']'";
};
struct dimensions : p::seq<symbol<'['>, expect<dimension>, p::star<comma, expect<dimension>>,
                           expect<closing_list<']'>>> {};
struct end_of_parameter : punctuation<';'> {
  static constexpr const char* kName = "'=' and a value, or ';'";
  static constexpr bool kClosesStatement = true;
};
struct parameter_value : p::seq<equals_sign, expect<argument>, expect<end_of_statement>> {};
struct parameter : p::seq<blanks, param_word, expect<name>, p::opt<dimensions>, expect<colon>,
                          expect<kind>, p::sor<parameter_value, expect<end_of_parameter>>> {};

// Constraints, and what stands around them.
struct annotations : p::seq<blanks, with_word, expect<name>, p::star<comma, expect<name>>> {};
struct annotated : p::seq<annotations, expect<end_of_list>> {};
struct sentence
    : p::seq<expression, p::sor<declaration_part, annotated, expect<end_of_statement>>> {};

struct loop;
struct conditional_statement;
struct end_of_block : symbol<'}'> {
  static constexpr const char* kName = "a constraint, 'for', 'if' or '}'";
};
struct block
    : p::seq<p::star<p::sor<loop, conditional_statement, sentence>>, expect<end_of_block>> {};
struct loop_brace : symbol<'{'> {
  static constexpr const char* kName = "an operator, ',' or '{'";
};
struct loop : p::seq<blanks, for_word, generators, expect<loop_brace>, block> {};
struct condition_brace : symbol<'{'> {
  static constexpr const char* kName = "an operator or '{'";
};
struct else_brace : symbol<'{'> {
  static constexpr const char* kName = "'{' or 'if'";
};
struct else_part
    : p::seq<blanks, else_word, p::sor<conditional_statement, p::seq<expect<else_brace>, block>>> {
};
struct conditional_statement : p::seq<blanks, if_word, expect<condition>, expect<condition_brace>,
                                      block, p::opt<else_part>> {};

// What is asked of the solutions.
struct end_of_solve : semicolon {
  static constexpr const char* kName = "';' or 'all'";
};
struct all_solutions : p::seq<blanks, all_word, expect<semicolon>> {};
struct solve : p::seq<blanks, solve_word, p::sor<all_solutions, expect<end_of_solve>>> {};
struct optimum_word : p::sor<minimize_word, maximize_word> {};
struct optimum : p::seq<blanks, optimum_word, expect<argument>, expect<end_of_statement>> {};
struct choice_name : name {
  static constexpr const char* kName = "the name of a choice";
};
struct branch : p::seq<blanks, branch_word, expect<on_sign>, expect<argument>,
                       p::star<comma, expect<argument>>, expect<by_sign>, expect<choice_name>,
                       p::opt<comma, expect<choice_name>>, expect<end_of_list>> {};
struct show_item : p::sor<text, argument> {
  static constexpr const char* kName = "a text or an expression";
};
struct end_of_show : symbol<';'> {
  static constexpr const char* kName = "an operator, ',' or ';'";
  static constexpr bool kClosesStatement = true;
};
struct show : p::seq<blanks, show_word, expect<show_item>, p::star<comma, expect<show_item>>,
                     expect<end_of_show>> {};

struct end_of_model : p::seq<blanks, p::eof> {
  static constexpr const char* kName = "a statement";
};
struct statement
    : p::sor<parameter, loop, conditional_statement, branch, show, solve, optimum, sentence> {};
struct model : p::seq<p::opt<p::utf8::bom>, p::star<statement>, expect<end_of_model>> {};

}  // namespace kiv::grammar
