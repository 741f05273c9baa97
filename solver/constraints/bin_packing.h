#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// Items of given weights, not negative, lie in bins, and each bin has the weight of its items as
// its load. Arguments, all integers: the bin of each item, then the load of each bin. Bins are
// numbered from `first` on, and an item lies in no other.
//
// Narrows by adding up weights: a load is at least what lies in its bin already and at most what
// may; together the loads are the weight of all items; an item that is too heavy for what is left
// of a bin does not lie there, and one without which a bin cannot get its least load does. After
// P. Shaw, "A constraint for bin packing" (CP 2004), without its reasoning about sums of subsets.
class KIV_EXPORT BinPacking final : public KivOmbiConstraint {
 public:
  // Throws std::invalid_argument when a weight is negative.
  BinPacking(std::vector<std::int32_t> weights, std::int32_t first);

  // O(items * bins).
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  struct Bin {
    std::int64_t surely;    // the weight that lies in it
    std::int64_t possibly;  // the weight that may
    std::int64_t least;     // load, not less than what lies in it
    std::int64_t most;      // load, not more than what may
  };

  unsigned Items() const { return static_cast<unsigned>(weights_.size()); }
  template <class Use>
  void ForEachBin(const KivOmbiObjectEnvironment& environment, unsigned item, Use&& use);
  KivOmbiFilterResult KeepBins(const KivOmbiObjectEnvironment& environment) const;
  void AddUp(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult NarrowLoads(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult NarrowItem(const KivOmbiObjectEnvironment& environment, unsigned item);

  std::vector<std::int32_t> weights_;  // by item
  std::int64_t total_ = 0;
  std::int64_t first_;
  std::vector<Bin> bins_;
};

}  // namespace kiv
