#include "solver/search/default_search.h"

#include <utility>

namespace kiv {

// Chosen among other choices by the failures that they took on magic squares, Golomb rulers and
// queens: values from below find good objectives early, and the first restart comes late enough
// that easy models never see it.
SearchOptions DefaultSearch(std::vector<KivOmbNetwork::VariableId> declared,
                            std::optional<Objective> objective) {
  SearchOptions options;
  options.strategy = {{std::move(declared), VariableChoice::kDomWDeg, ValueChoice::kFromBelow}};
  options.restarts = {RestartPolicy::Kind::kGeometric, 100, 1.5};
  options.objective = objective;
  return options;
}

}  // namespace kiv
