#include <gtest/gtest.h>

#include <limits>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/storage/slot_memory.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

constexpr std::int32_t kIntMin = std::numeric_limits<std::int32_t>::min();

TEST(Insertion, LeavesAnyAsItIs) {
  KivOmbEnumInteger any;
  EXPECT_EQ(any.Insert(5), 0);
  any.InsertExactValue(5);
  EXPECT_EQ(any.CheckAny(), 1);
}

TEST(Insertion, GivesNilItsFirstValue) {
  KivOmbEnumInteger domain = NilSet();
  EXPECT_EQ(domain.Insert(5), 1);
  EXPECT_EQ(Text(domain), "5");
  domain.InsertExactValue(3);
  EXPECT_EQ(domain.Insert(5), 1);
  EXPECT_EQ(Text(domain), "{ 3, 5 }");
}

TEST(Insertion, FillsADomainUpToTheCapAndThenMakesItAny) {
  for (const std::int32_t further : {500, 5000}) {  // one that is held, and one that is not
    KivOmbEnumInteger domain = NilSet();
    for (std::int32_t v = 0; v < 1024; ++v) EXPECT_EQ(domain.Insert(v), 1);
    EXPECT_EQ(domain.Count(), 1024u);
    EXPECT_EQ(domain.Insert(further), 0);
    EXPECT_EQ(domain.CheckAny(), 1);
  }
}

TEST(Insertion, WithoutMemoryMakesTheDomainNilAndStillReturnsOne) {
  KivOmbEnumInteger domain = SetLeftAny({});
  for (std::int32_t v = 0; v < 21; ++v) domain.SimpleInsert(v);
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(domain.SimpleInsert(21), 0);
  EXPECT_EQ(domain.Count(), 21u);
  EXPECT_EQ(domain.Insert(20), 1);  // present: needs no memory
  EXPECT_EQ(domain.Count(), 21u);
  EXPECT_EQ(domain.Insert(21), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(Insertion, SimpleOneKnowsNeitherStateNorCap) {
  KivOmbEnumInteger any;
  EXPECT_EQ(any.SimpleInsert(5), 1);
  EXPECT_EQ(Text(any), "5");
  EXPECT_EQ(Flag(any), 1);
  KivOmbEnumInteger full = Range(1, 1024);
  EXPECT_EQ(full.SimpleInsert(0), 1);
  EXPECT_EQ(full.Count(), 1025u);
}

TEST(SetExactValue, LeavesTheOneValueWhateverWasThere) {
  for (KivOmbEnumInteger domain : {KivOmbEnumInteger(), NilSet(), Set({1, 7}), SetLeftAny({7})}) {
    domain.SetExactValue(7);
    EXPECT_EQ(Text(domain), "7");
    EXPECT_EQ(Flag(domain), 0);
  }
}

TEST(RemoveExactValue, OfAnAbsentValueChangesNothing) {
  KivOmbEnumInteger any;
  EXPECT_EQ(any.RemoveExactValue(7), 0);
  EXPECT_EQ(any.CheckAny(), 1);
  KivOmbEnumInteger set = Set({1, 2});
  EXPECT_EQ(set.RemoveExactValue(7), 0);
  EXPECT_EQ(Text(set), "{ 1, 2 }");
}

TEST(RemoveExactValue, OfTheLastValueLeavesTheStateToTheLeftoverFlag) {
  KivOmbEnumInteger built(SubIntBase(7), 0);
  EXPECT_EQ(built.RemoveExactValue(7), 1);
  EXPECT_EQ(built.CheckAny(), 1);

  KivOmbEnumInteger set_exactly;
  set_exactly.SetExactValue(7);
  EXPECT_EQ(set_exactly.RemoveExactValue(7), 1);
  EXPECT_EQ(set_exactly.CheckNil(), 1);

  KivOmbEnumInteger inserted = Set({7, 8});
  EXPECT_EQ(inserted.RemoveExactValue(7), 1);
  EXPECT_EQ(Text(inserted), "8");
  EXPECT_EQ(inserted.RemoveExactValue(8), 1);
  EXPECT_EQ(inserted.CheckNil(), 1);
}

TEST(SetLowerBound, FillsTheRangeUpToTheOldUpperBound) {
  KivOmbEnumInteger domain = SetLeftAny({10, 20, 30});
  domain.SetLowerBound(25);
  EXPECT_EQ(Text(domain), "{ 25, 26, 27, 28, 29, 30 }");
  EXPECT_EQ(Flag(domain), 0);
}

TEST(SetLowerBound, OneAboveTheUpperBoundIsTheBoundAlone) {
  KivOmbEnumInteger domain = Set({10, 20, 30});
  domain.SetLowerBound(31);
  EXPECT_EQ(Text(domain), "31");
}

TEST(SetLowerBound, TwoOrMoreAboveTheUpperBoundIsAny) {
  for (const std::int32_t bound : {32, 33, kMax}) {
    KivOmbEnumInteger domain = Set({10, 20, 30});
    domain.SetLowerBound(bound);
    EXPECT_EQ(domain.CheckAny(), 1) << bound;
  }
}

TEST(SetLowerBound, OfARangeAsLargeAsTheCapIsAny) {
  KivOmbEnumInteger domain = Set({10, 20, 30});
  domain.SetLowerBound(-2000);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = Set({1024});
  domain.SetLowerBound(1);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = Set({1024});
  domain.SetLowerBound(2);
  EXPECT_EQ(domain.Count(), 1023u);
}

TEST(SetLowerBound, LeavesAnyAndFillsNil) {
  KivOmbEnumInteger domain;
  domain.SetLowerBound(4);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Nil();
  domain.SetLowerBound(4);
  EXPECT_EQ(Text(domain), "4");
}

TEST(SetLowerBound, AtTheEndsOfTheRange) {
  KivOmbEnumInteger domain = Set({kMax});
  domain.SetLowerBound(kMax - 1);
  EXPECT_EQ(Text(domain), "{ 2147483646,  Max }");
  domain = Set({kMin + 1});
  domain.SetLowerBound(kIntMin);
  EXPECT_EQ(Text(domain), "{  Min, -2147483646 }");
  domain = Set({kMax});
  domain.SetLowerBound(kIntMin);  // 2^32 integers: the size wraps to 0, and inserting meets the cap
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(SetUpperBound, FillsTheRangeFromTheOldLowerBound) {
  KivOmbEnumInteger domain = SetLeftAny({10, 20, 30});
  domain.SetUpperBound(13);
  EXPECT_EQ(Text(domain), "{ 10, 11, 12, 13 }");
  EXPECT_EQ(Flag(domain), 0);
}

TEST(SetUpperBound, FillsTheRangeEvenWhenTheSetHasAsManyValues) {
  KivOmbEnumInteger domain = Set({10, 20, 30});
  domain.SetUpperBound(12);
  EXPECT_EQ(Text(domain), "{ 10, 11, 12 }");
  domain = Set({10, 20, 30});
  domain.SetLowerBound(28);
  EXPECT_EQ(Text(domain), "{ 28, 29, 30 }");
}

TEST(SetUpperBound, BelowTheLowerBound) {
  KivOmbEnumInteger domain = Set({10, 20});
  domain.SetUpperBound(9);
  EXPECT_EQ(Text(domain), "9");
  domain = Set({10, 20});
  domain.SetUpperBound(8);
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(SetUpperBound, LeavesAnyAndFillsNil) {
  KivOmbEnumInteger domain;
  domain.SetUpperBound(4);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Nil();
  domain.SetUpperBound(4);
  EXPECT_EQ(Text(domain), "4");
}

TEST(SetUpperBound, OfARangeAsLargeAsTheCapIsAny) {
  KivOmbEnumInteger domain = Set({1});
  domain.SetUpperBound(1024);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = Set({1});
  domain.SetUpperBound(1023);
  EXPECT_EQ(domain.Count(), 1023u);
}

TEST(SetUpperBound, AtTheEndsOfTheRange) {
  KivOmbEnumInteger domain = Set({kMin});
  domain.SetUpperBound(kIntMin);
  EXPECT_EQ(Text(domain), " Min");
  domain = Set({kMax - 1});
  domain.SetUpperBound(kMax);
  EXPECT_EQ(Text(domain), "{ 2147483646,  Max }");
}

}  // namespace
