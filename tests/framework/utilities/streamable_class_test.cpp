#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "framework/utilities/object_stream.h"
#include "tests/framework/utilities/node.h"

namespace {

KivStreamable* BuildNothing(KivStreamable* object) { return object; }

// Both are made while the program is loaded.
const KivStreamableClass early_class("StreamableClassTest_Early", BuildNothing, 1);
const KivStreamableClass* const early_finding =
    KivStreamableClass::Find("StreamableClassTest_Early");

TEST(StreamableClass, IsKnownByName) {
  const KivStreamableClass streamable("StreamableClassTest", BuildNothing, 3);
  EXPECT_EQ(KivStreamableClass::Find("StreamableClassTest"), &streamable);
  EXPECT_EQ(streamable.GetName(), "StreamableClassTest");
  EXPECT_EQ(streamable.GetBuilder(), &BuildNothing);
  EXPECT_EQ(streamable.GetVersion(), 3);
}

TEST(StreamableClass, IsFoundByTextNotByAddress) {
  const std::string copy = Node::CastableIdent;
  ASSERT_NE(copy.c_str(), Node::CastableIdent);
  ASSERT_NE(KivStreamableClass::Find(copy), nullptr);
  EXPECT_EQ(KivStreamableClass::Find(copy)->GetBuilder(), &Node::Build);
}

TEST(StreamableClass, IsUnknownBeforeAndAfterItsLife) {
  EXPECT_EQ(KivStreamableClass::Find("StreamableClassTest"), nullptr);
  { const KivStreamableClass streamable("StreamableClassTest", BuildNothing, 1); }
  EXPECT_EQ(KivStreamableClass::Find("StreamableClassTest"), nullptr);
  EXPECT_EQ(KivStreamableClass::Find(""), nullptr);
}

TEST(StreamableClass, IsKnownDuringStaticInitialisation) { EXPECT_EQ(early_finding, &early_class); }

TEST(StreamableClass, OfANameRegisteredTwiceIsTheLast) {
  const KivStreamableClass first("StreamableClassTest", BuildNothing, 1);
  const KivStreamableClass second("StreamableClassTest", BuildNothing, 2);
  EXPECT_EQ(KivStreamableClass::Find("StreamableClassTest"), &second);
}

TEST(StreamableClass, ThatGoesRestoresTheOtherOfItsName) {
  const KivStreamableClass first("StreamableClassTest", BuildNothing, 1);
  { const KivStreamableClass second("StreamableClassTest", BuildNothing, 2); }
  EXPECT_EQ(KivStreamableClass::Find("StreamableClassTest"), &first);
}

TEST(StreamableClass, ThatGoesLeavesALaterOneOfItsName) {
  auto first = std::make_unique<KivStreamableClass>("StreamableClassTest", BuildNothing, 1);
  const KivStreamableClass second("StreamableClassTest", BuildNothing, 2);
  first.reset();
  EXPECT_EQ(KivStreamableClass::Find("StreamableClassTest"), &second);
}

TEST(StreamableClass, CanComeAndGoInSeveralThreads) {
  std::vector<std::thread> threads;
  std::vector<int> misses(4, 0);
  for (std::size_t t = 0; t < misses.size(); ++t) {
    threads.emplace_back([&miss = misses[t], name = "StreamableClassTest" + std::to_string(t)] {
      for (int i = 0; i < 1000; ++i) {
        const KivStreamableClass streamable(name.c_str(), BuildNothing, i);
        if (KivStreamableClass::Find(name) != &streamable) ++miss;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(misses, std::vector<int>(4, 0));
}

TEST(Streamable, IsDerivedFromItsOwnIdentity) {
  const Stone stone;
  EXPECT_EQ(stone.IsDerivedFrom(Stone::CastableIdent), 1);
  EXPECT_EQ(stone.IsDerivedFrom(Node::CastableIdent), 0);
  EXPECT_EQ(stone.IsDerivedFrom(nullptr), 0);
}

TEST(Streamable, IsDerivedFromTheIdentitiesAboveIt) {
  const CountedNode node;
  EXPECT_EQ(node.IsDerivedFrom(CountedNode::CastableIdent), 1);
  EXPECT_EQ(node.IsDerivedFrom(Node::CastableIdent), 1);
  EXPECT_EQ(Node().IsDerivedFrom(CountedNode::CastableIdent), 0);
}

TEST(Streamable, ComparesIdentitiesByAddress) {
  const std::string copy = Stone::CastableIdent;
  EXPECT_EQ(Stone().IsDerivedFrom(copy.c_str()), 0);
}

}  // namespace
