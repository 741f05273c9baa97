#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// A collection within a window of integers, a byte each: to add a value is one store, which waits
// for no other, while bits of one word would wait for each other.
class ByteMap {
 public:
  static constexpr std::int64_t kMaxWidth = 1 << 13;

  // Empty, for the integers from `lowest` to `highest`, at most kMaxWidth of them.
  ByteMap(std::int64_t lowest, std::int64_t highest)
      : lowest_(lowest), width_(static_cast<std::uint64_t>(highest - lowest + 1)) {
    std::fill_n(bytes_.begin(), width_, std::uint8_t{0});
  }

  // Whether a map of these integers is not too wide for so many candidates.
  static bool Suits(std::int64_t lowest, std::int64_t highest, std::uint64_t candidates) {
    return highest - lowest < kMaxWidth &&
           static_cast<std::uint64_t>(highest - lowest) < kWidthPerCandidate * (candidates + 8);
  }

  void Add(std::int64_t v) { bytes_[static_cast<std::uint64_t>(v - lowest_)] = 1; }
  // The byte of the least integer, which the others follow, for who adds many in a loop.
  std::uint8_t* GetBytes() { return bytes_.data(); }
  std::int64_t GetLowest() const { return lowest_; }

  unsigned Count() const {
    unsigned count = 0;
    for (std::uint64_t i = 0; i < width_; ++i) count += bytes_[i];
    return count;
  }
  std::uint64_t GetWidth() const { return width_; }

  void List(std::int32_t* out) const {
    for (std::uint64_t i = 0; i < width_; ++i) {
      if (bytes_[i] != 0)
        *out++ = static_cast<std::int32_t>(lowest_ + static_cast<std::int64_t>(i));
    }
  }

  // The same without a branch for each integer: overwrites one slot behind the values. Returns how
  // many they are.
  unsigned ListWithSlack(std::int32_t* out) const {
    const auto lowest = static_cast<std::int32_t>(lowest_);
    unsigned count = 0;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(width_); ++i) {
      out[count] = lowest + i;
      count += bytes_[static_cast<std::uint32_t>(i)];
    }
    return count;
  }

  auto Membership() const {
    return [this](std::int32_t v) {
      const auto offset = static_cast<std::uint64_t>(v - lowest_);
      return offset < width_ && bytes_[offset] != 0;
    };
  }

 private:
  static constexpr std::uint64_t kWidthPerCandidate = 16;

  std::int64_t lowest_;
  std::uint64_t width_;
  std::array<std::uint8_t, kMaxWidth> bytes_;
};

}  // namespace kiv::kernels
