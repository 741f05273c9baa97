#include "solver/search/restart_policy.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace kiv::test {
namespace {

using Kind = RestartPolicy::Kind;

std::vector<std::uint64_t> First(const RestartPolicy& policy, int count) {
  RestartSequence sequence(policy);
  std::vector<std::uint64_t> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(sequence.Next().value());
  return numbers;
}

TEST(RestartPolicy, NoneNeverRestarts) {
  RestartSequence sequence({});
  EXPECT_EQ(sequence.Next(), std::nullopt);
  EXPECT_EQ(sequence.Next(), std::nullopt);
}

TEST(RestartPolicy, FollowsItsSequence) {
  using Numbers = std::vector<std::uint64_t>;
  EXPECT_EQ(First({Kind::kConstant, 50, 9}, 4), (Numbers{50, 50, 50, 50}));
  EXPECT_EQ(First({Kind::kLinear, 50, 9}, 4), (Numbers{50, 100, 150, 200}));
  EXPECT_EQ(First({Kind::kGeometric, 100, 1.5}, 4), (Numbers{100, 150, 225, 337}));
  EXPECT_EQ(First({Kind::kLuby, 1, 9}, 16),
            (Numbers{1, 1, 2, 1, 1, 2, 4, 1, 1, 2, 1, 1, 2, 4, 8, 1}));
  EXPECT_EQ(First({Kind::kLuby, 30, 9}, 3), (Numbers{30, 30, 60}));
}

TEST(RestartPolicy, NeverComesToNothing) {
  for (const Kind kind : {Kind::kConstant, Kind::kLinear, Kind::kGeometric, Kind::kLuby}) {
    for (const std::uint64_t number : First({kind, 0, 0.5}, 40)) EXPECT_GE(number, 1u);
  }
}

TEST(RestartPolicy, StaysAtTheLargestNumber) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(First({Kind::kGeometric, 100, 1e10}, 400).back(), kMost);
  EXPECT_EQ(First({Kind::kLinear, kMost - 1, 1}, 3).back(), kMost);
  EXPECT_EQ(First({Kind::kLuby, kMost - 1, 1}, 3).back(), kMost);
}

}  // namespace
}  // namespace kiv::test
