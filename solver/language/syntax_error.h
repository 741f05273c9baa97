#pragma once

#include <cstddef>
#include <tao/pegtl.hpp>

// How the parsers of models and of FlatZinc fail: a rule that must match, but does not, is reported
// by its kName, what was expected there.
namespace kiv {

// What a rule missed, and where.
struct SyntaxError {
  std::size_t offset;
  const char* expected;
  bool closes_statement;  // the rule's kClosesStatement
};

// For PEGTL: throws SyntaxError where a rule must match.
template <class Rule>
struct SyntaxControl : tao::pegtl::normal<Rule> {
  template <class Input, class... States>
  [[noreturn]] static void raise(const Input& in, States&&...) {
    constexpr bool closes_statement = requires { Rule::kClosesStatement; };
    throw SyntaxError{in.byte(), Rule::kName, closes_statement};
  }
};

}  // namespace kiv
