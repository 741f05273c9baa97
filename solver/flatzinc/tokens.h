#pragma once

#include <tao/pegtl.hpp>

#include "solver/language/tokens.h"

// The words and signs of FlatZinc, for its grammar alone. As in the modelling language, a token
// skips the blanks and comments before it, and a rule says by `kName` what is missing where it
// fails, by `kClosesStatement` that it is missed behind what stands before it.
namespace kiv::flatzinc::grammar {

namespace p = tao::pegtl;

using kiv::grammar::expect;
using kiv::grammar::whole_word;

struct comment : p::seq<p::one<'%'>, p::until<p::eolf>> {};
struct blanks : p::star<p::sor<p::space, comment>> {};

template <char... Characters>
struct symbol : p::seq<blanks, p::string<Characters...>> {};

struct array_word : whole_word<TAO_PEGTL_STRING("array")> {};
struct bool_word : whole_word<TAO_PEGTL_STRING("bool")> {};
struct constraint_word : whole_word<TAO_PEGTL_STRING("constraint")> {};
struct false_word : whole_word<TAO_PEGTL_STRING("false")> {};
struct float_word : whole_word<TAO_PEGTL_STRING("float")> {};
struct int_word : whole_word<TAO_PEGTL_STRING("int")> {};
struct maximize_word : whole_word<TAO_PEGTL_STRING("maximize")> {};
struct minimize_word : whole_word<TAO_PEGTL_STRING("minimize")> {};
struct of_word : whole_word<TAO_PEGTL_STRING("of")> {};
struct predicate_word : whole_word<TAO_PEGTL_STRING("predicate")> {};
struct satisfy_word : whole_word<TAO_PEGTL_STRING("satisfy")> {};
struct set_word : whole_word<TAO_PEGTL_STRING("set")> {};
struct solve_word : whole_word<TAO_PEGTL_STRING("solve")> {};
struct true_word : whole_word<TAO_PEGTL_STRING("true")> {};
struct var_word : whole_word<TAO_PEGTL_STRING("var")> {};
struct keyword : p::sor<array_word, bool_word, constraint_word, false_word, float_word, int_word,
                        maximize_word, minimize_word, of_word, predicate_word, satisfy_word,
                        set_word, solve_word, true_word, var_word> {};

struct name : p::seq<p::not_at<keyword>, p::identifier> {};

// Numbers. A point belongs to a number only before a digit, so that 1..5 is a range.
struct hexadecimal : p::seq<p::one<'0'>, p::one<'x'>, p::plus<p::xdigit>> {};
struct octal : p::seq<p::one<'0'>, p::one<'o'>, p::plus<p::range<'0', '7'>>> {};
struct fraction : p::seq<p::one<'.'>, p::plus<p::digit>> {};
struct exponent : p::seq<p::one<'e', 'E'>, p::opt<p::one<'+', '-'>>, p::plus<p::digit>> {};
struct decimal : p::seq<p::plus<p::digit>, p::opt<fraction>, p::opt<exponent>> {};
struct number : p::seq<p::opt<p::one<'-'>>, p::sor<hexadecimal, octal, decimal>> {};

// Text between quotes, on one line. A backslash takes the next character with it.
struct quoted_character
    : p::sor<p::not_one<'"', '\\', '\n', '\r'>, p::seq<p::one<'\\'>, p::not_one<'\n', '\r'>>> {};
struct quoted_text : p::star<quoted_character> {};
struct closing_quote : p::one<'"'> {
  static constexpr const char* kName = "'\"' before the end of the line";
  static constexpr bool kClosesStatement = true;
};
struct text : p::seq<p::one<'"'>, quoted_text, expect<closing_quote>> {};

// Signs that must come next.
struct equals_sign : symbol<'='> {
  static constexpr const char* kName = "'=' and a value";
};
struct colon : symbol<':'> {
  static constexpr const char* kName = "':' and a name";
};
struct open_bracket : symbol<'['> {
  static constexpr const char* kName = "'['";
};
struct close_bracket : symbol<']'> {
  static constexpr const char* kName = "']'";
};
struct open_parenthesis : symbol<'('> {
  static constexpr const char* kName = "'('";
};
struct dots : symbol<'.', '.'> {
  static constexpr const char* kName = "'..'";
};
struct of_sign : p::seq<blanks, of_word> {
  static constexpr const char* kName = "'of'";
};

}  // namespace kiv::flatzinc::grammar
