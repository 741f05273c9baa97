#pragma once

#include <string>

#include "tests/support/constraint_case.h"
#include "tests/support/operator_meaning.h"

namespace kiv::test {

// A row of the vocabulary over arguments of a case, by their positions.
struct PostedRow {
  static constexpr std::size_t kNone = ~std::size_t{0};

  const KivOmbiCompoundObjectDescriptor* row;
  std::size_t left;
  std::size_t right;   // kNone for a unary operator
  std::size_t result;  // kNone for a relation whose value nobody uses

  void Post(KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> arguments) const;
  // By the meaning of the operator; a symbol without one does not hold.
  bool Holds(const Assignment& argument_values) const;
};

// Null for an operator that no test knows.
const OperatorMeaning* MeaningOf(const KivOmbiCompoundObjectDescriptor& row);

// As "a2 = a0 + a1", the arguments by position, with the kinds of the row.
std::string Print(const PostedRow& posted);
std::string Print(const KivOmbiCompoundObjectDescriptor& row);

}  // namespace kiv::test
