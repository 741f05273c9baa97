#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/support/constraint_case.h"
#include "tests/support/random.h"

namespace kiv::test {

// Goes down from the declared domains by random steps of narrowing, and up again by taking levels
// back, and looks at every node for a lost value of `solutions` (those of enumeration), a weakness,
// a fixpoint that a newly posted copy would not reach or would narrow, and traces of levels that
// were taken back. What is wrong first, with the steps that led there, or nothing.
std::optional<std::string> FindFailureOnDescent(const ConstraintCase& constraint,
                                                const std::vector<Assignment>& solutions,
                                                Generator& random);

}  // namespace kiv::test
