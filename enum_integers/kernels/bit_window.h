#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// A collection within a window of integers, a bit each. All values of a set are moved by the same
// distance with one shift for 64 of them, and folded by a modulus with one for each part of the
// window that the modulus cuts off.
//
// Invariant: bits from the end of the window to the end of the storage in use are 0, and there is
// one word more than the window needs, so that unaligned reads and writes stay inside.
class BitWindow {
 public:
  static constexpr std::int64_t kMaxWidth = 1 << 15;

  // Empty, for the integers from `lowest` to `highest`, at most kMaxWidth of them.
  BitWindow(std::int64_t lowest, std::int64_t highest)
      : lowest_(lowest), width_(static_cast<std::uint64_t>(highest - lowest + 1)) {
    std::fill_n(words_.begin(), CountWords() + 1, 0);
  }
  // The values, which are not empty.
  explicit BitWindow(Values values) : BitWindow(values.front(), values.back()) {
    // A word is put together before it is stored: ascending values would wait for each other.
    std::uint64_t index = 0;
    std::uint64_t word = 0;
    for (const std::int32_t v : values) {
      const auto offset = static_cast<std::uint64_t>(v - lowest_);
      if (offset / 64 != index) {
        words_[index] = word;
        index = offset / 64;
        word = 0;
      }
      word |= std::uint64_t{1} << offset % 64;
    }
    words_[index] = word;
  }

  static bool Fits(std::int64_t lowest, std::int64_t highest) {
    return highest - lowest < kMaxWidth;
  }
  // How many words a window of these integers takes.
  static std::uint64_t CountWords(std::int64_t lowest, std::int64_t highest) {
    return (static_cast<std::uint64_t>(highest - lowest) + 64) / 64;
  }

  void Add(std::int64_t v) {
    const auto offset = static_cast<std::uint64_t>(v - lowest_);
    words_[offset / 64] |= std::uint64_t{1} << offset % 64;
  }

  // Adds v + distance for every v of `other`. All of them are in the window.
  void AddMoved(const BitWindow& other, std::int64_t distance) {
    const auto offset = static_cast<std::uint64_t>(other.lowest_ + distance - lowest_);
    std::uint64_t* to = &words_[offset / 64];
    const std::uint64_t shift = offset % 64;
    std::uint64_t carry = 0;
    const std::uint64_t count = other.CountWords();
    for (std::uint64_t i = 0; i < count; ++i) {
      to[i] |= other.words_[i] << shift | carry;
      carry = other.words_[i] >> 1 >> (63 - shift);
    }
    to[count] |= carry;
  }

  // Adds v mod m for every v of `other`, none of which is negative. This window begins at 0 and
  // holds all remainders.
  void AddFolded(const BitWindow& other, std::uint64_t m) {
    const std::uint64_t first = static_cast<std::uint64_t>(other.lowest_) % m;
    if (first + other.width_ <= m) {
      AddMoved(other, static_cast<std::int64_t>(first) - other.lowest_);
      return;
    }
    OrBits(first, other, 0, m - first);
    for (std::uint64_t from = m - first; from < other.width_; from += m) {
      OrBits(0, other, from, std::min(m, other.width_ - from));
    }
  }

  // Adds -v for every v of `other`.
  void AddMirrored(const BitWindow& other) {
    other.ForEach([this](std::int64_t v) { Add(-v); });
  }

  bool Contains(std::int64_t v) const {
    const auto offset = static_cast<std::uint64_t>(v - lowest_);
    return offset < width_ && (words_[offset / 64] >> offset % 64 & 1) != 0;
  }

  unsigned Count() const {
    int count = 0;
    for (std::uint64_t i = 0; i < CountWords(); ++i) count += std::popcount(words_[i]);
    return static_cast<unsigned>(count);
  }
  std::uint64_t GetWidth() const { return width_; }

  void List(std::int32_t* out) const {
    ForEach([&out](std::int64_t v) { *out++ = static_cast<std::int32_t>(v); });
  }

  auto Membership() const {
    return [this](std::int32_t v) { return Contains(v); };
  }

 private:
  std::uint64_t CountWords() const { return (width_ + 63) / 64; }

  template <class Visit>
  void ForEach(Visit visit) const {
    for (std::uint64_t i = 0; i < CountWords(); ++i) {
      for (std::uint64_t word = words_[i]; word != 0; word &= word - 1) {
        visit(lowest_ + static_cast<std::int64_t>(i * 64) + std::countr_zero(word));
      }
    }
  }

  // Adds the bits `from` .. `from` + `count` - 1 of `other` at the offset `to` of this window.
  void OrBits(std::uint64_t to, const BitWindow& other, std::uint64_t from, std::uint64_t count) {
    for (std::uint64_t done = 0; done < count; done += 64) {
      const std::uint64_t rest = count - done;
      const std::uint64_t bits =
          other.ReadWord(from + done) & (rest < 64 ? (std::uint64_t{1} << rest) - 1 : ~0ull);
      const std::uint64_t at = to + done;
      words_[at / 64] |= bits << at % 64;
      words_[at / 64 + 1] |= bits >> 1 >> (63 - at % 64);
    }
  }

  // The 64 bits from the offset on.
  std::uint64_t ReadWord(std::uint64_t offset) const {
    const std::uint64_t* const word = &words_[offset / 64];
    return word[0] >> offset % 64 | word[1] << 1 << (63 - offset % 64);
  }

  std::int64_t lowest_;
  std::uint64_t width_;
  std::array<std::uint64_t, kMaxWidth / 64 + 2> words_;
};

}  // namespace kiv::kernels
