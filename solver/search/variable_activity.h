#pragma once

#include <vector>

#include "framework/networks/network.h"

namespace kiv {

// How often the domain of a variable changed lately: each node adds 1 for each domain that changed
// at it, and what earlier nodes added fades. After L. Michel and P. Van Hentenryck (2012),
// "Activity-based search for black-box constraint programming solvers"; a fixed variable fades as
// well.
class KIV_EXPORT VariableActivity {
 public:
  explicit VariableActivity(const KivOmbNetwork& network) : activities_(network.CountVariables()) {}

  // Takes note of the domains that changed at the network's current level. Costs what changed.
  void NoteChanges(const KivOmbNetwork& network);

  // Comparable among variables between two notes, not over time.
  double Get(KivOmbNetwork::VariableId variable) const { return activities_[variable]; }

 private:
  std::vector<double> activities_;
  double increment_ = 1;
};

}  // namespace kiv
