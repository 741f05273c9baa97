#pragma once

#include <cstdint>
#include <optional>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/reification.h"

namespace kiv {

// A truth value goes with lower <= x <= upper, or with the opposite: arguments (x, t). One value,
// all up to a bound and all from a bound are such ranges. Domain consistent.
class KIV_EXPORT RangeTruth final : public KivOmbiConstraint {
 public:
  enum Which : bool { kOutside, kInside };
  // lower <= upper; a limit at or beyond the ends of the values of variables is none.
  RangeTruth(Which which, std::int64_t lower, std::int64_t upper, Reification reification);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::optional<bool> LiesInside(const KivOmbiObjectEnvironment& environment) const;
  KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, bool inside) const;
  KivOmbiFilterResult Leave(const KivOmbiObjectEnvironment& environment) const;

  std::int32_t lower_;  // the infinities for no limit
  std::int32_t upper_;
  Which which_;
  Reification reification_;
};

}  // namespace kiv
