#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// As many of its first arguments x as the last one, c, says equal the last but one, y. While y has
// several values, those that cannot be taken as often as c allows leave it, and c keeps to how
// often those that remain can be; then it is Among. A run costs O(n * |y|).
class KIV_EXPORT Count final : public KivOmbiConstraint {
 public:
  Count();

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

}  // namespace kiv
