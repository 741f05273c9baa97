#pragma once

#include <string_view>

#include "framework/base/export.h"
#include "solver/flatzinc/model.h"

namespace kiv::flatzinc {

// Reads a whole FlatZinc text, of at most 1 GiB: predicates, which are ignored, parameters,
// variables and constraints in any order that declares names before their use, and the solve item
// at the end. Nothing of the text is kept by reference. Throws Error with the place of what is
// wrong and what was expected there. Linear in the size of the text, in time and in memory; the
// part of the machine's stack that it needs is bounded.
KIV_EXPORT Model ReadModel(std::string_view text);

}  // namespace kiv::flatzinc
