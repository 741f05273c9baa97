#pragma once

#include <utility>
#include <vector>

#include "solver/search/tree_search.h"

namespace kiv {

// A search through everything by bisection, without restarts: the smallest domain is split first,
// the first of equals, and its lower half goes before the upper one. Only `decisions` are split
// while any of them is open, then the others.
inline TreeSearch BisectionSearch(KivOmbNetwork& network,
                                  std::vector<KivOmbNetwork::VariableId> decisions) {
  SearchOptions options;
  options.strategy = BisectionStrategy(std::move(decisions));
  return TreeSearch(network, std::move(options));
}

}  // namespace kiv
