#pragma once

#include "solver/flatzinc/tokens.h"

// The grammar of FlatZinc, for the reader alone. Each alternative shows by its first token whether
// it is meant: once a rule has an effect on the model, nothing takes it back.
namespace kiv::flatzinc::grammar {

// Elements with commas between them, up to the sign that closes them; one may stand behind the
// last, too. Says by Element::kOrEnd what is missing where neither an element nor the end comes.
template <char Closing>
struct separator : p::sor<symbol<','>, p::at<symbol<Closing>>> {
  static constexpr char kText[] = {'\'', ',', '\'', ' ', 'o', 'r', ' ', '\'', Closing, '\'', '\0'};
  static constexpr const char* kName = kText;
};
template <class Element, char Closing>
struct closing : symbol<Closing> {
  static constexpr const char* kName = Element::kOrEnd;
};
template <class Element, char Closing>
struct elements
    : p::seq<p::star<Element, expect<separator<Closing>>>, expect<closing<Element, Closing>>> {};

// Values without names.
struct upper_end : p::seq<blanks, number> {
  static constexpr const char* kName = "the upper end of the range";
};
struct range_sign : p::seq<dots> {};
struct range_part : p::seq<range_sign, expect<upper_end>> {
  static constexpr const char* kName = "'..'";
};
struct number_or_range : p::seq<number, p::opt<range_part>> {};
struct set_element : p::seq<blanks, number> {
  static constexpr const char* kOrEnd = "a number or '}'";
};
struct set_start : p::one<'{'> {};
struct set : p::seq<set_start, elements<set_element, '}'>> {};
struct truth : p::seq<true_word> {};
struct falsehood : p::seq<false_word> {};
struct constant : p::sor<number_or_range, truth, falsehood, set> {};

// Values with names.
struct index : p::seq<blanks, number> {
  static constexpr const char* kName = "an index";
};
struct subscript_start : p::seq<open_bracket> {};
struct subscript : p::seq<subscript_start, expect<index>, expect<close_bracket>> {};
struct reference : p::seq<name, p::opt<subscript>> {};
struct value : p::sor<reference, constant> {};
struct initialiser : p::seq<blanks, value> {
  static constexpr const char* kName = "a value";
};
struct array_element : p::seq<blanks, value> {
  static constexpr const char* kOrEnd = "a value or ']'";
};
struct array_start : p::one<'['> {};
struct array : p::seq<array_start, elements<array_element, ']'>> {};

// Annotations. A name in one stands for what it was declared as, otherwise for itself.
struct inner_annotation;
struct annotation_argument : p::seq<inner_annotation> {
  static constexpr const char* kOrEnd = "an annotation, a value or ')'";
};
struct annotation_element : p::seq<inner_annotation> {
  static constexpr const char* kOrEnd = "an annotation, a value or ']'";
};
struct call_start : p::seq<open_parenthesis> {};
struct call : p::seq<call_start, elements<annotation_argument, ')'>> {};
struct list_start : p::one<'['> {};
struct list : p::seq<list_start, elements<annotation_element, ']'>> {};
struct named_annotation : p::seq<name, p::opt<p::sor<call, subscript>>> {};
struct inner_annotation : p::seq<blanks, p::sor<named_annotation, constant, text, list>> {};
struct annotation : p::seq<blanks, name, p::opt<call>> {
  static constexpr const char* kName = "an annotation";
};
struct annotations : p::star<symbol<':', ':'>, expect<annotation>> {};

// Types.
struct domain : p::sor<set, p::seq<number, expect<range_part>>> {};
struct bool_type : p::seq<bool_word> {};
struct int_type : p::seq<int_word> {};
struct float_type : p::seq<float_word> {};
struct domain_type : p::seq<domain> {};
struct set_of_int : p::seq<int_word> {};
struct set_of_float : p::seq<float_word> {};
struct set_of_domain : p::seq<domain> {};
struct set_elements : p::seq<blanks, p::sor<set_of_int, set_of_float, set_of_domain>> {
  static constexpr const char* kName = "'int', 'float' or a range";
};
struct set_type : p::seq<set_word, expect<of_sign>, expect<set_elements>> {};
struct constant_type : p::sor<bool_type, int_type, float_type, set_type> {};
struct variable_type : p::seq<blanks, p::sor<constant_type, domain_type>> {
  static constexpr const char* kName = "a type";
};

// Predicates.
struct any_index_set : p::seq<blanks, p::sor<int_word, p::seq<number, expect<range_part>>>> {
  static constexpr const char* kName = "'int' or a range";
};
struct any_array_part : p::seq<array_word, expect<open_bracket>, expect<any_index_set>,
                               expect<close_bracket>, expect<of_sign>> {};
struct any_type : p::seq<blanks, p::opt<any_array_part, blanks>, p::opt<var_word, blanks>,
                         p::sor<constant_type, domain_type>> {};
struct parameter_name : p::seq<blanks, name> {
  static constexpr const char* kName = "a name";
};
struct predicate_parameter : p::seq<any_type, expect<colon>, expect<parameter_name>> {
  static constexpr const char* kOrEnd = "a type or ')'";
};
struct end_of_predicate : symbol<';'> {
  static constexpr const char* kName = "';' after the predicate";
  static constexpr bool kClosesStatement = true;
};
struct predicate
    : p::seq<predicate_word,
             p::disable<expect<parameter_name>, expect<open_parenthesis>,
                        elements<predicate_parameter, ')'>, expect<end_of_predicate>>> {};

// Declarations.
struct declared_name : p::seq<blanks, name> {
  static constexpr const char* kName = "a name";
};
struct declared_annotations : p::seq<annotations> {};
struct end_of_declaration : symbol<';'> {
  static constexpr const char* kName = "';' after the declaration";
  static constexpr bool kClosesStatement = true;
};
struct end_of_variable : symbol<';'> {
  static constexpr const char* kName = "'=' and a value, or ';'";
  static constexpr bool kClosesStatement = true;
};
struct naming : p::seq<expect<colon>, expect<declared_name>, declared_annotations> {};
struct parameter : p::seq<constant_type, naming, expect<equals_sign>, expect<initialiser>,
                          expect<end_of_declaration>> {};
struct variable_value : p::seq<initialiser> {
  static constexpr const char* kName = "a value";
};
struct variable
    : p::seq<var_word, expect<variable_type>, naming,
             p::sor<p::seq<equals_sign, expect<variable_value>, expect<end_of_declaration>>,
                    expect<end_of_variable>>> {};

struct first_index : p::seq<blanks, number> {
  static constexpr const char* kName = "the indices 1..n";
};
struct last_index : p::seq<blanks, number> {
  static constexpr const char* kName = "the last index";
};
struct declared_element : p::seq<blanks, value> {
  static constexpr const char* kOrEnd = "a value or ']'";
};
struct elements_start : p::one<'['> {};
struct declared_elements_start : p::seq<blanks, elements_start> {
  static constexpr const char* kName = "'[' and the elements";
};
struct declared_elements : p::seq<expect<equals_sign>, expect<declared_elements_start>,
                                  elements<declared_element, ']'>, expect<end_of_declaration>> {};
struct parameter_array : p::seq<constant_type, naming, declared_elements> {};
struct variable_array_word : p::seq<var_word> {};
struct variable_array
    : p::seq<variable_array_word, expect<variable_type>, naming, declared_elements> {};
struct array_of : p::seq<blanks, p::sor<variable_array, parameter_array>> {
  static constexpr const char* kName = "a type";
};
struct declared_array
    : p::seq<array_word, expect<open_bracket>, expect<first_index>, expect<dots>,
             expect<last_index>, expect<close_bracket>, expect<of_sign>, expect<array_of>> {};

// Constraints and what is asked.
struct constraint_name : p::seq<blanks, name> {
  static constexpr const char* kName = "the name of a constraint";
};
struct argument : p::seq<blanks, p::sor<value, array>> {
  static constexpr const char* kOrEnd = "an argument or ')'";
};
struct end_of_constraint : symbol<';'> {
  static constexpr const char* kName = "';' after the constraint";
  static constexpr bool kClosesStatement = true;
};
struct constraint : p::seq<constraint_word, expect<constraint_name>, expect<open_parenthesis>,
                           elements<argument, ')'>, annotations, expect<end_of_constraint>> {};

struct satisfy : p::seq<satisfy_word> {};
struct objective : p::seq<blanks, value> {
  static constexpr const char* kName = "a variable";
};
struct minimize : p::seq<minimize_word, expect<objective>> {};
struct maximize : p::seq<maximize_word, expect<objective>> {};
struct goal : p::seq<blanks, p::sor<satisfy, minimize, maximize>> {
  static constexpr const char* kName = "'satisfy', 'minimize' or 'maximize'";
};
struct end_of_solve : symbol<';'> {
  static constexpr const char* kName = "';' after the solve item";
  static constexpr bool kClosesStatement = true;
};
struct solve_start : p::seq<solve_word> {};
struct start_of_solve : p::seq<blanks, solve_start> {
  static constexpr const char* kName = "a declaration, 'constraint' or 'solve'";
};
struct solve
    : p::seq<expect<start_of_solve>, declared_annotations, expect<goal>, expect<end_of_solve>> {};

struct item : p::seq<blanks, p::sor<constraint, variable, declared_array, parameter, predicate>> {};
struct end_of_model : p::seq<blanks, p::eof> {
  static constexpr const char* kName = "the end of the model after the solve item";
};
struct model : p::seq<p::opt<p::utf8::bom>, p::star<item>, solve, expect<end_of_model>> {};

}  // namespace kiv::flatzinc::grammar
