#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_sum.h"

namespace kiv {

// sum of coefficient[i] * argument i <> constant, over different integers of any kinds. Once all
// arguments but one are fixed, that one loses the value that is left out, as far as its kind can
// lose it: every value left is part of a solution then, or, where the kind holds no gaps, both
// bounds are.
class KIV_EXPORT LinearDisequality final : public KivOmbiConstraint {
 public:
  // What LinearSum says of the coefficients holds here.
  LinearDisequality(std::vector<std::int64_t> coefficients, Int128 constant);

  // Takes constant time for an argument that is not watched.
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  static constexpr unsigned kNone = ~0u;

  LinearSum sum_;
  Int128 constant_;
  LinearSum::Limits limits_;
  // Two arguments that were open when last looked at: nothing is to be done while both are. A level
  // taken back only opens arguments, so they stay as they are then.
  std::array<unsigned, 2> watched_{kNone, kNone};
  // The argument that was the only open one when last looked at and could not lose the value: its
  // bounds may come to lie on it. It is so again when a level that fixed it is taken back; where
  // another level made it so, it costs a run at most.
  unsigned stuck_ = kNone;
};

// Removes the one value with which the sum is its limit, low and high, from the only argument that
// is not fixed, for a sum over the first arguments.
KivOmbiFilterResult NarrowToUnequal(const KivOmbiObjectEnvironment& environment,
                                    const LinearSum& sum, const LinearSum::Limits& limits);

}  // namespace kiv
