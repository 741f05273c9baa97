#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/distinct_terms.h"
#include "solver/constraints/stuck_values.h"

namespace kiv {

// The terms x[i] + c[i] are pairwise different, by value elimination: when an argument becomes
// fixed, its value leaves all others, as far as their kinds can lose it. Over a path of the search
// each pair of arguments is looked at once, save where a kind keeps inner values.
class KIV_EXPORT AllDifferent final : public KivOmbiConstraint {
 public:
  // `offsets` are the constants c, as many as there will be arguments, or none for zeros.
  explicit AllDifferent(TermOffsets offsets = {});

  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void Prepare(const KivOmbiObjectEnvironment& environment);

  TermOffsets offsets_;
  bool contradictory_ = false;  // two terms are one
  // All arguments; the first settled_ are fixed, and the others lost their values.
  std::vector<unsigned> order_;
  std::uint64_t settled_ = 0;  // goes back with the levels
  StuckValues stuck_;
};

}  // namespace kiv
