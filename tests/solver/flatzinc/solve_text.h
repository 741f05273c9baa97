#pragma once

#include <string_view>
#include <vector>

#include "tests/support/enumeration.h"

namespace kiv::test {

// All solutions of a FlatZinc text as values of its variables in the order of their declarations,
// sorted. Throws what reading and posting do, and std::runtime_error where search does not end with
// all variables known.
std::vector<Assignment> SolveText(std::string_view text);

}  // namespace kiv::test
