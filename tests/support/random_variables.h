#pragma once

#include <cstddef>
#include <vector>

#include "tests/support/enumeration.h"
#include "tests/support/random.h"

namespace kiv::test {

// The names of the kinds of integer that Kiv's own modules have.
inline constexpr const char* kIntegerKinds[] = {"int", "interval int", "enum int"};

// All kinds of integer there are, the one that no module of Kiv's knows included.
const std::vector<const KivOmbiObjectDescriptor*>& IntegerKinds();

// Where the values of a random variable lie.
enum class Flavour {
  kSmall,     // a range around zero
  kHoles,     // around zero, with holes where the kind can have them
  kNegative,  // below zero
  kExtreme,   // next to the ends of the integers that a network holds
  kSingle,    // one value around zero
};
Flavour RandomFlavour(Generator& random);

// One to six values of this flavour that the kind holds exactly; some truth values for a boolean.
Values RandomValues(Generator& random, const KivOmbiObjectDescriptor& kind, Flavour flavour);

// At most `most` values that the kind holds exactly: out of `pool` (ascending, not empty), or the
// range from one of them, up to the last at most.
Values RandomValues(Generator& random, const KivOmbiObjectDescriptor& kind, const Values& pool,
                    std::size_t most);

// A variable of one of Kiv's own kinds of integer, by its name.
Declared RandomVariable(Generator& random, const char* kind, const Values& pool, std::size_t most);
// A variable of any kind of integer.
Declared RandomVariable(Generator& random, Flavour flavour);
Declared RandomVariable(Generator& random);

}  // namespace kiv::test
