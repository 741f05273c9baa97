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

// Its boolean t is true if and only if its integer x is among given values: arguments (x, t). While
// t is open x keeps its values; t is known as soon as all or none of these are among the given
// ones.
class KIV_EXPORT ReifiedMembership final : public KivOmbiConstraint {
 public:
  // `values` ascending, without duplicates.
  explicit ReifiedMembership(std::vector<std::int32_t> values);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::vector<std::int32_t> values_;
};

}  // namespace kiv
