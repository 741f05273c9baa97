#pragma once

#include <optional>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/reification.h"

namespace kiv {

// A truth value goes with x = y, or with x <> y, over integers: arguments (x, y, t). Domain
// consistent, also when x and y are one variable.
class KIV_EXPORT EqualTruth final : public KivOmbiConstraint {
 public:
  enum Which : bool { kUnequal, kEqual };
  EqualTruth(Which which, Reification reification);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  Which which_;
  Reification reification_;
};

}  // namespace kiv
