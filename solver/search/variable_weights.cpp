#include "solver/search/variable_weights.h"

namespace kiv {

// A constraint that names a variable more than once counts as often; so it does when it is blamed.
VariableWeights::VariableWeights(const KivOmbNetwork& network)
    : degrees_(network.CountVariables()), weights_(network.CountVariables()) {
  for (KivOmbNetwork::ConstraintId id = 0; id < network.CountConstraints(); ++id) {
    for (const auto variable : network.GetArguments(id)) {
      ++degrees_[variable];
      ++weights_[variable];
    }
  }
}

void VariableWeights::Blame(const KivOmbNetwork& network, KivOmbNetwork::ConstraintId constraint) {
  for (const auto variable : network.GetArguments(constraint)) ++weights_[variable];
}

}  // namespace kiv
