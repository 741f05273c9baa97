#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/reification.h"

namespace kiv {

// Another constraint, over the first arguments, that a truth value, the last argument, goes with.
// So that a partial function has a truth value where it has no result: outside its domain it does
// not hold.
//
// While the truth is true the other constraint narrows as it does alone. Before, its ground truth
// is asked once at most one of its variables is open, with few values: the truth becomes known as
// soon as all of these or none satisfy it, and if an equivalence is false the variable loses those
// that do, as far as its kind can. With more variables open, or a wider one, it waits.
class KIV_EXPORT Reified final : public KivOmbiConstraint {
 public:
  Reified(std::unique_ptr<KivOmbiConstraint> inner, Reification reification);

  void Activate(KivOmbiNetwork* network) override;
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void Impose(const KivOmbiObjectEnvironment& environment);
  bool AreTwoOpen(const KivOmbiObjectEnvironment& arguments);
  bool HoldsFor(const KivOmbiObjectEnvironment& arguments, unsigned open, std::int64_t value);
  KivOmbiFilterResult NarrowItself(const KivOmbiObjectEnvironment& arguments, unsigned open);
  KivOmbiFilterResult NarrowByValues(const KivOmbiObjectEnvironment& environment, unsigned open);

  std::unique_ptr<KivOmbiConstraint> inner_;
  Reification reification_;
  KivOmbiNetwork* network_ = nullptr;
  std::uint64_t is_imposed_ = 0;  // 1 while the inner constraint runs itself; restored
  // The first open argument, and one of another variable, as they were found last; two that are
  // open still were so on earlier levels too, so that they need no restoring.
  std::array<unsigned, 2> open_{0, 0};
  std::vector<std::int64_t> values_;  // of the arguments of inner_, while it is judged
};

}  // namespace kiv
