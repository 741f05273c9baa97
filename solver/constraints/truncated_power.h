#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// z = x ^ y over integers (x, y, z), where a negative exponent divides: then z is the quotient of 1
// by x ^ -y, truncated toward zero, so 0 for all bases but 0, which has none, and 1 and -1. Any
// base to the 0 is 1.
//
// While all three have few values, each value left is part of a solution where the kinds can have
// holes; otherwise the bounds tell what they can.
class KIV_EXPORT TruncatedPower final : public KivOmbiConstraint {
 public:
  TruncatedPower();

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

}  // namespace kiv
