#include "framework/networks/propagation_queue.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::uint32_t> PopAll(KivOmbiPropagationQueue& queue) {
  std::vector<std::uint32_t> numbers;
  while (!queue.IsEmpty()) numbers.push_back(queue.Pop());
  return numbers;
}

TEST(PropagationQueue, TheCheapestLevelComesFirstAndWithinItTheFirst) {
  KivOmbiPropagationQueue queue(4);
  EXPECT_TRUE(queue.IsEmpty());
  queue.Push(3, 30);
  queue.Push(1, 10);
  queue.Push(1, 11);
  queue.Push(0, 1);
  queue.Push(3, 31);
  EXPECT_EQ(PopAll(queue), (std::vector<std::uint32_t>{1, 10, 11, 30, 31}));
}

TEST(PropagationQueue, ANumberPushedBetweenTwoPopsKeepsItsPlace) {
  KivOmbiPropagationQueue queue(2);
  queue.Push(1, 1);
  queue.Push(1, 2);
  EXPECT_EQ(queue.Pop(), 1u);
  queue.Push(1, 3);
  queue.Push(0, 4);
  EXPECT_EQ(PopAll(queue), (std::vector<std::uint32_t>{4, 2, 3}));
}

// A level that never runs empty goes through many numbers without losing any.
TEST(PropagationQueue, ALevelThatNeverRunsEmptyKeepsItsOrder) {
  KivOmbiPropagationQueue queue(1);
  std::uint32_t next_in = 0;
  for (; next_in < 3; ++next_in) queue.Push(0, next_in);
  for (std::uint32_t expected = 0; expected < 100000; ++expected) {
    ASSERT_EQ(queue.Pop(), expected);
    queue.Push(0, next_in++);
  }
}

}  // namespace
