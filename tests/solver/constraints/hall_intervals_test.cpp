#include "solver/constraints/hall_intervals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Interval = HallIntervals::Interval;

// The hulls of what each interval takes in all choices of different integers; none when there is no
// choice.
std::vector<Interval> NarrowByEnumeration(const std::vector<Interval>& intervals) {
  std::vector<Interval> narrowed(intervals.size(), {1000, -1000});
  std::vector<std::int64_t> choice;
  bool possible = false;
  const std::function<void()> choose = [&] {
    if (choice.size() == intervals.size()) {
      possible = true;
      for (std::size_t i = 0; i < choice.size(); ++i) {
        narrowed[i] = {std::min(narrowed[i].lower, choice[i]),
                       std::max(narrowed[i].upper, choice[i])};
      }
      return;
    }
    const Interval& next = intervals[choice.size()];
    for (std::int64_t value = next.lower; value <= next.upper; ++value) {
      if (std::ranges::find(choice, value) != choice.end()) continue;
      choice.push_back(value);
      choose();
      choice.pop_back();
    }
  };
  choose();
  if (!possible) narrowed.clear();
  return narrowed;
}

TEST(HallIntervals, NarrowAsEnumerationDoes) {
  const std::uint64_t first = Seed(1);
  std::size_t impossible = 0;
  std::size_t narrowing = 0;
  HallIntervals hall;
  for (std::uint64_t seed = first; seed < first + Times(20000); ++seed) {
    Generator random(seed);
    std::vector<Interval> intervals;
    for (int count = Pick(random, 0, 6); count > 0; --count) {
      const int lower = Pick(random, 0, 6);
      intervals.push_back({lower, lower + Pick(random, 0, 4)});
    }
    hall.Resize(static_cast<unsigned>(intervals.size()));
    std::ranges::copy(intervals, hall.Intervals().begin());
    const auto expected = NarrowByEnumeration(intervals);
    const bool possible = hall.Narrow();
    ASSERT_EQ(possible, intervals.empty() || !expected.empty()) << Replay(seed);
    impossible += possible ? 0 : 1;
    if (!possible) continue;
    ASSERT_TRUE(std::ranges::equal(hall.Intervals(), expected)) << Replay(seed);
    narrowing += expected != intervals ? 1 : 0;
    bool meet = false;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) {
        meet |= expected[i].lower <= expected[j].upper && expected[j].lower <= expected[i].upper;
      }
    }
    ASSERT_EQ(hall.AreDisjoint(), !meet) << Replay(seed);
  }
  EXPECT_GT(impossible, Times(20000) / 40);
  EXPECT_GT(narrowing, Times(20000) / 10);
}

}  // namespace
}  // namespace kiv::test
