#pragma once

#include <cstdint>
#include <string_view>

namespace kiv::test {

// What an operator means between its operands as written and its result, told by its symbol alone
// and so apart from how rows hand their operands to constraints.
struct OperatorMeaning {
  enum class Type {
    kFunction,  // operands that have a result have one only
    kQuotient,  // any number of results: 0 / 0 is everything
    kRelation,  // the result is the operand written on the right, where the relation holds
    kTruth,     // the result is a boolean
  };
  Type type;
  bool (*holds)(std::int64_t left, std::int64_t right, std::int64_t result);
};

// Null for a symbol that is not known here. A unary operator has its operand on the left.
const OperatorMeaning* FindMeaning(std::string_view symbol, unsigned operands);

}  // namespace kiv::test
