#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <numeric>

#include "enum_integers/kernels/byte_map.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// The quotients of values of one sign by a divisor m > 0, mostly without dividing them.
//
// Division truncates, so the dividends of a quotient q are consecutive: they begin at q * m where
// they are positive, at q * m - (m - 1) where they are not, and end before those of q + 1, m
// integers further on. So q is a quotient if and only if more values are below the end than below
// the beginning. A table tells how many values are below every 2^shift-th integer of the window,
// and a few values, mostly none, are looked at from there. Where there are more quotients between
// the least and the greatest than values, the values are divided.
class Dividends {
 public:
  // All negative, or none; not empty.
  explicit Dividends(Values values) : values_(values) {
    if (IsInterval(values)) return;
    while (Width() >> shift_ >=
           std::min<std::uint64_t>(kEntriesPerValue * values.size() + 64, kMaxEntries)) {
      ++shift_;
    }
    // How many values are in the entry before, and then in all of them, without a branch.
    const std::uint64_t entries = (Width() >> shift_) + 1;
    std::fill_n(below_.begin(), entries + 1, 0);
    for (const std::int32_t v : values) ++below_[(OffsetOf(v) >> shift_) + 1];
    std::partial_sum(below_.begin(), below_.begin() + static_cast<std::ptrdiff_t>(entries),
                     below_.begin());
  }

  // Adds sign * q to `quotients` for every quotient q by m. Stops when that returns false.
  template <class Quotients>
  bool AddQuotients(std::int32_t m, std::int64_t sign, Quotients quotients) const {
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
    // Both have copies of what they need: a store to a map of bytes could change anything else.
    const auto look_up = [entries = below_.data()](std::uint64_t offset) {
      return entries[offset];
    };
    const auto search = [values = values_, shift = shift_,
                         entries = below_.data()](std::uint64_t offset) {
      const std::int64_t v = values.front() + static_cast<std::int64_t>(offset);
      std::uint32_t below = entries[offset >> shift];
      while (values[below] < v) ++below;
      return below;
    };
    return shift_ == 0 ? AddCounted(m, first, last, sign, look_up, quotients)
                       : AddCounted(m, first, last, sign, search, quotients);
  }

 private:
  static constexpr std::uint64_t kEntriesPerValue = 8;
  static constexpr std::uint64_t kMaxEntries = 1 << 12;

  std::uint64_t OffsetOf(std::int64_t v) const {
    return static_cast<std::uint64_t>(v - values_.front());
  }
  std::uint64_t Width() const { return OffsetOf(values_.back()); }

  // The same, for the quotients from `first` to `last`. `count_below` counts the values below the
  // integer at an offset, which is in the window.
  template <class Count, class Quotients>
  bool AddCounted(std::int64_t m, std::int64_t first, std::int64_t last, std::int64_t sign,
                  Count count_below, Quotients quotients) const {
    // How often the modulus goes into the window: a number that is the same for moduli of about one
    // size, so that the end of the loop is foreseen. Between the first quotient and the last are
    // that many or one more, so that the last step is one too many now and then; it adds then, if
    // anything, the last quotient.
    const bool has_one_more = values_.back() - last * m < values_.front() - first * m;
    const std::int64_t sure = last - first - (has_one_more ? 1 : 0);
    std::uint64_t end = OffsetOf(values_.front() < 0 ? first * m + 1 : (first + 1) * m);
    std::uint32_t below = 0;
    std::int64_t q = sign * first;
    for (std::int64_t steps = sure; steps > 0; --steps) {
      const std::uint32_t next = count_below(end);
      if (!quotients.AddIf(q, next != below)) return false;
      below = next;
      end += static_cast<std::uint64_t>(m);
      q += sign;
    }
    return quotients.AddIf(q, count_below(std::min(end, Width())) != below) &&
           quotients.Add(sign * last);
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
  explicit MappedQuotients(ByteMap& map) : bytes_(map.GetBytes()), lowest_(map.GetLowest()) {}
  bool Add(std::int64_t q) {
    bytes_[q - lowest_] = 1;
    return true;
  }
  bool AddIf(std::int64_t q, bool holds) {
    bytes_[q - lowest_] |= static_cast<std::uint8_t>(holds);
    return true;
  }

 private:
  std::uint8_t* bytes_;
  std::int64_t lowest_;
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
  const auto add_all_of = [&](Values part, auto quotients) {
    if (part.empty()) return true;
    const Dividends dividends(part);
    return std::all_of(negative.begin(), negative.end(),
                       [&](std::int32_t d) { return dividends.AddQuotients(-d, -1, quotients); }) &&
           std::all_of(positive.begin(), positive.end(),
                       [&](std::int32_t d) { return dividends.AddQuotients(d, 1, quotients); });
  };
  const auto add_all_to = [&](auto quotients) {
    const Values below_zero = z.first(CountBelow(z, 0));
    return add_all_of(below_zero, quotients) && add_all_of(z.subspan(below_zero.size()), quotients);
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
