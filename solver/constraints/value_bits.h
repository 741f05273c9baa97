#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

// Sets of integers as words of bits over a window: bit k of all words stands for the integer k
// above the base of the window. What constraints ask of every value of several small domains is
// asked of 64 at once this way.
namespace kiv {

using BitWord = std::uint64_t;
using BitWords = std::vector<BitWord>;
inline constexpr unsigned kBitsPerWord = 64;

// The widest window that is worth its words.
inline constexpr std::int64_t kWidestBitWindow = 1024;

inline std::size_t CountWords(std::int64_t width) {
  return static_cast<std::size_t>((width + kBitsPerWord - 1) / kBitsPerWord);
}

inline BitWord BitOf(std::size_t place) { return BitWord{1} << (place % kBitsPerWord); }
inline bool HasBit(std::span<const BitWord> bits, std::size_t place) {
  return (bits[place / kBitsPerWord] & BitOf(place)) != 0;
}

inline bool Meet(std::span<const BitWord> a, std::span<const BitWord> b) {
  for (std::size_t w = 0; w < a.size(); ++w) {
    if ((a[w] & b[w]) != 0) return true;
  }
  return false;
}

// Calls `use(place)` for the bits of a word, the first of which stands for `place`.
template <class Use>
void ForEachBit(BitWord word, std::size_t place, Use&& use) {
  for (; word != 0; word &= word - 1) use(place + static_cast<std::size_t>(std::countr_zero(word)));
}
template <class Use>
void ForEachBit(std::span<const BitWord> bits, Use&& use) {
  for (std::size_t w = 0; w < bits.size(); ++w) ForEachBit(bits[w], w * kBitsPerWord, use);
}

// `bits` become the values of argument i in the window that starts at `base`. An argument of which
// nothing is known has all.
KIV_EXPORT void TakeBits(const KivOmbiObjectEnvironment& environment, unsigned i, std::int64_t base,
                         std::span<BitWord> bits);

// The values of argument i from its lower bound on. They are known and fit a word.
BitWord TakeWord(const KivOmbiObjectEnvironment& environment, unsigned i);
// Leaves the argument that has the values `word` those that are `kept`: some of them, and not all.
KivOmbiFilterResult KeepWord(const KivOmbiObjectEnvironment& environment, unsigned i, BitWord word,
                             BitWord kept);

}  // namespace kiv
