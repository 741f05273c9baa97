#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// z = coefficient * x over two integers (x, z) of any kinds. Narrows value by value where both hold
// few, by bounds otherwise.
class KIV_EXPORT Scaling final : public KivOmbiConstraint {
 public:
  explicit Scaling(std::int32_t coefficient);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int64_t coefficient_;
};

}  // namespace kiv
