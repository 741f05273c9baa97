#pragma once

#include <array>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// At least one of its literals is true. Arguments are booleans; the first `positive` of them stand
// for themselves, the others for their negations. Domain consistent, also with repeated variables;
// the empty clause is a contradiction.
//
// The clause watches two literals that are not false and sleeps while they stay so: as long as
// there are two, nothing follows. Which ones it watches needs no restoring, since a literal that
// was not false is not false on earlier levels either. (Moskewicz, Madigan, Zhao, Zhang, Malik
// 2001, "Chaff: Engineering an efficient SAT solver".)
class KIV_EXPORT Clause final : public KivOmbiConstraint {
 public:
  explicit Clause(unsigned positive);

  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  // The value of argument i that makes its literal true.
  bool Wanted(unsigned i) const { return i < positive_; }

  unsigned positive_;
  std::array<unsigned, 2> watched_{0, 1};
};

}  // namespace kiv
