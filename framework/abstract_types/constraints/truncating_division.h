#pragma once

#include "framework/abstract_types/constraints/operator_constraint.h"

// Arguments x, y, z, all integers: z = x div y, the quotient truncated toward zero; y is not 0.
// With the remainder, x = y * (x div y) + x mod y.
//
// Narrows all three to their hulls, and while x and y (or y and z) have few values, drops each
// value without support from x and y (or from z).
class KIV_EXPORT KivOmbiTruncatingDivisionConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiTruncatingDivisionConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiTruncatingDivisionConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};
