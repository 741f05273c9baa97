#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// m is the greatest, or the least, of one or more integers: arguments (m, x1, ..., xn). Domain
// consistent where the kinds can have holes and hold few values and no variable is repeated,
// otherwise as far as the bounds tell. Of no integers there is neither, so n = 0 is a
// contradiction; a poster should refuse it.
class KIV_EXPORT Extremum final : public KivOmbiConstraint {
 public:
  enum Which : int { kLeast = -1, kGreatest = 1 };
  explicit Extremum(Which which);

  // Linear in n, and at worst n times the number of the values of m.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  Which which_;
};

}  // namespace kiv
