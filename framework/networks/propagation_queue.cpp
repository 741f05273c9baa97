#include "framework/networks/propagation_queue.h"

#include <bit>

KivOmbiPropagationQueue::KivOmbiPropagationQueue(unsigned levels) : levels_(levels) {}

void KivOmbiPropagationQueue::Push(unsigned level, std::uint32_t number) {
  levels_[level].numbers.push_back(number);
  occupied_ |= 1u << level;
}

std::uint32_t KivOmbiPropagationQueue::Pop() {
  const auto cheapest = static_cast<unsigned>(std::countr_zero(occupied_));
  Level& level = levels_[cheapest];
  const std::uint32_t number = level.numbers[level.next++];
  if (level.next == level.numbers.size()) {
    level.numbers.clear();
    level.next = 0;
    occupied_ &= ~(1u << cheapest);
  } else if (level.next >= 1024 && level.next * 2 >= level.numbers.size()) {
    // A level that never runs empty must not grow without end; half of it is moved at most once for
    // as many numbers that came out.
    level.numbers.erase(level.numbers.begin(),
                        level.numbers.begin() + static_cast<std::ptrdiff_t>(level.next));
    level.next = 0;
  }
  return number;
}
