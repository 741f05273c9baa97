#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/reification.h"

namespace kiv {

// x - y <= most: arguments (x, y). Domain consistent, also when x and y are one variable.
class KIV_EXPORT BoundedDifference final : public KivOmbiConstraint {
 public:
  // `most` is within 33 bits, as all differences are.
  explicit BoundedDifference(std::int64_t most);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int64_t most_;
};

// A truth value goes with x - y <= most: arguments (x, y, t). Domain consistent, as above.
class KIV_EXPORT BoundedDifferenceTruth final : public KivOmbiConstraint {
 public:
  BoundedDifferenceTruth(std::int64_t most, Reification reification);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int64_t most_;
  Reification reification_;
};

}  // namespace kiv
