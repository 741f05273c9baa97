#include "enum_integers/storage/slot_memory.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

#include "enum_integers/storage/value_vector.h"

namespace {

using Vector = KivSVectorImp_SubIntBase;

const SubIntBase* Storage(const Vector& vector) { return &vector[0]; }

TEST(SlotMemory, AFreedArrayIsUsedAgainAndHoldsZeros) {
  auto first = std::make_unique<Vector>(20, 20, 0);
  first->Add(7);
  const SubIntBase* const storage = Storage(*first);
  first.reset();
  Vector second(20, 20, 0);
  EXPECT_EQ(Storage(second), storage);
  second.AddAt(1, 20);
  for (unsigned i = 0; i < 20; ++i) EXPECT_EQ(second[i].GetValue(), 0);
}

TEST(SlotMemory, ArraysOfAllSizesHoldWhatIsWritten) {
  std::vector<std::unique_ptr<Vector>> vectors;
  for (int round = 0; round < 2; ++round) {
    for (const unsigned size : {0u, 31u, 32u, 1023u, 1024u, 4095u, 4096u, 10000u}) {
      vectors.push_back(std::make_unique<Vector>(size, 20u, 0));
      for (unsigned i = 0; i <= size; ++i) vectors.back()->Add(static_cast<int>(i));
      EXPECT_EQ(vectors.back()->Limit(), size + 1);
    }
    for (const auto& vector : vectors) {
      for (unsigned i = 0; i < vector->Top(); ++i) {
        ASSERT_EQ((*vector)[i].GetValue(), static_cast<int>(i));
      }
    }
    vectors.clear();
  }
}

TEST(SlotMemory, MoreArraysThanAreKeptCanBeFreed) {
  std::vector<Vector> vectors(200, Vector(20, 20, 0));
  for (Vector& vector : vectors) EXPECT_EQ(vector.Good(), 1);
}

TEST(SlotMemory, AnArrayMayBeFreedOnAnotherThread) {
  auto made_here = std::make_unique<Vector>(20, 20, 0);
  std::unique_ptr<Vector> made_there;
  std::thread([&] {
    made_here.reset();
    made_there = std::make_unique<Vector>(20, 20, 0);
    made_there->Add(3);
  }).join();
  EXPECT_EQ((*made_there)[0].GetValue(), 3);
}

// Outlives the free lists of its thread, which are made after it.
thread_local std::unique_ptr<Vector> freed_last;

TEST(SlotMemory, AnArrayMayBeFreedAfterTheFreeListsOfItsThread) {
  std::thread([] {
    freed_last = std::make_unique<Vector>(20, 20, 0);
    const Vector other(20, 20, 0);
    EXPECT_EQ(other.Good(), 1);
  }).join();
}

TEST(SlotMemory, LimitLetsSomeAllocationsSucceed) {
  const kiv::SlotMemoryLimit two(2);
  EXPECT_EQ(Vector(1, 1, 0).Good(), 1);
  {
    const kiv::SlotMemoryLimit none(0);
    EXPECT_EQ(Vector(1, 1, 0).Good(), 0);
  }
  EXPECT_EQ(Vector(1, 1, 0).Good(), 1);
  EXPECT_EQ(Vector(1, 1, 0).Good(), 0);
}

TEST(SlotMemory, LimitConcernsItsThreadAlone) {
  const kiv::SlotMemoryLimit none(0);
  std::thread([] { EXPECT_EQ(Vector(1, 1, 0).Good(), 1); }).join();
}

}  // namespace
