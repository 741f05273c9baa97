#pragma once

#include <cstdint>
#include <vector>

#include "framework/networks/network.h"

namespace kiv {

// How much the constraints of a variable weigh: each counts 1, and 1 more for each contradiction
// that it ran into. After F. Boussemart, F. Hemery, C. Lecoutre and L. Sais (2004), "Boosting
// systematic search by weighting constraints"; constraints whose other variables are fixed count
// here as well, so that the sum of a variable is kept and not computed.
class KIV_EXPORT VariableWeights {
 public:
  explicit VariableWeights(const KivOmbNetwork& network);

  // Raises the weight of a constraint. Takes time for each of its arguments.
  void Blame(const KivOmbNetwork& network, KivOmbNetwork::ConstraintId constraint);

  // How many constraints the variable has, and how much they weigh.
  std::uint32_t GetDegree(KivOmbNetwork::VariableId variable) const { return degrees_[variable]; }
  std::uint64_t GetWeight(KivOmbNetwork::VariableId variable) const { return weights_[variable]; }

 private:
  std::vector<std::uint32_t> degrees_;
  std::vector<std::uint64_t> weights_;
};

}  // namespace kiv
