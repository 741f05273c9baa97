#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/abstract_types/any.h"

namespace kiv {

// One virtual operation of the abstract kinds that narrows one domain.
struct DomainOperation {
  // Calls it on the objects in the order of `roles`. These are integers, except that the result of
  // a truth is a boolean.
  using Call = int (*)(const std::vector<KivOmbiAny*>& objects);

  std::string name;             // "CalcFirstInverseSumValue"
  std::vector<unsigned> roles;  // whom it takes, as operands of its operator: the receiver first
  unsigned target = 0;          // which operand it narrows
  Call call = nullptr;
};

// An operator as it is written, with the operations that propagate it: one for each operand that it
// can narrow, in their order.
struct DomainOperator {
  enum Form {
    kRelation,  // x <= y; the operands are x and y
    kUnary,     // z = abs x; the operands are z and x
    kBinary,    // z = x + y; the operands are z, x and y
    kTruth,     // t = x <== y; the operands are t, a boolean, x and y
  };

  std::string symbol;
  Form form;
  std::vector<DomainOperation> operations;

  bool HasResult() const { return form != kRelation; }
  bool IsPrefix() const { return form == kUnary; }
};

const std::vector<DomainOperator>& GetDomainOperators();

}  // namespace kiv
