#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <numeric>

#include "enum_integers/kernels/byte_map.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// The quotients of a set by a divisor m > 0, mostly without dividing its values.
//
// Division truncates, so the dividends of a quotient q are consecutive: they begin at q * m for
// q > 0, else at q * m - (m - 1), and end before those of q + 1. So q is a quotient if and only if
// more values are below the end than below the beginning. A table tells how many values are below
// every 2^shift-th integer of the window, and a few values, mostly none, are looked at from there.
// Where there are more quotients between the least and the greatest than values, the values are
// divided.
class Dividends {
 public:
  explicit Dividends(Values values) : values_(values) {
    if (IsInterval(values)) return;
    const auto width = static_cast<std::uint64_t>(std::int64_t{values.back()} - values.front());
    while (width >> shift_ >=
           std::min<std::uint64_t>(kEntriesPerValue * values.size() + 64, kMaxEntries)) {
      ++shift_;
    }
    // How many values are in the entry before, and then in all of them, without a branch.
    const std::uint64_t entries = (width >> shift_) + 1;
    std::fill_n(below_.begin(), entries + 1, 0);
    for (const std::int32_t v : values) ++below_[(OffsetOf(v) >> shift_) + 1];
    std::partial_sum(below_.begin(), below_.begin() + static_cast<std::ptrdiff_t>(entries),
                     below_.begin());
  }

  // Adds sign * q to `quotients` for every quotient q by m. Stops when that returns false.
  template <class Quotients>
  bool AddQuotients(std::int32_t m, std::int64_t sign, Quotients& quotients) const {
    const std::int64_t first = values_.front() / m;
    const std::int64_t last = values_.back() / m;
    if (IsInterval(values_)) {
      for (std::int64_t q = first; q <= last; ++q) {
        if (!quotients.Add(sign * q)) return false;
      }
      return true;
    }
    if (last - first >= std::ssize(values_)) {
      return std::all_of(values_.begin(), values_.end(),
                         [&](std::int32_t v) { return quotients.Add(sign * (v / m)); });
    }
    std::uint32_t below = 0;
    for (std::int64_t q = first; q < last; ++q) {
      const std::uint32_t next = CountBelowInside(FirstDividend(q + 1, m));
      if (!quotients.AddIf(sign * q, next != below)) return false;
      below = next;
    }
    return quotients.Add(sign * last);
  }

 private:
  static constexpr std::uint64_t kEntriesPerValue = 8;
  static constexpr std::uint64_t kMaxEntries = 1 << 12;

  static std::int64_t FirstDividend(std::int64_t q, std::int64_t m) {
    return q > 0 ? q * m : q * m - (m - 1);
  }

  std::uint64_t OffsetOf(std::int64_t v) const {
    return static_cast<std::uint64_t>(v - values_.front());
  }

  // For `v` from the least value to the greatest.
  std::uint32_t CountBelowInside(std::int64_t v) const {
    std::uint32_t below = below_[OffsetOf(v) >> shift_];
    while (values_[below] < v) ++below;
    return below;
  }

  Values values_;
  unsigned shift_ = 0;
  std::array<std::uint32_t, kMaxEntries + 1>
      below_;  // values in entries before that of the position
};

// Quotients in a map or, where their window is wide, in a table; `Add` gives false once it is clear
// that there are too many.
class MappedQuotients {
 public:
  explicit MappedQuotients(ByteMap& map) : map_(map) {}
  bool Add(std::int64_t q) {
    map_.Add(q);
    return true;
  }
  bool AddIf(std::int64_t q, bool holds) {
    map_.AddIf(q, holds);
    return true;
  }

 private:
  ByteMap& map_;
};

class TabledQuotients {
 public:
  explicit TabledQuotients(CandidateTable& table) : table_(table) {}
  bool Add(std::int64_t q) { return table_.Add(static_cast<std::int32_t>(q)); }
  bool AddIf(std::int64_t q, bool holds) { return !holds || Add(q); }

 private:
  CandidateTable& table_;
};

// The truncated quotients z / y for every y but 0. Hands the collection to `take` and returns what
// that returns.
template <class Take>
auto CollectQuotients(Values z, Values y, std::uint32_t cap, Take take) {
  const auto zero = std::lower_bound(y.begin(), y.end(), 0);
  const Values negative(y.begin(), zero);
  const Values positive(zero != y.end() && *zero == 0 ? zero + 1 : zero, y.end());
  if (z.empty() || (negative.empty() && positive.empty())) return take(NilCollection());
  const std::uint64_t candidates = std::uint64_t{z.size()} * (negative.size() + positive.size());
  const auto in_order = [&] {
    CandidateTable table(candidates, cap);
    for (const Values divisors : {negative, positive}) {
      InsertPairs(table, divisors, z, [](std::int32_t divisor, std::int32_t dividend) {
        return base_div(dividend, divisor).GetValue();
      });
    }
    return TakeTable(table, take);
  };
  if (HasInfinity(z) || HasInfinity(y)) return in_order();
  const Dividends dividends(z);
  const auto add_all_to = [&](auto quotients) {
    return std::all_of(negative.begin(), negative.end(),
                       [&](std::int32_t d) { return dividends.AddQuotients(-d, -1, quotients); }) &&
           std::all_of(positive.begin(), positive.end(),
                       [&](std::int32_t d) { return dividends.AddQuotients(d, 1, quotients); });
  };
  // The greatest magnitude, for quotients of either sign that there may be.
  const std::int64_t least_divisor =
      std::min(negative.empty() ? SubIntBase::kMax : -std::int64_t{negative.back()},
               positive.empty() ? SubIntBase::kMax : std::int64_t{positive.front()});
  const std::int64_t greatest =
      std::max(std::abs(std::int64_t{z.front()}), std::abs(std::int64_t{z.back()})) / least_divisor;
  const bool z_has_negative = z.front() < 0;
  const bool z_has_positive = z.back() > 0;
  const bool has_negative =
      (z_has_negative && !positive.empty()) || (z_has_positive && !negative.empty());
  const bool has_positive =
      (z_has_negative && !negative.empty()) || (z_has_positive && !positive.empty());
  const std::int64_t lowest = has_negative ? -greatest : 0;
  const std::int64_t highest = has_positive ? greatest : 0;
  if (ByteMap::Suits(lowest, highest, candidates)) {
    ByteMap map(lowest, highest);
    add_all_to(MappedQuotients(map));
    return TakeUnlessFull(map, candidates, cap, take, in_order);
  }
  CandidateTable table(candidates, cap);
  if (!add_all_to(TabledQuotients(table))) return take(AnyCollection());
  return TakeUnlessFull(table, candidates, cap, take, in_order);
}

}  // namespace kiv::kernels
