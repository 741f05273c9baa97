#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// As many of its first arguments, booleans, are true as the last one, an integer, says. Domain
// consistent when no boolean is repeated; a repeated one counts each time it stands there.
class KIV_EXPORT BooleanCount final : public KivOmbiConstraint {
 public:
  BooleanCount();

  // Linear in the number of booleans.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

}  // namespace kiv
