#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// t if and only if all of x1, ..., xn are true, or any of them is: booleans (t, x1, ..., xn). Of
// none, all are true and any is not. Domain consistent, also with repeated variables.
class KIV_EXPORT Junction final : public KivOmbiConstraint {
 public:
  enum Which : bool { kAll, kAny };
  explicit Junction(Which which);

  // Linear in n.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  Which which_;
};

}  // namespace kiv
