#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/linear_sum.h"
#include "solver/constraints/linear_support.h"
#include "solver/constraints/unit_sum.h"

namespace kiv {

// sum of coefficient[i] * argument i = constant, over different integers of any kinds.
//
// Up to three terms: every value left is part of a solution over the domains left, where the two
// smaller domains have at most `most_pairs` pairs of values; of an argument whose kind holds no
// gaps, or which has too many values to list, both bounds are. With two terms both bounds are at
// least part of a solution over the hulls left, however wide. More terms: both bounds satisfy the
// equation over the reals within the hulls left; with coefficients of 1 and -1 alone, over the
// integers.
class KIV_EXPORT LinearEquation final : public KivOmbiConstraint {
 public:
  // What LinearSum says of the coefficients holds here. With 0 for `most_pairs` bounds alone are
  // looked at.
  LinearEquation(std::vector<std::int64_t> coefficients, Int128 constant,
                 std::uint64_t most_pairs = kMostPairs);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  LinearSum sum_;
  Int128 constant_;
  LinearSum::Limits limits_;
  UnitSum unit_sum_;
  std::uint64_t most_pairs_;
};

// What the class does in a run, for a sum over the first arguments; both limits are the constant,
// and `unit_sum` is made from them.
KivOmbiFilterResult NarrowToEqual(const KivOmbiObjectEnvironment& environment, LinearSum& sum,
                                  const LinearSum::Limits& limits, const UnitSum& unit_sum,
                                  std::uint64_t most_pairs = kMostPairs);

// The events of an argument that can let NarrowToEqual narrow another.
std::int64_t WakingEventsOfEquation(const LinearSum& sum, std::uint64_t most_pairs = kMostPairs);

}  // namespace kiv
