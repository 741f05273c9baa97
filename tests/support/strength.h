#pragma once

#include <optional>
#include <string>

#include "tests/support/constraint_case.h"

namespace kiv::test {

// Where `network`, at a fixpoint, keeps a value that the declared strength of the constraint does
// not allow. Looks only at arguments with few assignments, none of them unknown.
std::optional<std::string> FindWeakness(const ConstraintCase& constraint,
                                        const KivOmbNetwork& network);

}  // namespace kiv::test
