#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// No two of its integers are equal. When an argument becomes fixed or a bound
// moves, removes the value of each fixed
// argument from all others, as far as their kinds can lose it.
class KIV_EXPORT AllDifferent final : public KivOmbiConstraint {
 public:
  AllDifferent();

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

}  // namespace kiv
