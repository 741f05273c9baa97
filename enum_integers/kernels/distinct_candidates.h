#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// Whether the first of the candidates combine(a, b) prove that there are too many: more different
// ones than the cap. A hash function gives equal candidates the same mark, so there are at least as
// many different candidates as marks; where marks are shared or candidates repeat themselves,
// nothing is proved. To mark is one store, which waits for no other and needs no comparison.
template <class Combine>
bool ProveTooMany(Values outer, Values inner, std::uint32_t cap, Combine combine) {
  constexpr std::uint32_t kLargestCap = 1024;
  // So many that, spread by chance, more than the largest cap of them have a mark of their own.
  constexpr std::uint64_t kCandidates = 1408;
  constexpr unsigned kLog2OfMarks = 13;
  if (cap > kLargestCap || std::uint64_t{outer.size()} * inner.size() < kCandidates) return false;
  std::array<std::uint8_t, 1 << kLog2OfMarks> marks{};
  const std::uint64_t rows = (kCandidates + inner.size() - 1) / inner.size();
  for (const std::int32_t a : outer.first(std::min<std::uint64_t>(rows, outer.size()))) {
    for (const std::int32_t b : inner) {
      marks[static_cast<std::uint32_t>(combine(a, b)) * 0x9E3779B1u >> (32 - kLog2OfMarks)] = 1;
    }
  }
  return std::accumulate(marks.begin(), marks.end(), 0u) > cap;
}

}  // namespace kiv::kernels
