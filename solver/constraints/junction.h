#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// t if and only if all of n literals are true, or any of them is: booleans (t, x1, ..., xn). The
// first `positive` of the x stand for themselves, the others for their negations. Of none, all are
// true and any is not. Domain consistent, also with repeated variables, but for one that stands for
// itself and for its negation.
class KIV_EXPORT Junction final : public KivOmbiConstraint {
 public:
  enum Which : bool { kAll, kAny };
  // All x for themselves.
  explicit Junction(Which which);
  Junction(Which which, unsigned positive);

  // Linear in n.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  // The value of argument i that makes its literal true.
  bool Wanted(unsigned i) const { return i <= positive_; }

  Which which_;
  unsigned positive_;
};

}  // namespace kiv
