#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// Its one integer is among given values: the part of a declared domain that a kind cannot hold
// itself.
class KIV_EXPORT Membership final : public KivOmbiConstraint {
 public:
  // `values` ascending, without duplicates, not empty.
  explicit Membership(std::vector<std::int32_t> values);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::vector<std::int32_t> values_;
};

}  // namespace kiv
