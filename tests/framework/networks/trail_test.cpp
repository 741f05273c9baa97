// What a level costs: the domains that it changed, each once.

#include "framework/networks/trail.h"

#include <gtest/gtest.h>

#include <utility>

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

// Of a thousand values with gaps among them.
class TrailCostOfALargeDomain : public testing::Test {
 protected:
  TrailCostOfALargeDomain() {
    for (std::int32_t value = 0; value < 1000; ++value) all_.push_back(3 * value);
    x_ = Declare(network_, {OpenModules().FindKind("enum int"), all_});
    network_.PushLevel();
  }
  void Remove(const Values& values) {
    network_.Update(x_, [&](KivOmbiAny& domain) {
      EXPECT_EQ(domain.GetDescriptor()->RemoveValues(domain, values), 1);
    });
  }
  void KeepBetween(std::int32_t lower, std::int32_t upper) {
    network_.Update(x_, [&](KivOmbiAny& domain) {
      EXPECT_EQ(domain.GetDescriptor()->KeepBetween(domain, lower, upper), 1);
    });
  }
  std::size_t Bytes() {
    return network_.GetStatistics().saved_bytes -
           std::exchange(before_, network_.GetStatistics().saved_bytes);
  }
  int Visits() const {
    int visits = 0;
    network_.VisitChanged([&](KivOmbNetwork::VariableId) { ++visits; });
    return visits;
  }

  Values all_;
  KivOmbNetwork network_;
  KivOmbNetwork::VariableId x_;
  std::size_t before_ = 0;
};

TEST_F(TrailCostOfALargeDomain, IsThatOfTheValuesItLoses) {
  EXPECT_EQ(Visits(), 0);
  Remove({3, 300});
  EXPECT_EQ(Bytes(), 8u);
  KeepBetween(30, 2997);
  EXPECT_EQ(Bytes(), 36u);  // without 3, which is gone
  EXPECT_EQ(Visits(), 1);
  network_.PopLevel();
  EXPECT_EQ(ValuesOf(network_, x_), all_);
}

TEST_F(TrailCostOfALargeDomain, IsThatOfTheDomainOnceItLosesMuchOrOften) {
  for (const std::int32_t value : {3, 6, 9}) Remove({value});
  EXPECT_EQ(Bytes(), 12u);
  KeepBetween(0, 1500);
  EXPECT_EQ(Bytes(), 24 + 4 * 997u);
  Remove({0});
  EXPECT_EQ(Bytes(), 0u);
  EXPECT_EQ(Visits(), 1);
  network_.PopLevel();
  EXPECT_EQ(ValuesOf(network_, x_), all_);
  network_.PushLevel();
  std::size_t least = 0;
  for (std::int32_t value = 300; value < 600; value += 3) {
    Remove({value});
    least = Bytes();
  }
  EXPECT_EQ(least, 0u);
  network_.PopLevel();
  EXPECT_EQ(ValuesOf(network_, x_), all_);
}

TEST_F(TrailCostOfALargeDomain, IsTakenBackLevelByLevel) {
  std::vector<Values> levels;
  for (std::int32_t level = 0; level < 20; ++level) {
    levels.push_back(ValuesOf(network_, x_));
    network_.PushLevel();
    Remove({30 * level, 30 * level + 3});
    if (level % 4 == 0) KeepBetween(15 * level + 10, 2990 - 30 * level);
    EXPECT_EQ(Visits(), 1);
  }
  for (; !levels.empty(); levels.pop_back()) {
    network_.PopLevel();
    EXPECT_EQ(ValuesOf(network_, x_), levels.back());
  }
}

TEST_F(TrailCost, OfADomainWithoutGapsIsAsLittle) {
  const auto y = Declare(network_, {OpenModules().FindKind("enum int"), Range(1, 1000)});
  network_.PushLevel();
  network_.Update(
      y, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).RemoveExactValue(500); });
  EXPECT_EQ(network_.GetStatistics().saved_bytes, 28u);
  network_.PopLevel();
  EXPECT_EQ(ValuesOf(network_, y), Range(1, 1000));
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
