#pragma once

#include <cstdint>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

// z = x ^ exponent, for a constant exponent from 1 and domains of whatever kinds. Narrows x and z
// to their exact values where the carrier keeps values, to exact bounds otherwise.
KivOmbiFilterResult NarrowFixedPower(const KivOmbiObjectEnvironment& environment,
                                     const KivOmbiObjectDescriptor& carrier, unsigned x,
                                     std::int32_t exponent, unsigned z);

}  // namespace kiv
