#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

// As many of its first arguments x as the last one, c, says have a value among given ones. With one
// value it counts that. Over kinds that can lose inner values every value left is part of a
// solution, unless a variable is repeated; bounds of c are always exact. A run costs O(n * |set|).
class KIV_EXPORT Among final : public KivOmbiConstraint {
 public:
  explicit Among(std::vector<std::int32_t> set);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  std::vector<std::int32_t> set_;
};

// Narrows the first `terms` arguments and argument `count`, which says how many of those are in
// `set`; kKivEntailed when that can no longer fail. What it narrows may let it narrow more.
KivOmbiFilterResult NarrowAmong(const KivOmbiObjectEnvironment& environment, unsigned terms,
                                unsigned count, ValueSet set);

}  // namespace kiv
