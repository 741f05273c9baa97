#pragma once

#include <array>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// The number of true ones among its booleans is odd, or even: the exclusive or of any number of
// them. Domain consistent when no variable is repeated.
//
// Nothing follows while two are open, so it watches two that are and sleeps while they stay so;
// what it watches needs no restoring, since an open boolean is open on earlier levels too.
class KIV_EXPORT Parity final : public KivOmbiConstraint {
 public:
  enum Which : bool { kEven, kOdd };
  explicit Parity(Which which);

  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  // Linear in the number of arguments.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  Which which_;
  std::array<unsigned, 2> watched_{0, 1};
};

}  // namespace kiv
