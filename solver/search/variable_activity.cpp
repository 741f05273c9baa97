#include "solver/search/variable_activity.h"

namespace kiv {

void VariableActivity::NoteChanges(const KivOmbNetwork& network) {
  // What was added before loses a thousandth at each node. Letting what is added grow instead
  // comes to the same without a walk over all variables, until the numbers get too large.
  constexpr double kFading = 0.999;
  constexpr double kTooLarge = 1e100;
  increment_ /= kFading;
  network.VisitChanged([&](KivOmbNetwork::VariableId id) { activities_[id] += increment_; });
  if (increment_ < kTooLarge) return;
  for (double& activity : activities_) activity /= kTooLarge;
  increment_ /= kTooLarge;
}

}  // namespace kiv
