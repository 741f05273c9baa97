#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// x - y <> constant: arguments (x, y), two variables. Once one is fixed the other loses the value
// that is left out, as far as its kind can lose it: every value left is part of a solution then,
// or, where the kind holds no gaps, both bounds are.
class KIV_EXPORT UnequalDifference final : public KivOmbiConstraint {
 public:
  // `constant` is within 33 bits, as all differences are.
  explicit UnequalDifference(std::int64_t constant);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int64_t constant_;
};

}  // namespace kiv
