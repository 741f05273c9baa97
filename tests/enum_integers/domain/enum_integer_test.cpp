// States, queries, construction and assignment of the enumerated domain.

#include "enum_integers/domain/enum_integer.h"

#include <gtest/gtest.h>

#include <limits>

#include "enum_integers/storage/slot_memory.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

constexpr std::int32_t kIntMin = std::numeric_limits<std::int32_t>::min();

TEST(EnumInteger, DefaultIsAny) {
  const KivOmbEnumInteger any;
  EXPECT_EQ(any.CheckAny(), 1);
  EXPECT_EQ(any.IsUndefined(), 1);
  EXPECT_EQ(any.CheckNil(), 0);
  EXPECT_EQ(any.IsNil(), 0);
  EXPECT_EQ(any.CheckDefined(), 0);
  EXPECT_EQ(any.Count(), 0u);
  EXPECT_EQ(any.GetDelta(), 20u);
  EXPECT_EQ(any.GetCardinality(), 4294967295u);
  EXPECT_EQ(any.GetLowerBound(), kMin);
  EXPECT_EQ(any.GetUpperBound(), kMax);
  EXPECT_EQ(any.Contains(5), 0);
}

TEST(EnumInteger, NilHasNoValueAndExchangedBounds) {
  const KivOmbEnumInteger nil = NilSet();
  EXPECT_EQ(nil.CheckNil(), 1);
  EXPECT_EQ(nil.IsNil(), 1);
  EXPECT_EQ(nil.CheckAny(), 0);
  EXPECT_EQ(nil.IsUndefined(), 0);
  EXPECT_EQ(nil.GetLowerBound(), kMax);
  EXPECT_EQ(nil.GetUpperBound(), kMin);
  EXPECT_EQ(nil.GetCardinality(), 0u);
  EXPECT_EQ(nil.Contains(5), 0);
}

TEST(EnumInteger, SetListsItsValues) {
  const KivOmbEnumInteger set = Set({30, 10, 20});
  EXPECT_EQ(set.CheckAny(), 0);
  EXPECT_EQ(set.CheckNil(), 0);
  EXPECT_EQ(set.Count(), 3u);
  EXPECT_EQ(set.GetCardinality(), 3u);
  EXPECT_EQ(set.GetValue(1), 20);
  EXPECT_EQ(set.GetFirstL(), 10);
  EXPECT_EQ(set.GetLastU(), 30);
  EXPECT_EQ(set.GetLowerBound(), 10);
  EXPECT_EQ(set.GetUpperBound(), 30);
  EXPECT_EQ(set.Contains(20), 1);
  EXPECT_EQ(set.Contains(21), 0);
  EXPECT_EQ(Set({4}).CheckDefined(), 1);
  EXPECT_EQ(set.CheckDefined(), 0);
}

TEST(EnumInteger, LeastInteger32IsTakenAsMinusInfinity) {
  const KivOmbEnumInteger set = Set({kIntMin});
  EXPECT_EQ(set.GetValue(0), kMin);
  EXPECT_EQ(set.Contains(kIntMin), 1);
  EXPECT_EQ(set.GetNextExactValue(kIntMin), kIntMin + 1);
  EXPECT_EQ(set.GetPrevExactValue(kIntMin), kMax);  // wraps
}

TEST(EnumInteger, BuiltFromAValueItIsLeftWithTheFlagOfAny) {
  const KivOmbEnumInteger set(SubIntBase(7), 0);
  EXPECT_EQ(Text(set), "7");
  EXPECT_EQ(Flag(set), 1);
}

TEST(EnumInteger, BuiltFromASingleItIsTheSameSet) {
  EXPECT_EQ(KivOmbEnumInteger(KivOmbSingleInteger(), 0).CheckAny(), 1);
  EXPECT_EQ(KivOmbEnumInteger(NilSingle(), 0).CheckNil(), 1);
  const KivOmbEnumInteger three(KivOmbSingleInteger(3), 0);
  EXPECT_EQ(Text(three), "3");
  EXPECT_EQ(Flag(three), 0);
}

TEST(EnumInteger, AssigningASingleReversesWhatTheConstructorDoes) {
  KivOmbEnumInteger domain = Set({1, 2});
  domain = KivOmbSingleInteger(3);
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = KivOmbSingleInteger();  // its stored value is 0
  EXPECT_EQ(Text(domain), "0");
  EXPECT_EQ(Flag(domain), 0);
  domain = NilSingle();
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(EnumInteger, CopiesTakeValuesAndLeftoverFlag) {
  const KivOmbEnumInteger set = SetLeftAny({1, 2});
  KivOmbEnumInteger copy(set);
  KivOmbEnumInteger assigned;
  EXPECT_EQ(&(assigned = set), &assigned);
  for (const KivOmbEnumInteger* const domain : {&copy, &assigned}) {
    EXPECT_EQ(Text(*domain), "{ 1, 2 }");
    EXPECT_EQ(Flag(*domain), 1);
  }
  copy.Insert(3);
  EXPECT_EQ(Text(set), "{ 1, 2 }");
  copy = Set({});
  EXPECT_EQ(copy.CheckNil(), 1);
  copy = KivOmbEnumInteger();
  EXPECT_EQ(copy.CheckAny(), 1);
}

TEST(EnumInteger, AssigningAnEqualSetTakesItsFlag) {
  KivOmbEnumInteger domain = SetLeftAny({1, 2});
  domain = Set({1, 2});
  EXPECT_EQ(Flag(domain), 0);
}

// Few values are copied in another way than many, and sets of any size meet room of any size.
TEST(EnumInteger, AssignsSetsOfAnySize) {
  constexpr std::int32_t kSizes[] = {0,  1,  2,  3,  4,  5,  7,  8,  9,   15,  16,  17,  20,
                                     21, 22, 31, 32, 33, 63, 64, 65, 100, 511, 512, 513, 1024};
  for (const std::int32_t before : kSizes) {
    for (const std::int32_t after : kSizes) {
      SCOPED_TRACE(testing::Message() << after << " values for " << before);
      KivOmbEnumInteger domain = Range(-before, -1);
      const KivOmbEnumInteger other = Range(5, after + 4);
      domain = other;
      ASSERT_EQ(domain.Count(), static_cast<unsigned>(after));
      for (std::int32_t i = 0; i < after; ++i) {
        ASSERT_EQ(domain.GetValue(static_cast<unsigned>(i)), i + 5);
      }
      ASSERT_EQ(Flag(domain), Flag(other));
      ASSERT_EQ(domain.GetDelta(), other.GetDelta());
    }
  }
}

TEST(EnumInteger, AssigningItselfChangesNothing) {
  KivOmbEnumInteger set = SetLeftAny({1, 2});
  const KivOmbEnumInteger& same = set;
  set = same;
  EXPECT_EQ(Text(set), "{ 1, 2 }");
  EXPECT_EQ(Flag(set), 1);
}

TEST(EnumInteger, StateChangesEmptyTheDomain) {
  KivOmbEnumInteger set = Set({1, 2});
  set.CheckValue();
  EXPECT_EQ(Text(set), "{ 1, 2 }");
  set.Any();
  EXPECT_EQ(set.CheckAny(), 1);
  set = Set({1, 2});
  EXPECT_EQ(set.Nil(), 1);
  EXPECT_EQ(set.CheckNil(), 1);
  set.SetUndefinedValue();
  EXPECT_EQ(set.CheckAny(), 1);
  set.SetNilValue();
  EXPECT_EQ(set.CheckNil(), 1);
}

TEST(EnumInteger, NeighboursOfValues) {
  const KivOmbEnumInteger set = Set({10, 20, 30});
  EXPECT_EQ(set.GetNextExactValue(20), 30);
  EXPECT_EQ(set.GetNextExactValue(30), 31);
  EXPECT_EQ(set.GetNextExactValue(35), 35);
  EXPECT_EQ(set.GetNextExactValue(15), 20);
  EXPECT_EQ(set.GetPrevExactValue(20), 10);
  EXPECT_EQ(set.GetPrevExactValue(10), 9);
  EXPECT_EQ(set.GetPrevExactValue(5), 5);
  EXPECT_EQ(set.GetPrevExactValue(25), 20);
}

TEST(EnumInteger, NeighboursInAnyAndNil) {
  const KivOmbEnumInteger any;
  EXPECT_EQ(any.GetNextExactValue(7), 8);
  EXPECT_EQ(any.GetPrevExactValue(7), 6);
  EXPECT_EQ(any.GetNextExactValue(kMax), kIntMin);  // wraps
  EXPECT_EQ(any.GetPrevExactValue(kMin), kIntMin);
  EXPECT_EQ(any.GetPrevExactValue(kIntMin), kIntMin);
  EXPECT_EQ(NilSet().GetNextExactValue(7), 7);
  EXPECT_EQ(NilSet().GetPrevExactValue(7), 7);
}

TEST(EnumInteger, NeighboursOfTheInfinitiesWrap) {
  EXPECT_EQ(Set({kMax}).GetNextExactValue(kMax), kIntMin);
  EXPECT_EQ(Set({kMin}).GetPrevExactValue(kMin), kIntMin);
}

TEST(EnumInteger, CheckErrorStatusWithoutAnErrorChangesNothing) {
  SDClearError();
  KivOmbEnumInteger set = Set({1, 2});
  EXPECT_EQ(set.CheckErrorStatus(), 0);
  EXPECT_EQ(Text(set), "{ 1, 2 }");
}

TEST(EnumInteger, CheckErrorStatusTurnsAnErrorIntoNilAndClearsIt) {
  base_plus(kMin, kMax);
  ASSERT_NE(SDCheckError(), 0);
  KivOmbEnumInteger set = Set({1, 2});
  EXPECT_EQ(set.CheckErrorStatus(), 1);
  EXPECT_EQ(set.CheckNil(), 1);
  EXPECT_EQ(SDCheckError(), 0);
}

TEST(EnumInteger, ASetWithoutMemoryForItsCopyIsCopiedAsNil) {
  const KivOmbEnumInteger set = Range(1, 22);
  KivOmbEnumInteger assigned;
  const kiv::SlotMemoryLimit none(0);
  const KivOmbEnumInteger copy(set);
  assigned = set;
  EXPECT_EQ(copy.CheckNil(), 1);
  EXPECT_EQ(assigned.CheckNil(), 1);
}

TEST(EnumInteger, ASetIsAssignedWithoutMemoryWhereThereIsRoomForIt) {
  const KivOmbEnumInteger set = Range(1, 21);
  KivOmbEnumInteger assigned;
  const kiv::SlotMemoryLimit none(0);
  assigned = set;
  EXPECT_EQ(assigned.Count(), 21u);
}

TEST(EnumInteger, AStateIsCopiedWithoutMemoryToo) {
  KivOmbEnumInteger assigned = Set({1});
  const kiv::SlotMemoryLimit none(0);
  const KivOmbEnumInteger any;
  const KivOmbEnumInteger copy(any);
  assigned = any;
  EXPECT_EQ(any.CheckAny(), 1);
  EXPECT_EQ(copy.CheckAny(), 1);
  EXPECT_EQ(assigned.CheckAny(), 1);
}

}  // namespace
