#pragma once

#include <cstdint>

#include "framework/networks/network.h"

namespace kiv {

// A statement about one variable: what a search decides, and what a nogood is made of. The value is
// one that a variable may have, or 2147483647 either way for a bound that nothing satisfies.
// A boolean has the values 0 and 1.
struct Literal {
  enum class Relation : std::uint32_t { kEqual, kUnequal, kAtMost, kAtLeast };

  KivOmbNetwork::VariableId variable = 0;
  Relation relation = Relation::kEqual;
  std::int32_t value = 0;

  static Literal Equal(KivOmbNetwork::VariableId variable, std::int32_t value) {
    return {variable, Relation::kEqual, value};
  }
  static Literal AtMost(KivOmbNetwork::VariableId variable, std::int32_t value) {
    return {variable, Relation::kAtMost, value};
  }
  static Literal AtLeast(KivOmbNetwork::VariableId variable, std::int32_t value) {
    return {variable, Relation::kAtLeast, value};
  }

  friend bool operator==(const Literal&, const Literal&) = default;
};

// What holds exactly where the literal does not. An order must not be at the end of the integers
// that it already covers.
KIV_EXPORT Literal Negated(const Literal& literal);

// Whether the literal holds for every value, or for none, that its variable may still have.
KIV_EXPORT bool IsEntailed(const KivOmbNetwork& network, const Literal& literal);
KIV_EXPORT bool IsImpossible(const KivOmbNetwork& network, const Literal& literal);

// Narrows the variable to the values for which the literal holds, as far as its kind can: an
// interval keeps an inner value that it should lose. Returns whether anything changed. The variable
// is an integer or a boolean.
KIV_EXPORT bool Impose(KivOmbNetwork& network, const Literal& literal);

}  // namespace kiv
