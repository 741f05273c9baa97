#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "enum_integers/kernels/values.h"

// Sets within 64 consecutive integers as the bits of a word: the small dense domains of which a
// search has most. To build and to list a word takes one step for each value and no branch that
// depends on which values they are.
namespace kiv::kernels {

// For sets that are not empty: whether one word takes both.
inline bool ShareWord(Values a, Values b) {
  return std::int64_t{std::max(a.back(), b.back())} - std::min(a.front(), b.front()) < 64;
}

// The least integer of the word that both share.
inline std::int32_t WordBegin(Values a, Values b) { return std::min(a.front(), b.front()); }

inline std::uint64_t WordOf(Values values, std::int32_t begin) {
  std::uint64_t word = 0;
  for (const std::int32_t v : values) word |= std::uint64_t{1} << (v - begin);
  return word;
}

// Writes the values of the word; returns how many they are.
inline unsigned ListWord(std::uint64_t word, std::int32_t begin, std::int32_t* out) {
  unsigned count = 0;
  for (; word != 0; word &= word - 1) out[count++] = begin + std::countr_zero(word);
  return count;
}

}  // namespace kiv::kernels
