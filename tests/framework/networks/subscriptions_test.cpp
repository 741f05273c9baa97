#include "framework/networks/subscriptions.h"

#include <gtest/gtest.h>

#include <set>

namespace kiv::test {
namespace {

std::set<std::uint32_t> ConcernedBy(const KivOmbiSubscriptions& subscriptions,
                                    KivOmbiEvent events) {
  std::set<std::uint32_t> constraints;
  for (const auto& subscription : subscriptions.Concerned(events)) {
    constraints.insert(subscription.constraint);
  }
  return constraints;
}

TEST(Subscriptions, TellOfAChangeThoseWhoAskedForIt) {
  KivOmbiSubscriptions subscriptions;
  // In an order in which each has to make room for another.
  subscriptions.Add({0, 0}, kKivFixed);
  subscriptions.Add({1, 0}, kKivBounds);
  subscriptions.Add({2, 0}, kKivFixed | kKivBoundsOfGapless);
  subscriptions.Add({3, 0}, kKivAnyEvent);
  subscriptions.Add({4, 0}, kKivFixed | kKivBounds);
  subscriptions.Add({5, 0}, kKivValues);

  using Set = std::set<std::uint32_t>;
  EXPECT_EQ(ConcernedBy(subscriptions, kKivValues), (Set{3, 5}));
  EXPECT_EQ(ConcernedBy(subscriptions, kKivValues | kKivBounds), (Set{1, 3, 4, 5}));
  EXPECT_EQ(ConcernedBy(subscriptions, kKivValues | kKivBounds | kKivFixed),
            (Set{0, 1, 2, 3, 4, 5}));
}

TEST(Subscriptions, KeepTheArgument) {
  KivOmbiSubscriptions subscriptions;
  subscriptions.Add({7, 3}, kKivFixed);
  subscriptions.Add({7, 4}, kKivValues);
  const auto concerned = subscriptions.Concerned(kKivValues);
  ASSERT_EQ(concerned.size(), 1u);
  EXPECT_EQ(concerned.front().argument, 4u);
}

TEST(Subscriptions, ForgetWhoAsksForNothingThatIsTold) {
  KivOmbiSubscriptions subscriptions;
  subscriptions.Add({0, 0}, 0);
  subscriptions.Add({1, 0}, kKivEmptied);
  EXPECT_TRUE(subscriptions.Concerned(kKivAnyEvent).empty());
}

}  // namespace
}  // namespace kiv::test
