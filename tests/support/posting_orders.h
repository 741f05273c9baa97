#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/support/constraint_case.h"

namespace kiv::test {

// Compares the solutions that search finds with `expected`, those of enumeration, where the
// constraint is posted after its variables got their domains, before that, between two steps of
// narrowing, and at a level that is taken back. What differs first, or nothing.
std::optional<std::string> FindDifference(const ConstraintCase& constraint,
                                          const std::vector<Assignment>& expected);

}  // namespace kiv::test
