#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "framework/base/export.h"

// Numbers waiting in levels of cost: the first of the cheapest level comes out first. Within a
// level first in, first out. All operations take constant time; room once made is kept.
class KIV_EXPORT KivOmbiPropagationQueue {
 public:
  // At most 32 levels.
  explicit KivOmbiPropagationQueue(unsigned levels);

  bool IsEmpty() const noexcept { return occupied_ == 0; }
  void Push(unsigned level, std::uint32_t number) {
    levels_[level].numbers.push_back(number);
    occupied_ |= 1u << level;
  }
  // The next number; the queue must not be empty.
  std::uint32_t Pop() {
    const auto cheapest = static_cast<unsigned>(std::countr_zero(occupied_));
    Level& level = levels_[cheapest];
    const std::uint32_t number = level.numbers[level.next++];
    if (level.next == level.numbers.size()) {
      level.numbers.clear();
      level.next = 0;
      occupied_ &= ~(1u << cheapest);
    } else if (level.next >= kMostOut) {
      ForgetOut(level);
    }
    return number;
  }

 private:
  struct Level {
    std::vector<std::uint32_t> numbers;
    std::size_t next = 0;  // those before it are out
  };

  static constexpr std::size_t kMostOut = 1024;
  static void ForgetOut(Level& level);

  std::vector<Level> levels_;
  std::uint32_t occupied_ = 0;  // a bit for each level that is not empty
};
