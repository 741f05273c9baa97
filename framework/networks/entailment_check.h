#pragma once

#include <cstdint>
#include <span>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

// Whether a constraint that calls itself entailed holds, by its ground truth, for a sample of the
// choices that its arguments still have: their bounds and some values between them.
bool EntailmentHolds(const KivOmbiConstraint& constraint,
                     std::span<const KivOmbiVariable> variables,
                     std::span<const std::uint32_t> arguments);
