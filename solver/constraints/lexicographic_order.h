#pragma once

#include "framework/abstract_types/constraint.h"

namespace kiv {

// The vector x stands before y, or is equal to it where that is allowed, in lexicographic order;
// a proper prefix of a vector stands before it. Arguments: those of x, then those of y, integers.
// Domain consistent when no variable is repeated.
//
// As in Frisch, Hnich, Kiziltan, Miguel, Walsh 2002, "Global constraints for lexicographic
// orderings", only the first pair that is not known to be equal is ever narrowed; whether it must
// differ depends on the pairs behind it, which are scanned up to the first that decides.
class KIV_EXPORT LexicographicOrder final : public KivOmbiConstraint {
 public:
  enum Equality : bool { kExcluded, kAllowed };
  // `length`: of x; the other arguments are y.
  LexicographicOrder(unsigned length, Equality equality);

  // Linear in the length behind the pairs known to be equal.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  bool IsEqual(const KivOmbiObjectEnvironment& environment, unsigned i) const;
  bool CanFollow(const KivOmbiObjectEnvironment& environment, unsigned i) const;
  bool IsEndAllowed(unsigned arguments) const;
  unsigned CommonLength(unsigned arguments) const;

  unsigned length_;
  Equality equality_;
  std::uint64_t equal_ = 0;  // how many pairs at the front are known to be equal
};

}  // namespace kiv
