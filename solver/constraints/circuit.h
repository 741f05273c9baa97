#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/networks/network.h"
#include "solver/constraints/stuck_values.h"
#include "solver/constraints/successor_chains.h"

namespace kiv {

// Successors form one circuit through all places: place i leads to place x[i], counted from `first`
// on. A single place leads to itself, and no place at all is a circuit.
//
// Looks at the chains that fixed successors form: the end of one that does not pass all places may
// not lead back to its start. After Y. Caseau, F. Laburthe, "Solving small TSPs with constraints"
// (ICLP 1997). A run costs O(n). That no two places lead to the same one is noticed once they are
// fixed; all-different does more for it.
class KIV_EXPORT Circuit final : public KivOmbiConstraint {
 public:
  explicit Circuit(std::int32_t first);

  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int32_t first_;
  SuccessorChains chains_;
  StuckValues stuck_;
};

// Posts the circuit and that all successors are different, as strongly as suits as many values as
// places. Returns the constraints posted.
KIV_EXPORT std::vector<KivOmbNetwork::ConstraintId> PostCircuit(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> successors,
    std::int32_t first);

}  // namespace kiv
