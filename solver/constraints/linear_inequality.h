#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_sum.h"

namespace kiv {

// sum of coefficient[i] * argument i <= constant, over different integers of any kinds. Every value
// left is part of a solution over the domains left. Entailed as soon as no choice can exceed the
// constant.
class KIV_EXPORT LinearInequality final : public KivOmbiConstraint {
 public:
  // What LinearSum says of the coefficients holds here.
  LinearInequality(std::vector<std::int64_t> coefficients, Int128 constant);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  LinearSum sum_;
  Int128 constant_;
  LinearSum::Limits limits_;
};

}  // namespace kiv
