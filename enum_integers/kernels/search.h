#pragma once

#include <cstddef>
#include <cstdint>

#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// How many of the values are below `v`: a bisection without branches, because where it turns next
// cannot be predicted.
inline unsigned CountBelow(Values values, std::int32_t v) {
  const std::int32_t* first = values.data();
  for (std::size_t n = values.size(); n > 0;) {
    const std::size_t half = (n + 1) / 2;
    first += half * static_cast<std::size_t>(first[half - 1] < v);
    n -= half;
  }
  return static_cast<unsigned>(first - values.data());
}

// How many of the values are at most `v`.
inline unsigned CountUpTo(Values values, std::int32_t v) {
  unsigned count = CountBelow(values, v);
  while (count < values.size() && values[count] == v) ++count;
  return count;
}

inline bool Contains(Values values, std::int32_t v) {
  const unsigned i = CountBelow(values, v);
  return i < values.size() && values[i] == v;
}

}  // namespace kiv::kernels
