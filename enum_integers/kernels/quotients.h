#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "enum_integers/kernels/byte_map.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// The quotients of a set by a divisor m > 0, without dividing each value.
//
// Division truncates, so the dividends of a quotient q are consecutive: they begin at q * m for
// q > 0, else at q * m - (m - 1), and end before those of q + 1. So q is a quotient if and only if
// the set has a value between two such bounds. For a set in a small window a table of ranks (how
// many values are below v) tells that from two entries; any other set is searched for the first
// value beyond the bound.
class Dividends {
 public:
  explicit Dividends(Values values) : values_(values) {
    if (IsInterval(values) || std::int64_t{values.back()} - values.front() >= kMaxWidth) return;
    has_ranks_ = true;
    std::uint16_t rank = 0;
    std::int64_t v = values.front();
    for (const std::int32_t value : values) {
      for (; v <= value; ++v) ranks_[v - values.front()] = rank;
      ++rank;
    }
    ranks_[v - values.front()] = rank;
  }

  // Adds sign * q to `quotients` for every quotient q by m. Stops when that returns false.
  template <class Quotients>
  bool AddQuotients(std::int32_t m, std::int64_t sign, Quotients& quotients) const {
    const std::int32_t first = values_.front() / m;
    const std::int32_t last = values_.back() / m;
    if (IsInterval(values_)) {
      for (std::int64_t q = first; q <= last; ++q) {
        if (!quotients.Add(sign * q)) return false;
      }
      return true;
    }
    return has_ranks_ ? AddByRanks(m, sign, first, last, quotients)
                      : AddBySearch(m, sign, quotients);
  }

 private:
  static constexpr std::int64_t kMaxWidth = 1 << 12;

  static std::int64_t FirstDividend(std::int64_t q, std::int64_t m) {
    return q > 0 ? q * m : q * m - (m - 1);
  }

  template <class Quotients>
  bool AddByRanks(std::int64_t m, std::int64_t sign, std::int64_t first, std::int64_t last,
                  Quotients& quotients) const {
    const std::int64_t lowest = values_.front();
    std::uint16_t rank = 0;
    for (std::int64_t q = first; q < last; ++q) {
      const std::uint16_t next = ranks_[FirstDividend(q + 1, m) - lowest];
      if (!quotients.AddIf(sign * q, next != rank)) return false;
      rank = next;
    }
    return quotients.Add(sign * last);
  }

  template <class Quotients>
  bool AddBySearch(std::int32_t m, std::int64_t sign, Quotients& quotients) const {
    for (Values rest = values_;;) {
      const std::int32_t q = rest.front() / m;
      if (!quotients.Add(sign * q)) return false;
      const std::int64_t bound = FirstDividend(std::int64_t{q} + 1, m);
      if (bound > rest.back()) return true;
      rest =
          rest.subspan(rest[1] >= bound ? 1 : CountBelow(rest, static_cast<std::int32_t>(bound)));
    }
  }

  Values values_;
  bool has_ranks_ = false;
  std::array<std::uint16_t, kMaxWidth + 1> ranks_;
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
