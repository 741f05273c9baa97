#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "enum_integers/kernels/values.h"

// Searches among ascending values, without a branch that depends on the values: where a bisection
// turns next cannot be predicted.
namespace kiv::kernels {

// The last position that `precedes` accepts, or else the first one, of values that are not empty;
// it accepts none behind one that it does not.
//
// Invariant: what is sought is among the `n` values from `first` on. While there are two or more,
// the middle one is behind the first, so it is in the range itself when it is accepted.
template <class Precedes>
const std::int32_t* LastOf(Values values, Precedes precedes) {
  const std::int32_t* first = values.data();
  for (std::size_t n = values.size(); n > 1;) {
    const std::size_t half = n / 2;
    // Told that it cannot be predicted, the compiler moves by condition.
    if (__builtin_expect_with_probability(precedes(first[half]), 1, 0.5)) first += half;
    n -= half;
  }
  return first;
}

// How many of the values of an interval are below `v`.
inline unsigned CountBelowInInterval(Values values, std::int64_t v) {
  return static_cast<unsigned>(std::clamp<std::int64_t>(v - values.front(), 0, std::ssize(values)));
}

// How many of the values are below `v`.
inline unsigned CountBelow(Values values, std::int32_t v) {
  if (values.empty()) return 0;
  if (IsInterval(values)) return CountBelowInInterval(values, v);
  const std::int32_t* const last = LastOf(values, [v](std::int32_t w) { return w < v; });
  return static_cast<unsigned>(last - values.data()) + (*last < v ? 1u : 0u);
}

// How many of the values are at most `v`.
inline unsigned CountUpTo(Values values, std::int32_t v) {
  if (values.empty()) return 0;
  if (IsInterval(values)) return CountBelowInInterval(values, std::int64_t{v} + 1);
  const std::int32_t* const last = LastOf(values, [v](std::int32_t w) { return w <= v; });
  return static_cast<unsigned>(last - values.data()) + (*last <= v ? 1u : 0u);
}

// The same two for who mostly finds that no or few values lie on the far side: some are looked at
// one by one, before the others are searched.
constexpr std::size_t kFarSide = 4;

inline unsigned CountBelowFromFront(Values values, std::int32_t v) {
  std::size_t below = 0;
  while (below < values.size() && values[below] < v) {
    if (++below == kFarSide) {
      return static_cast<unsigned>(below) + CountBelow(values.subspan(below), v);
    }
  }
  return static_cast<unsigned>(below);
}

inline unsigned CountUpToFromBack(Values values, std::int32_t v) {
  std::size_t above = 0;
  while (above < values.size() && values[values.size() - 1 - above] > v) {
    if (++above == kFarSide) return CountUpTo(values.first(values.size() - above), v);
  }
  return static_cast<unsigned>(values.size() - above);
}

// Those from `lowest` to `highest`, which is no less.
inline Values PartBetween(Values values, std::int32_t lowest, std::int32_t highest) {
  const unsigned first = CountBelow(values, lowest);
  return values.subspan(first, CountUpTo(values, highest) - first);
}

inline bool Contains(Values values, std::int32_t v) {
  return !values.empty() && *LastOf(values, [v](std::int32_t w) { return w <= v; }) == v;
}

}  // namespace kiv::kernels
