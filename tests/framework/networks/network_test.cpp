#include "framework/networks/network.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "framework/abstract_types/boolean.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

const KivOmbiObjectDescriptor* Kind(const char* name) { return OpenModules().FindKind(name); }

const KivOmbiCompoundObjectDescriptor& Row(const char* symbol, const char* left,
                                           const char* right) {
  return *OpenModules().operators.Resolve(symbol, {Kind(left), Kind(right)});
}

Values Range(int lower, int upper) {
  Values values;
  for (int value = lower; value <= upper; ++value) values.push_back(value);
  return values;
}

class Network : public testing::Test {
 protected:
  VariableId Enum(const Values& values) { return Declare(network_, {Kind("enum int"), values}); }
  void PostEnum(const char* symbol, VariableId left, VariableId right,
                VariableId result = KivOmbNetwork::kNone) {
    network_.Post(Row(symbol, "enum int", "enum int"), left, right, result);
  }
  std::string Text(VariableId variable) const {
    Kivostrstream out;
    network_.GetDomain(variable).PrintOn(out);
    return out.Str();
  }

  KivOmbNetwork network_;
};

// The module, opened through the manager, gives domains in memory of the framework that go through
// the object streams, propagate and come back as they were.
TEST_F(Network, ADomainOfTheModuleLivesInFrameworkMemoryAndGoesThroughStreams) {
  const KivOmbiObjectDescriptor& kind = *Kind("enum int");
  std::vector<std::byte> memory(static_cast<std::size_t>(kind.GetObjectSize()) + 64);
  void* place = memory.data();
  std::size_t room = memory.size();
  ASSERT_NE(std::align(alignof(std::max_align_t), static_cast<std::size_t>(kind.GetObjectSize()),
                       place, room),
            nullptr);
  const struct {
    std::uint32_t count = 3;
    std::int32_t values[3] = {9, 1, 5};
  } block;
  KivOmbiObject* object = kind.ConstructObjectFrom(place, &block);
  ASSERT_EQ(object, place);

  std::stringstream bytes;
  Kivopstream out(bytes);
  out.WriteObjectPointer(object);
  Kivipstream in(bytes);
  KivStreamable* read = in.ReadObjectPointer(object->CastableID());
  ASSERT_NE(read, nullptr);
  Kivostrstream text;
  static_cast<KivOmbiObject*>(read)->PrintOn(text);
  EXPECT_EQ(text.Str(), "{ 1, 5, 9 }");
  delete read;
  kind.DestroyObject(object);
}

TEST_F(Network, ASumPropagatesInEveryDirectionAndBacktracks) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({10, 20});
  const auto z = Enum({});
  PostEnum("+", x, y, z);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(z), "{ 11, 12, 13, 21, 22, 23 }");

  network_.PushLevel();
  network_.Update(
      z, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(22); });
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x) + Text(y) + Text(z), "22022");
  network_.PopLevel();
  EXPECT_EQ(Text(x), "{ 1, 2, 3 }");
  EXPECT_EQ(Text(y), "{ 10, 20 }");
  EXPECT_EQ(Text(z), "{ 11, 12, 13, 21, 22, 23 }");
  EXPECT_EQ(network_.GetSummary(z).cardinality, 6u);
}

TEST_F(Network, AContradictionLastsUntilItsLevelIsTakenBack) {
  const auto x = Enum({1, 2});
  const auto y = Enum({3, 4});
  network_.PushLevel();
  PostEnum("=", x, y);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
  EXPECT_EQ(network_.GetCulprit(), 0u);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
  network_.PopLevel();
  EXPECT_EQ(Text(x), "{ 1, 2 }");
  // The constraint was posted at the level, but not taken back with it.
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
}

TEST_F(Network, AConstraintPostedAtALevelGoesOnAboveIt) {
  const auto x = Enum(Range(1, 5));
  const auto y = Enum(Range(1, 5));
  network_.Propagate();
  network_.PushLevel();
  network_.PushLevel();
  PostEnum("<", x, y);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "{ 1, 2, 3, 4 }");
  network_.PopLevel();
  EXPECT_EQ(Text(x), "{ 1, 2, 3, 4, 5 }");
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "{ 1, 2, 3, 4 }");
  network_.PopLevel();
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(x), "{ 1, 2, 3, 4 }");
}

TEST_F(Network, AConstraintPostedAtALevelRestsWhenALevelAboveItGoes) {
  const auto x = Enum(Range(1, 5));
  const auto y = Enum(Range(1, 5));
  network_.Propagate();
  network_.PushLevel();
  PostEnum("<", x, y);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  const auto runs = network_.GetStatistics().runs;
  network_.PushLevel();
  network_.PopLevel();
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network_.GetStatistics().runs, runs);
}

TEST_F(Network, AnEntailedConstraintSleepsUntilItsLevelIsTakenBack) {
  const auto x = Enum(Range(1, 9));
  const auto y = Enum(Range(5, 20));
  PostEnum("<", x, y);
  network_.Propagate();
  network_.PushLevel();
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(2); });
  network_.Propagate();  // 2 < [5, 20] for ever
  const auto runs = network_.GetStatistics().runs;
  network_.PushLevel();
  network_.Update(
      y, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).RemoveExactValue(5); });
  network_.Propagate();
  EXPECT_EQ(network_.GetStatistics().runs, runs);
  network_.PopLevel();
  network_.PopLevel();
  network_.PushLevel();
  network_.Update(
      y, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(6); });
  network_.Propagate();
  EXPECT_EQ(Text(x), "{ 1, 2, 3, 4, 5 }");
}

TEST_F(Network, ABoundsConstraintSleepsThroughTheLossOfAnInnerValue) {
  const auto x = Enum(Range(1, 9));
  const auto y = Enum(Range(1, 9));
  PostEnum("<=", x, y);
  network_.Propagate();
  const auto runs = network_.GetStatistics().runs;
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).RemoveExactValue(5); });
  network_.Propagate();
  EXPECT_EQ(network_.GetStatistics().runs, runs);
  network_.Update(
      x, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).RemoveExactValue(1); });
  network_.Propagate();
  EXPECT_EQ(network_.GetStatistics().runs, runs + 1);
  EXPECT_EQ(Text(y), "{ 2, 3, 4, 5, 6, 7, 8, 9 }");
}

TEST_F(Network, AVariableIsNeverLessThanItself) {
  const auto x = Declare(network_, {Kind("interval int"), {-2000000000, 2000000000}});
  network_.Post(Row("<", "interval int", "interval int"), x, x, KivOmbNetwork::kNone);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
  EXPECT_LE(network_.GetStatistics().runs, 1u);
}

TEST_F(Network, AWideIntervalNarrowsAnEnumeratedOperandByItsHull) {
  const auto wide = Declare(network_, {Kind("interval int"), {-1000000, 1000000}});
  const auto small = Enum({1, 5, 9});
  const auto sum = Declare(network_, {Kind("enum int"), {2000, 1000004, 1000010}});
  network_.Post(Row("+", "enum int", "interval int"), small, wide, sum);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(sum), "{ 2000, 1000004 }");
  EXPECT_EQ(Text(wide), "[1991, 1000000]");
}

TEST_F(Network, AWideIntervalEquatesByItsHull) {
  const auto set = Enum({1, 5, 5000, 2000000});
  const auto wide = Declare(network_, {Kind("interval int"), {2, 1000000}});
  network_.Post(Row("=", "enum int", "interval int"), set, wide, KivOmbNetwork::kNone);
  ASSERT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Text(set), "{ 5, 5000 }");
  EXPECT_EQ(Text(wide), "[5, 5000]");
}

TEST_F(Network, AnUnknownSumIsRecomputedWhenItsOperandsShrink) {
  const auto x = Enum(Range(0, 999));
  Values tens;
  for (int i = 0; i < 1000; ++i) tens.push_back(1000 * i);
  const auto y = Enum(tens);
  const auto z = Enum({});
  PostEnum("+", x, y, z);
  network_.Propagate();
  EXPECT_EQ(Text(z), "Any");
  network_.PushLevel();
  network_.Update(
      y, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(7000); });
  network_.Propagate();
  EXPECT_EQ(network_.GetSummary(z).cardinality, 1000u);
  EXPECT_EQ(network_.GetSummary(z).lower, 7000);
  network_.PopLevel();
  EXPECT_EQ(Text(z), "Any");
}

TEST_F(Network, ATruthValueFollowsAndRulesItsRelation) {
  const auto x = Enum({1, 2, 3});
  const auto y = Enum({3, 4});
  const auto t = network_.AddVariable(*Kind("bool"));
  PostEnum("<<", x, y, t);
  network_.Propagate();
  EXPECT_EQ(Text(t), "Any");
  network_.PushLevel();
  network_.Update(
      t, [](KivOmbiAny& domain) { static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(false); });
  network_.Propagate();
  EXPECT_EQ(Text(x) + " " + Text(y), "3 3");
  network_.PopLevel();
  network_.Update(
      y, [](KivOmbiAny& domain) { static_cast<KivOmbiInteger&>(domain).SetExactValue(4); });
  network_.Propagate();
  EXPECT_EQ(Text(t), "true");
}

TEST_F(Network, TheStopFlagEndsPropagationAndItGoesOnAfterwards) {
  const auto x = Enum(Range(1, 9));
  const auto y = Enum({3});
  PostEnum("<", x, y);
  std::atomic<bool> stop = true;
  network_.SetStopFlag(&stop);
  EXPECT_EQ(network_.Propagate(), Outcome::kStopped);
  EXPECT_EQ(network_.GetSummary(x).upper, 9);
  stop = false;
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(network_.GetSummary(x).upper, 2);
}

TEST_F(Network, TheStopFlagIsSeenWithNothingToRun) {
  std::atomic<bool> stop = true;
  network_.SetStopFlag(&stop);
  EXPECT_EQ(network_.Propagate(), Outcome::kStopped);
  stop = false;
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
}

TEST_F(Network, RefusesWhatIsNoDomainAndOperandsThatAreNotThere) {
  EXPECT_THROW(network_.AddVariable(*KivOmbiInteger::sDescriptor), std::invalid_argument);
  const auto x = Enum({1});
  EXPECT_THROW(PostEnum("+", x, x), std::invalid_argument);
  EXPECT_THROW(PostEnum("=", x, 77), std::invalid_argument);
}

TEST_F(Network, FindsAConstraintThatItsFixedArgumentsViolate) {
  const auto x = Enum({1});
  const auto y = Enum({2});
  EXPECT_FALSE(network_.FindViolated());
  PostEnum("=", x, y);
  // Not propagated: the ground truth alone sees it.
  EXPECT_EQ(network_.FindViolated(), 0u);
}

TEST_F(Network, TheValueOfARelationBelongsToItsGroundTruth) {
  const auto x = Enum({1});
  const auto y = Enum({2});
  PostEnum("<", x, y, y);
  EXPECT_FALSE(network_.FindViolated());
  PostEnum("<", x, y, x);
  EXPECT_EQ(network_.FindViolated(), 1u);
}

TEST_F(Network, TwoThreadsMayEachRunTheirOwn) {
  std::vector<std::size_t> found(4);
  std::vector<std::thread> threads;
  for (std::size_t& count : found) {
    threads.emplace_back([&count] {
      KivOmbNetwork network;
      const Declared domain{Kind("enum int"), Range(0, 30)};
      const auto x = Declare(network, domain);
      const auto y = Declare(network, domain);
      const auto z = Declare(network, domain);
      network.Post(Row("+", "enum int", "enum int"), x, y, z);
      count = SearchSolutions(network).size();
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::size_t count : found) EXPECT_EQ(count, 31u * 32u / 2u);
}

}  // namespace
}  // namespace kiv::test
