#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "solver/language/diagnostics.h"
#include "solver/language/vocabulary.h"
#include "tools/kiv/domain_object.h"
#include "tools/kiv/domain_operator.h"

namespace kiv {

// A domain that a statement speaks of: a variable, a value written where it is used, or the result
// of an expression.
struct DomainValue {
  std::string name;     // of a variable; else what was written, or "result"
  std::string literal;  // its text form as written; empty for the result, which begins as Any
  const KivOmbiObjectDescriptor* kind = nullptr;
  bool is_target = true;  // whether it is asked for: a written value is not

  // A new object of this value.
  DomainObject Make() const;
};

// One application of an operator to domains.
struct DomainStatement {
  const DomainOperator* op = nullptr;
  std::vector<DomainValue> values;
  std::vector<std::size_t> operands;  // the operator's, as positions in `values`; may repeat
};

// Reads a statement:
//
//     statement   = [ declaration { "," declaration } ":" ] ( relation | expression ) .
//     declaration = name [ ":" kind ] "in" value .
//     relation    = operand relation_symbol operand
//                 | operand "=" expression | expression "=" operand .
//     expression  = function operand | operand symbol operand .
//     operand     = name | [ "(" kind ")" ] value .
//
// A value is the text form that its kind reads; the kind is "enum int" unless it is given. Nothing,
// and one error in `diagnostics`, for a text that is wrong.
std::optional<DomainStatement> ParseDomainStatement(const SourceText& source,
                                                    const Vocabulary& vocabulary,
                                                    Diagnostics& diagnostics);

}  // namespace kiv
