#include <gtest/gtest.h>

#include <utility>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/storage/slot_memory.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

int IsOdd(const SubIntBase& v, void*) { return v.GetValue() % 2 != 0; }
int RejectAll(const SubIntBase&, void*) { return 0; }
int IsNot(const SubIntBase& v, void* unwanted) {
  return v.GetValue() != *static_cast<int*>(unwanted);
}

TEST(Intersect, KeepsTheCommonValues) {
  KivOmbEnumInteger domain = Set({1, 3, 5});
  EXPECT_EQ(domain.Intersect(Set({3, 4, 5})), 1);
  EXPECT_EQ(Text(domain), "{ 3, 5 }");
  EXPECT_EQ(domain.Intersect(Set({1, 3, 5, 7})), 0);
  EXPECT_EQ(Text(domain), "{ 3, 5 }");
  EXPECT_EQ(domain.Intersect(domain), 0);
}

TEST(Intersect, WithAnyAndNil) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(domain.Intersect(SetLeftAny({2, 4})), 1);
  EXPECT_EQ(Text(domain), "{ 2, 4 }");
  EXPECT_EQ(Flag(domain), 1);
  EXPECT_EQ(domain.Intersect(KivOmbEnumInteger()), 0);
  EXPECT_EQ(Text(domain), "{ 2, 4 }");
  EXPECT_EQ(domain.Intersect(NilSet()), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.Intersect(KivOmbEnumInteger()), 0);
  EXPECT_EQ(domain.Intersect(NilSet()), 0);
  EXPECT_EQ(domain.Intersect(Set({1})), 0);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(Intersect, WithoutCommonValuesIsNilWhateverTheLeftoverFlag) {
  KivOmbEnumInteger domain = SetLeftAny({1, 2});
  EXPECT_EQ(domain.Intersect(Set({3})), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(Intersect, KeepsItsLeftoverFlag) {
  KivOmbEnumInteger domain = SetLeftAny({1, 2});
  EXPECT_EQ(domain.Intersect(Set({2, 3})), 1);
  EXPECT_EQ(Flag(domain), 1);
}

// {2^31 - 3, infinity twice}: as many values as the interval between its ends has.
KivOmbEnumInteger WithInfinityTwice() {
  KivOmbEnumInteger domain;
  domain.CalcNextValue(Set({kMax - 3, kMax - 1, kMax}));
  return domain;
}

TEST(Intersect, WithAnInfinityThatStandsTwiceIsNotWithAnInterval) {
  const KivOmbEnumInteger twins = WithInfinityTwice();
  ASSERT_EQ(twins.Count(), 3u);
  KivOmbEnumInteger domain = Set({kMax - 1, kMax});
  EXPECT_EQ(domain.Intersect(twins), 1);
  EXPECT_EQ(domain.Count(), 1u);
  EXPECT_EQ(domain.GetFirstL(), kMax);
}

TEST(Intersect, OfAnIntervalWithAnInfinityThatStandsTwiceKeepsItOnce) {
  KivOmbEnumInteger domain = Set({kMax - 1, kMax});
  EXPECT_EQ(domain.Intersect(WithInfinityTwice()), 1);
  EXPECT_EQ(domain.Count(), 1u);
  domain = Set({kMax - 2, kMax - 1, kMax});
  EXPECT_EQ(domain.Intersect(WithInfinityTwice()), 1);
  EXPECT_EQ(domain.Count(), 2u);
}

TEST(Unite, KeepsAnInfinityThatStandsTwice) {
  KivOmbEnumInteger domain = Set({kMax - 1, kMax});
  domain.Unite(WithInfinityTwice());
  EXPECT_EQ(domain.Count(), 4u);
  domain = WithInfinityTwice();
  domain.Unite(Set({kMax - 1, kMax}));
  EXPECT_EQ(domain.Count(), 4u);
}

TEST(Contains, SeesNoIntervalInAnInfinityThatStandsTwice) {
  const KivOmbEnumInteger twins = WithInfinityTwice();
  EXPECT_EQ(twins.Contains(kMax - 2), 1);
  EXPECT_EQ(twins.Contains(kMax - 1), 0);
  EXPECT_EQ(twins.Contains(kMax), 1);
}

TEST(IntersectSingle, KeepsItsValue) {
  KivOmbEnumInteger domain = Set({5});
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger(5)), 0);
  domain = SetLeftAny({4, 5});
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger(5)), 1);
  EXPECT_EQ(Text(domain), "5");
  EXPECT_EQ(Flag(domain), 1);
  domain = SetLeftAny({4, 6});
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger(5)), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(IntersectSingle, WithAnyAndNil) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger()), 0);
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger(5)), 1);
  EXPECT_EQ(Text(domain), "5");
  EXPECT_EQ(Flag(domain), 0);
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger()), 0);
  EXPECT_EQ(domain.Intersect(NilSingle()), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.Intersect(KivOmbSingleInteger(5)), 0);
}

TEST(IntersectInterval, CutsOffWhatLiesOutside) {
  KivOmbEnumInteger domain = Set({1, 5, 9, 12});
  EXPECT_EQ(domain.Intersect(Interval(5, 10)), 1);
  EXPECT_EQ(Text(domain), "{ 5, 9 }");
  domain = Set({1, 5, 9, 12});
  EXPECT_EQ(domain.Intersect(Interval(2, 9)), 1);
  EXPECT_EQ(Text(domain), "{ 5, 9 }");
  domain = Set({1, 5, 9, 12});
  EXPECT_EQ(domain.Intersect(Interval(0, 20)), 0);
  EXPECT_EQ(Text(domain), "{ 1, 5, 9, 12 }");
}

TEST(IntersectInterval, CutToNothingLeavesTheStateToTheLeftoverFlag) {
  KivOmbEnumInteger built(SubIntBase(3), 0);
  EXPECT_EQ(built.Intersect(Interval(5, 9)), 1);
  EXPECT_EQ(built.CheckAny(), 1);
  KivOmbEnumInteger inserted = Set({3, 12});
  EXPECT_EQ(inserted.Intersect(Interval(5, 9)), 1);
  EXPECT_EQ(inserted.CheckNil(), 1);
}

TEST(IntersectInterval, TurnsAnyIntoTheIntegersOfANarrowInterval) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(domain.Intersect(Interval(1, 1024)), 0);
  EXPECT_EQ(domain.CheckAny(), 1);
  EXPECT_EQ(domain.Intersect(Interval(1, 1023)), 1);
  EXPECT_EQ(domain.Count(), 1023u);
  EXPECT_EQ(domain.GetLowerBound(), 1);
  EXPECT_EQ(domain.GetUpperBound(), 1023);
  EXPECT_EQ(Flag(domain), 0);
  domain.Any();
  EXPECT_EQ(domain.Intersect(Interval(kMax - 1, kMax)), 1);
  EXPECT_EQ(Text(domain), "{ 2147483646,  Max }");
}

// An interval whose bounds a kind derived from it reports as it likes.
class OddInterval : public KivOmbIntervalInteger {
 public:
  OddInterval(std::int32_t lower, std::int32_t upper)
      : KivOmbIntervalInteger(SubdefInt(0, 1)), odd_lower_(lower), odd_upper_(upper) {}
  std::int32_t GetLowerBound() const override { return odd_lower_; }
  std::int32_t GetUpperBound() const override { return odd_upper_; }

 private:
  std::int32_t odd_lower_;
  std::int32_t odd_upper_;
};

TEST(IntersectInterval, WithBoundsTheWrongWayRound) {
  KivOmbEnumInteger any;
  EXPECT_EQ(any.Intersect(OddInterval(6, 4)), 0);
  EXPECT_EQ(any.CheckAny(), 1);
  EXPECT_EQ(any.Intersect(OddInterval(6, 5)), 1);
  EXPECT_EQ(any.CheckNil(), 1);
  KivOmbEnumInteger set = Set({1, 5, 9});
  EXPECT_EQ(set.Intersect(OddInterval(6, 4)), 1);
  EXPECT_EQ(set.CheckNil(), 1);
}

TEST(IntersectInterval, WithAnyAndNil) {
  KivOmbEnumInteger domain = Set({1, 2});
  EXPECT_EQ(domain.Intersect(KivOmbIntervalInteger()), 0);
  EXPECT_EQ(domain.Intersect(NilInterval()), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.Intersect(Interval(1, 2)), 0);
}

TEST(IntersectFiltered, KeepsWhatTheFilterAccepts) {
  KivOmbEnumInteger domain = Set({1, 2, 3, 4});
  EXPECT_EQ(domain.Intersect(Set({1, 2, 3}), IsOdd, nullptr), 1);
  EXPECT_EQ(Text(domain), "{ 1, 3 }");
  int unwanted = 3;
  EXPECT_EQ(domain.Intersect(Set({1, 3}), IsNot, &unwanted), 1);
  EXPECT_EQ(Text(domain), "1");
  EXPECT_EQ(domain.Intersect(Set({1, 3}), IsOdd, nullptr), 0);
  EXPECT_EQ(domain.Intersect(Set({1, 3}), RejectAll, nullptr), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(IntersectFiltered, OfAnyWithNothingAcceptedStaysAny) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(domain.Intersect(Set({1, 2, 3}), RejectAll, nullptr), 0);
  EXPECT_EQ(domain.CheckAny(), 1);
  EXPECT_EQ(domain.Intersect(SetLeftAny({1, 2, 3}), IsOdd, nullptr), 1);
  EXPECT_EQ(Text(domain), "{ 1, 3 }");
  EXPECT_EQ(Flag(domain), 0);
}

TEST(IntersectFiltered, WithAnyAndNil) {
  KivOmbEnumInteger domain = Set({1, 2});
  EXPECT_EQ(domain.Intersect(KivOmbEnumInteger(), RejectAll, nullptr), 0);
  EXPECT_EQ(domain.Intersect(NilSet(), IsOdd, nullptr), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.Intersect(Set({1}), IsOdd, nullptr), 0);
}

TEST(IntersectFiltered, WithAUnion) {
  KivOmbEnumInteger domain = Set({1, 2, 3, 4, 5});
  EXPECT_EQ(domain.Intersect(Set({1, 2}), Set({2, 5}), IsOdd, nullptr), 1);
  EXPECT_EQ(Text(domain), "{ 1, 5 }");
  EXPECT_EQ(domain.Intersect(KivOmbEnumInteger(), Set({9}), IsOdd, nullptr), 0);
  EXPECT_EQ(domain.Intersect(Set({9}), KivOmbEnumInteger(), IsOdd, nullptr), 0);
  EXPECT_EQ(domain.Intersect(Range(1, 600), Range(601, 1024), RejectAll, nullptr), 0);
  EXPECT_EQ(Text(domain), "{ 1, 5 }");
  EXPECT_EQ(domain.Intersect(NilSet(), NilSet(), IsOdd, nullptr), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(IntersectInverse, NarrowsASingle) {
  KivOmbSingleInteger single;
  EXPECT_EQ(Set({7, 8}).IntersectInverse(single), 0);
  EXPECT_EQ(single.CheckAny(), 1);
  EXPECT_EQ(KivOmbEnumInteger().IntersectInverse(single), 0);
  EXPECT_EQ(Set({7}).IntersectInverse(single), 1);
  EXPECT_EQ(Text(single), "7");
  EXPECT_EQ(Set({7, 8}).IntersectInverse(single), 0);
  EXPECT_EQ(KivOmbEnumInteger().IntersectInverse(single), 0);
  single = KivOmbSingleInteger(9);
  EXPECT_EQ(Set({7, 8}).IntersectInverse(single), 1);
  EXPECT_EQ(single.CheckNil(), 1);
  EXPECT_EQ(NilSet().IntersectInverse(single), 0);
  single = KivOmbSingleInteger(9);
  EXPECT_EQ(NilSet().IntersectInverse(single), 1);
  EXPECT_EQ(single.CheckNil(), 1);
}

TEST(IntersectInverse, NarrowsAnIntervalToTheHullOfTheValuesInside) {
  KivOmbIntervalInteger interval = Interval(3, 8);
  EXPECT_EQ(Set({2, 6, 9}).IntersectInverse(interval), 1);
  EXPECT_EQ(interval.GetLowerBound(), 6);
  EXPECT_EQ(interval.GetUpperBound(), 6);
  interval = Interval(1, 10);
  EXPECT_EQ(Set({1, 4, 10}).IntersectInverse(interval), 0);
  EXPECT_EQ(KivOmbEnumInteger().IntersectInverse(interval), 0);
  interval = KivOmbIntervalInteger();
  EXPECT_EQ(Set({2, 6, 9}).IntersectInverse(interval), 1);
  EXPECT_EQ(interval.GetLowerBound(), 2);
  EXPECT_EQ(interval.GetUpperBound(), 9);
}

TEST(IntersectInverse, WithoutAValueInTheIntervalIsNil) {
  for (const auto& [lower, upper] : {std::pair{3, 5}, std::pair{-5, 0}, std::pair{20, 30}}) {
    KivOmbIntervalInteger interval = Interval(lower, upper);
    EXPECT_EQ(Set({2, 6, 9}).IntersectInverse(interval), 1);
    EXPECT_EQ(interval.CheckNil(), 1) << lower;
  }
  KivOmbIntervalInteger interval = Interval(3, 5);
  EXPECT_EQ(NilSet().IntersectInverse(interval), 1);
  EXPECT_EQ(interval.CheckNil(), 1);
  EXPECT_EQ(Set({4}).IntersectInverse(interval), 0);
}

TEST(Unite, JoinsValues) {
  KivOmbEnumInteger domain = Set({1, 2});
  domain.Unite(Set({2, 3}));
  EXPECT_EQ(Text(domain), "{ 1, 2, 3 }");
  domain.Unite(Set({-5, 9}));
  EXPECT_EQ(Text(domain), "{ -5, 1, 2, 3, 9 }");
  domain.Unite(domain);
  EXPECT_EQ(domain.Count(), 5u);
}

TEST(Unite, WithAnyAndNil) {
  KivOmbEnumInteger domain = NilSet();
  domain.Unite(SetLeftAny({4}));
  EXPECT_EQ(Text(domain), "4");
  EXPECT_EQ(Flag(domain), 1);
  domain.Unite(NilSet());
  EXPECT_EQ(Text(domain), "4");
  domain.Unite(KivOmbEnumInteger());
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Unite(Set({1}));
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(Unite, ThatReachesTheCapIsAny) {
  KivOmbEnumInteger domain = Range(1, 600);
  domain.Unite(Range(601, 1023));
  EXPECT_EQ(domain.Count(), 1023u);
  domain.Unite(Set({1024}));
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(Unite, ThatAddsNothingLeavesAFullDomain) {
  KivOmbEnumInteger full = Range(1, 1024);
  full.Unite(Set({1, 500}));
  EXPECT_EQ(full.Count(), 1024u);
}

TEST(Unite, WithASingleInserts) {
  KivOmbEnumInteger domain = NilSet();
  domain.Unite(KivOmbSingleInteger(4));
  domain.Unite(NilSingle());
  EXPECT_EQ(Text(domain), "4");
  domain = Range(1, 1023);
  domain.Unite(KivOmbSingleInteger(0));
  EXPECT_EQ(domain.Count(), 1024u);
  domain.Unite(KivOmbSingleInteger(0));
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Unite(KivOmbSingleInteger(0));
  EXPECT_EQ(domain.CheckAny(), 1);
  domain = Set({1});
  domain.Unite(KivOmbSingleInteger());
  EXPECT_EQ(domain.CheckAny(), 1);
}

TEST(Minus, NegatesEveryValue) {
  KivOmbEnumInteger domain = SetLeftAny({-3, 1, 4});
  domain.Minus();
  EXPECT_EQ(Text(domain), "{ -4, -1, 3 }");
  EXPECT_EQ(Flag(domain), 1);
  domain = Set({2});
  domain.Minus();
  EXPECT_EQ(Text(domain), "-2");
  domain = Set({-4, 0, 4});
  domain.Minus();
  EXPECT_EQ(Text(domain), "{ -4, 0, 4 }");
  domain = Set({kMin, 3});
  domain.Minus();
  EXPECT_EQ(Text(domain), "{ -3,  Max }");
}

TEST(Minus, LeavesAnyAndNil) {
  KivOmbEnumInteger domain;
  domain.Minus();
  EXPECT_EQ(domain.CheckAny(), 1);
  domain.Nil();
  domain.Minus();
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(SetAlgebra, IntersectsWithoutMemory) {
  KivOmbEnumInteger domain = Set({1, 2, 3});
  const KivOmbEnumInteger other = Set({2, 3, 5});
  const KivOmbEnumInteger nil = Set({});
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(domain.Intersect(other), 1);
  EXPECT_EQ(Text(domain), "{ 2, 3 }");
  EXPECT_EQ(domain.Intersect(nil), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(SetAlgebra, AUnionWithoutMemoryIsNil) {
  KivOmbEnumInteger domain = Range(1, 20);
  const KivOmbEnumInteger other = Range(11, 30);
  const kiv::SlotMemoryLimit none(0);
  domain.Unite(other);
  EXPECT_EQ(domain.CheckNil(), 1);
}

}  // namespace
