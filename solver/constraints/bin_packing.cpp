#include "solver/constraints/bin_packing.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::BinPacking", 0, 0, true);

}  // namespace

BinPacking::BinPacking(std::vector<std::int32_t> weights, std::int32_t first)
    : KivOmbiConstraint(&descriptor), weights_(std::move(weights)), first_(first) {
  for (const std::int32_t weight : weights_) {
    if (weight < 0) throw std::invalid_argument("bin_packing: a negative weight");
    total_ += weight;
  }
}

// Calls use(number, bin) for the bins where `item` may lie.
template <class Use>
void BinPacking::ForEachBin(const KivOmbiObjectEnvironment& environment, unsigned item, Use&& use) {
  const KivOmbiDomainSummary& summary = environment.Summary(item);
  const std::int64_t last = first_ + static_cast<std::int64_t>(bins_.size()) - 1;
  const std::int64_t lower = std::max<std::int64_t>(first_, summary.lower);
  const std::int64_t upper = std::min<std::int64_t>(last, summary.upper);
  for (std::int64_t number = lower; number <= upper; ++number) {
    const auto value = static_cast<std::int32_t>(number);
    if (!environment.Integer(item).MayBe(value)) continue;
    use(value, bins_[static_cast<std::size_t>(number - first_)]);
  }
}

KivOmbiFilterResult BinPacking::KeepBins(const KivOmbiObjectEnvironment& environment) const {
  // A bin whose number no variable can hold stays empty.
  const std::int64_t last = first_ + static_cast<std::int64_t>(bins_.size()) - 1;
  const auto greatest =
      static_cast<std::int32_t>(std::min<std::int64_t>(last, SubIntBase::kMax - 1));
  for (unsigned item = 0; item < Items(); ++item) {
    const auto result = KeepRange(environment, item, static_cast<std::int32_t>(first_), greatest);
    if (result != 0) return result;
  }
  return 0;
}

void BinPacking::AddUp(const KivOmbiObjectEnvironment& environment) {
  std::ranges::fill(bins_, Bin{});
  for (unsigned item = 0; item < Items(); ++item) {
    const std::int64_t weight = weights_[item];
    const bool is_fixed = environment.Summary(item).IsFixed();
    ForEachBin(environment, item, [&](std::int32_t, Bin& bin) {
      bin.possibly += weight;
      if (is_fixed) bin.surely += weight;
    });
  }
}

KivOmbiFilterResult BinPacking::NarrowLoads(const KivOmbiObjectEnvironment& environment) {
  std::int64_t least = 0;
  std::int64_t most = 0;
  for (unsigned i = 0; i < bins_.size(); ++i) {
    Bin& bin = bins_[i];
    const Hull load = HullOf(environment, Items() + i);
    bin.least = std::max(load.lower, bin.surely);
    bin.most = std::min(load.upper, bin.possibly);
    if (bin.least > bin.most) return kKivContradiction;
    least += bin.least;
    most += bin.most;
  }
  for (unsigned i = 0; i < bins_.size(); ++i) {
    Bin& bin = bins_[i];
    const std::int64_t others_least = least - bin.least;
    const std::int64_t others_most = most - bin.most;
    bin.least = std::max(bin.least, total_ - others_most);
    bin.most = std::min(bin.most, total_ - others_least);
    const auto result = NarrowToHull(environment, Items() + i, {bin.least, bin.most});
    if (result != 0) return result;
  }
  return 0;
}

KivOmbiFilterResult BinPacking::NarrowItem(const KivOmbiObjectEnvironment& environment,
                                           unsigned item) {
  const std::int64_t weight = weights_[item];
  KivOmbiFilterResult result = 0;
  ForEachBin(environment, item, [&](std::int32_t number, const Bin& bin) {
    if (result != 0) return;
    if (bin.surely + weight > bin.most) {
      result = RemoveValue(environment, item, number);
    } else if (bin.possibly - weight < bin.least) {
      result = FixTo(environment, item, number);
    }
  });
  return result;
}

std::int64_t BinPacking::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  bins_.resize(environment.Count() - Items());
  if (bins_.empty()) return Items() == 0 ? kKivEntailed : kKivContradiction;
  if (const auto result = KeepBins(environment)) return result;
  AddUp(environment);
  if (const auto result = NarrowLoads(environment)) return result;
  for (unsigned item = 0; item < Items(); ++item) {
    if (environment.Summary(item).IsFixed()) continue;
    if (const auto result = NarrowItem(environment, item)) return result;
  }
  return Settle(environment);
}

KivOmbiConstraint::Cost BinPacking::GetCost() const { return kQuadratic; }

std::int64_t BinPacking::GetWakingEvents(unsigned index, unsigned) const {
  return index < Items() ? kKivValues : kKivBounds;
}

bool BinPacking::Holds(std::span<const std::int64_t> values) const {
  const auto loads = values.subspan(weights_.size());
  std::vector<std::int64_t> sums(loads.size(), 0);
  for (std::size_t item = 0; item < weights_.size(); ++item) {
    const std::int64_t bin = values[item] - first_;
    if (bin < 0 || bin >= static_cast<std::int64_t>(sums.size())) return false;
    sums[static_cast<std::size_t>(bin)] += weights_[item];
  }
  return std::ranges::equal(sums, loads);
}

}  // namespace kiv
