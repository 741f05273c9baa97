#pragma once

#include <optional>
#include <vector>

#include "solver/search/search_options.h"

namespace kiv {

// The search for whoever says nothing about it: it branches on `declared` first, goes by the weight
// of constraints, tries small values before great ones, and restarts ever more seldom. It finds its
// way out of bad beginnings, so that it is meant for hard models and for optimisation; in which
// order it finds solutions cannot be told beforehand.
KIV_EXPORT SearchOptions DefaultSearch(std::vector<KivOmbNetwork::VariableId> declared,
                                       std::optional<Objective> objective = std::nullopt);

}  // namespace kiv
