// What a level costs: the domains that it changed, each once.

#include "framework/networks/trail.h"

#include <gtest/gtest.h>

#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

class TrailCost : public testing::Test {
 protected:
  void Remove(std::int32_t value) {
    network_.Update(x_, [&](KivOmbiAny& domain) {
      static_cast<KivOmbiInteger&>(domain).RemoveExactValue(value);
    });
  }
  std::uint64_t Saves() const { return network_.GetStatistics().saves; }

  KivOmbNetwork network_;
  KivOmbNetwork::VariableId x_ =
      Declare(network_, {OpenModules().FindKind("enum int"), {1, 2, 3, 4, 5, 6}});
};

TEST_F(TrailCost, NothingIsSavedOutsideAllLevels) {
  Remove(1);
  EXPECT_EQ(Saves(), 0u);
}

TEST_F(TrailCost, ACallThatNarrowsNothingSavesNothing) {
  network_.PushLevel();
  Remove(77);
  network_.Update(x_, [](KivOmbiAny& domain) { domain.Intersect(domain); });
  network_.Update(x_, [](KivOmbiAny& domain) {
    EXPECT_EQ(domain.CalcLessOrEqualValue(domain), 0);
    EXPECT_EQ(domain.CalcEqualValue(domain), 0);
  });
  EXPECT_EQ(Saves(), 0u);
}

TEST_F(TrailCost, ADomainIsSavedOnceALevelHoweverOftenItChanges) {
  network_.PushLevel();
  Remove(1);
  Remove(2);
  EXPECT_EQ(Saves(), 1u);
  network_.PushLevel();
  Remove(3);
  Remove(4);
  EXPECT_EQ(Saves(), 2u);
  network_.PopLevel();
  Remove(5);  // the level below has saved it already
  EXPECT_EQ(Saves(), 2u);
  EXPECT_EQ(ValuesOf(network_, x_), (Values{3, 4, 6}));
  network_.PopLevel();
  EXPECT_EQ(ValuesOf(network_, x_), (Values{1, 2, 3, 4, 5, 6}));
}

TEST_F(TrailCost, ALevelOpenedAgainSavesAgain) {
  for (int round = 0; round < 3; ++round) {
    network_.PushLevel();
    Remove(3);
    EXPECT_EQ(ValuesOf(network_, x_), (Values{1, 2, 4, 5, 6}));
    network_.PopLevel();
    EXPECT_EQ(ValuesOf(network_, x_), (Values{1, 2, 3, 4, 5, 6}));
  }
  EXPECT_EQ(Saves(), 3u);
}

TEST_F(TrailCost, ALevelWithoutChangesCostsNothing) {
  KivOmbiTrail trail;
  trail.PushLevel();
  const auto first = trail.GetStamp();
  trail.PushLevel();
  EXPECT_NE(trail.GetStamp(), first);
  std::vector<KivOmbiVariable> none;
  trail.PopLevel(none, [](std::uint32_t) { FAIL() << "nothing was entailed"; });
  EXPECT_EQ(trail.GetStamp(), first);
  EXPECT_EQ(trail.GetLevel(), 1u);
}

TEST_F(TrailCost, AWordComesBackAsItWasWhenTheLevelOpened) {
  KivOmbiTrail trail;
  std::vector<KivOmbiVariable> none;
  const auto pop = [&] { trail.PopLevel(none, [](std::uint32_t) {}); };
  std::uint64_t word = 1;
  const auto set = [&](std::uint64_t value) {
    trail.SaveWord(word);
    word = value;
  };
  set(2);  // outside all levels: for good
  trail.PushLevel();
  set(3);
  set(4);
  trail.PushLevel();
  set(5);
  pop();
  EXPECT_EQ(word, 4u);
  pop();
  EXPECT_EQ(word, 2u);
}

}  // namespace
}  // namespace kiv::test
