#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// Its first arguments x have as many different values as the last one, c, says. At least as many as
// x has intervals of which no two meet, at most as many as there are fixed values and open
// arguments; where c allows no more values, or needs all that many, open arguments keep to the
// fixed values or lose them. A run costs O(n log n) and what is removed.
class KIV_EXPORT NumberOfValues final : public KivOmbiConstraint {
 public:
  NumberOfValues();

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::int32_t CountDisjoint(const KivOmbiObjectEnvironment& environment, unsigned terms);

  std::vector<unsigned> by_upper_;
  std::vector<unsigned> open_;       // arguments that are not fixed
  std::vector<std::int32_t> taken_;  // values of those that are, ascending
};

}  // namespace kiv
