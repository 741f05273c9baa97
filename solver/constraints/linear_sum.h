#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/open_terms.h"
#include "solver/constraints/wide_integer.h"

namespace kiv {

// coefficient[0] * argument 0 + coefficient[1] * argument 1 + ... over the first arguments of a
// running constraint, which are integers of any kinds: what the bounds of the arguments tell of the
// sum, and the other way round. Allocates nothing after its construction.
class LinearSum {
 public:
  // No coefficient is 0 or the least number of 64 bits. The arguments had better be different
  // variables: a repeated one is narrowed less than could be.
  explicit LinearSum(std::vector<std::int64_t> coefficients);

  unsigned Count() const noexcept { return static_cast<unsigned>(coefficients_.size()); }
  std::span<const std::int64_t> GetCoefficients() const noexcept { return coefficients_; }
  // Whether all coefficients are 1 or -1.
  bool HasUnitsOnly() const noexcept { return has_units_only_; }
  // The cost of a run over all arguments.
  KivOmbiConstraint::Cost GetCost() const noexcept;

  // The ground truth: the sum of these 32-bit values.
  Int128 Of(std::span<const std::int64_t> values) const;

  // Whether all sums of products that can occur stay far within 64 bits.
  bool IsNarrow() const noexcept { return reach_ < kNarrowReach; }
  // A number that stands in the same relations to all sums of 32-bit values as `constant` does, and
  // is not far beyond them.
  Int128 ClampToReach(Int128 constant) const;

  // low <= sum <= high, made once so that runs need not; a limit that is absent is none.
  struct Limits {
    std::optional<Int128> low;
    std::optional<Int128> high;
    // The same where the sum is narrow: a limit that is absent is one that no sum misses.
    std::int64_t narrow_low;
    std::int64_t narrow_high;
  };
  Limits LimitsOf(std::optional<Int128> low, std::optional<Int128> high) const;

  // Whether the bounds of the arguments tell that every choice meets the limits, or that none does.
  std::optional<bool> Meets(const KivOmbiObjectEnvironment& environment, const Limits& limits);

  // Narrows the bounds of the arguments to those with which the limits can be met over the reals.
  // An unknown argument that only few values are left for takes them, if its kind can. At most a
  // set number of rounds over the arguments: a run that is still moving then gives way, without
  // kKivAtFixpoint.
  KivOmbiFilterResult NarrowTo(const KivOmbiObjectEnvironment& environment, const Limits& limits);

 private:
  static constexpr Int128 kNarrowReach = Int128{1} << 61;

  std::vector<std::int64_t> coefficients_;
  OpenTerms terms_;
  bool has_units_only_ = true;
  Int128 reach_;  // no sum of 32-bit values is further from 0
};

}  // namespace kiv
