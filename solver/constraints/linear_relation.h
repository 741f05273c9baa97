#pragma once

#include "solver/constraints/wide_integer.h"

namespace kiv {

// How a sum stands to a constant.
enum class LinearRelation { kEqual, kUnequal, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };

// The relation that holds exactly where `relation` does not.
constexpr LinearRelation NegationOf(LinearRelation relation) {
  switch (relation) {
    case LinearRelation::kEqual:
      return LinearRelation::kUnequal;
    case LinearRelation::kUnequal:
      return LinearRelation::kEqual;
    case LinearRelation::kLess:
      return LinearRelation::kGreaterOrEqual;
    case LinearRelation::kLessOrEqual:
      return LinearRelation::kGreater;
    case LinearRelation::kGreater:
      return LinearRelation::kLessOrEqual;
    case LinearRelation::kGreaterOrEqual:
      break;
  }
  return LinearRelation::kLess;
}

// Whether a sum of this value stands in the relation to the constant.
constexpr bool Stands(Int128 sum, LinearRelation relation, Int128 constant) {
  switch (relation) {
    case LinearRelation::kEqual:
      return sum == constant;
    case LinearRelation::kUnequal:
      return sum != constant;
    case LinearRelation::kLess:
      return sum < constant;
    case LinearRelation::kLessOrEqual:
      return sum <= constant;
    case LinearRelation::kGreater:
      return sum > constant;
    case LinearRelation::kGreaterOrEqual:
      break;
  }
  return sum >= constant;
}

}  // namespace kiv
