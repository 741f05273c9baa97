#pragma once

#include <optional>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

namespace kiv {

// z = x * y for three different arguments whose bounds are at rest: leaves each the values that are
// part of a solution over the domains left, as far as its kind can lose the others. Two lists of
// factors are multiplied pair by pair where the product lies between the bounds of z, which finds
// what supports all three in one go; running again would change nothing. None, with nothing done,
// where a factor has too many values or one of the arguments is not known.
std::optional<KivOmbiFilterResult> NarrowProductValues(const KivOmbiObjectEnvironment& environment,
                                                       unsigned x, unsigned y, unsigned z);

}  // namespace kiv
