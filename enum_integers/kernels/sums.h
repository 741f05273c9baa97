#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <utility>

#include "enum_integers/kernels/bit_window.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/distinct_candidates.h"
#include "enum_integers/kernels/runs.h"
#include "enum_integers/kernels/values.h"

// The sums and the differences of two sets. Each function hands the collection to `take` and
// returns what that returns.
namespace kiv::kernels {

// Whether no sum is clamped, and none of an infinity.
inline bool HasPlainSums(Values x, Values y) {
  return !HasInfinity(x) && !HasInfinity(y) &&
         std::int64_t{x.front()} + y.front() >= SubIntBase::kMin &&
         std::int64_t{x.back()} + y.back() <= SubIntBase::kMax;
}

// The plain sums of two sets that are not empty. There are at least |x| + |y| - 1: every x with the
// least y, and the greatest x with every other y. `in_order` collects the candidates one by one.
template <class Take, class InOrder>
auto CollectPlainSums(Values x, Values y, std::uint32_t cap, Take take, InOrder in_order) {
  const std::uint64_t candidates = std::uint64_t{x.size()} * y.size();
  const std::uint64_t least_count = std::uint64_t{x.size()} + y.size() - 1;
  if (least_count > cap) return take(AnyCollection());
  const std::int64_t lowest = std::int64_t{x.front()} + y.front();
  const std::int64_t highest = std::int64_t{x.back()} + y.back();
  const bool x_is_interval = IsInterval(x);
  const bool y_is_interval = IsInterval(y);
  if (x_is_interval && y_is_interval) {
    if (least_count == cap && candidates > cap) return in_order();
    return take(
        IntervalCollection{static_cast<std::int32_t>(lowest), static_cast<std::int32_t>(highest)});
  }
  if (x_is_interval || y_is_interval) {
    const auto& [set, interval] = x_is_interval ? std::pair(y, x) : std::pair(x, y);
    if (set.size() <= Runs::kMaxValues) {
      return TakeUnlessFull(Runs(set, interval.front(), interval.back()), candidates, cap, take,
                            in_order);
    }
  }
  // A copy of one set's bits is added for every value of the other, while that is less work than to
  // look at every pair.
  constexpr std::uint64_t kWordsPerCandidate = 4;
  const std::uint64_t moving_x = y.size() * (BitWindow::CountWords(x.front(), x.back()) + 1);
  const std::uint64_t moving_y = x.size() * (BitWindow::CountWords(y.front(), y.back()) + 1);
  if (BitWindow::Fits(lowest, highest) &&
      std::min(moving_x, moving_y) <= kWordsPerCandidate * candidates) {
    const auto& [moved, distances] = moving_x < moving_y ? std::pair(x, y) : std::pair(y, x);
    const BitWindow bits(moved);
    BitWindow sums(lowest, highest);
    for (const std::int32_t distance : distances) sums.AddMoved(bits, distance);
    return TakeUnlessFull(sums, candidates, cap, take, in_order);
  }
  return ProveTooMany(x, y, cap, std::plus()) ? take(AnyCollection()) : in_order();
}

template <class Take>
auto CollectSums(Values x, Values y, std::uint32_t cap, Take take) {
  if (x.empty() || y.empty()) return take(NilCollection());
  if (!HasPlainSums(x, y)) {
    const auto add = [](std::int32_t a, std::int32_t b) { return base_plus(a, b).GetValue(); };
    return CollectInOrder(x, y, cap, add, take);
  }
  return CollectPlainSums(x, y, cap, take,
                          [&] { return CollectInOrder(x, y, cap, std::plus(), take); });
}

// The differences z - y are the sums of z and the negated y.
template <class Take>
auto CollectDifferences(Values z, Values y, std::uint32_t cap, Take take) {
  if (z.empty() || y.empty()) return take(NilCollection());
  constexpr std::size_t kMaxNegated = 1024;
  std::array<std::int32_t, kMaxNegated> buffer;
  const Values negated(buffer.data(), std::min(y.size(), kMaxNegated));
  std::transform(y.rbegin(), y.rbegin() + std::ssize(negated), buffer.begin(), std::negate());
  if (negated.size() < y.size() || !HasPlainSums(z, negated)) {
    const auto subtract = [](std::int32_t a, std::int32_t b) {
      return base_minus(a, b).GetValue();
    };
    return CollectInOrder(z, y, cap, subtract, take);
  }
  return CollectPlainSums(z, negated, cap, take,
                          [&] { return CollectInOrder(z, y, cap, std::minus(), take); });
}

}  // namespace kiv::kernels
