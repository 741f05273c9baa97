#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/base/export.h"
#include "framework/networks/network.h"

namespace kiv::flatzinc {

// A variable for which propagation knew no bound on one side or on both, and the bounds that it has
// now.
struct AssumedBounds {
  KivOmbNetwork::VariableId variable;
  bool below;  // whether the lower one is an assumption
  bool above;
  std::int32_t lower;
  std::int32_t upper;
};

// Gives bounds to all variables that are without after propagation, so that a search can split
// them: first to those of `preferred`, from which bounds of others may follow. What is assumed lies
// a million from 0, or twice as far as the farthest bound that is known when that is farther. What
// such a network has no solution of may have one all the same.
//
// Propagates as far as it comes; a contradiction that it finds before anything is assumed stands.
KIV_EXPORT std::vector<AssumedBounds> AssumeBounds(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> preferred);

}  // namespace kiv::flatzinc
