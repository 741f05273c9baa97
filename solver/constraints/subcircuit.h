#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/networks/network.h"
#include "solver/constraints/successor_chains.h"

namespace kiv {

// Successors form one circuit through some of the places: place i leads to place x[i], counted from
// `first` on, and one that leads to itself is left out. All may be left out.
//
// Looks at the chains that fixed successors form, as Circuit does: the end of one may lead back to
// its start only if all other places can be left out, and where a chain is closed they are. A run
// costs O(n). That no two places lead to the same one is noticed once they are fixed; all-different
// does more for it.
class KIV_EXPORT Subcircuit final : public KivOmbiConstraint {
 public:
  explicit Subcircuit(std::int32_t first);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int32_t ValueOf(unsigned place) const;
  bool MustBeIn(const KivOmbiObjectEnvironment& environment, unsigned place) const;
  KivOmbiFilterResult LeaveOutOthers(const KivOmbiObjectEnvironment& environment) const;

  std::int32_t first_;
  SuccessorChains chains_;
};

// Posts the circuit and that all successors are different, as strongly as suits as many values as
// places. Returns the constraints posted.
KIV_EXPORT std::vector<KivOmbNetwork::ConstraintId> PostSubcircuit(
    KivOmbNetwork& network, std::span<const KivOmbNetwork::VariableId> successors,
    std::int32_t first);

}  // namespace kiv
