#include "enum_integers/storage/value_vector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "enum_integers/storage/slot_memory.h"

namespace {

using Vector = KivSVectorImp_SubIntBase;

Vector VectorOf(std::initializer_list<int> values) {
  Vector vector(20, 20, 0);
  for (const int v : values) vector.Add(v);
  return vector;
}

std::vector<int> ValuesOf(const Vector& vector) {
  std::vector<int> values;
  for (unsigned i = 0; i < vector.Top(); ++i) values.push_back(vector[i].GetValue());
  return values;
}

using Values = std::vector<int>;

TEST(ValueVector, DefaultConstructedRefusesEveryInsertion) {
  Vector vector;
  EXPECT_EQ(vector.Good(), 1);
  EXPECT_EQ(vector.Limit(), 0u);
  EXPECT_EQ(vector.GetDelta(), 0u);
  EXPECT_EQ(vector.Add(1), 0);
  EXPECT_EQ(vector.AddUnique(1), 0);
  EXPECT_EQ(vector.AddAt(1, 0), 0);
  EXPECT_EQ(vector.AddAt(1, 7), 0);
  EXPECT_EQ(vector.Resize(5), 0);
  EXPECT_EQ(vector.NextDelta(5), 0u);
  EXPECT_EQ(vector.Top(), 0u);
  EXPECT_EQ(vector.IsEmpty(), 1);
}

TEST(ValueVector, DefaultConstructedGrowsOnceAnotherIsAssigned) {
  Vector vector;
  vector = VectorOf({1});
  EXPECT_EQ(vector.Add(2), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2}));
}

TEST(ValueVector, AssignmentFromDefaultConstructedLeavesNoWayToGrow) {
  Vector vector = VectorOf({1});
  vector = Vector();
  EXPECT_EQ(vector.Limit(), 0u);
  EXPECT_EQ(vector.Add(2), 0);
}

TEST(ValueVector, CopyOfDefaultConstructedIsGoodAndCannotGrow) {
  const Vector none;
  Vector copy(none);
  EXPECT_EQ(copy.Good(), 1);
  EXPECT_EQ(copy.Limit(), 0u);
  EXPECT_EQ(copy.Add(1), 0);
}

TEST(ValueVector, SizedHasOneSlotMoreThanAsked) {
  const Vector vector(20, 20, 0);
  EXPECT_EQ(vector.Limit(), 21u);
  EXPECT_EQ(vector.GetDelta(), 20u);
  EXPECT_EQ(vector.Good(), 1);
  EXPECT_EQ(vector.Count(), 0u);
}

TEST(ValueVector, GrowsByStepsOfDelta) {
  Vector vector(20, 20, 0);
  for (int v = 0; v < 21; ++v) EXPECT_EQ(vector.Add(v), 1);
  EXPECT_EQ(vector.Limit(), 21u);
  EXPECT_EQ(vector.Add(21), 1);
  EXPECT_EQ(vector.Limit(), 41u);
  for (int v = 22; v < 42; ++v) EXPECT_EQ(vector.AddUnique(v), 1);
  EXPECT_EQ(vector.Limit(), 61u);
}

TEST(ValueVector, ResizeRoundsUpToAMultipleOfDelta) {
  Vector vector(20, 20, 0);
  EXPECT_EQ(vector.Resize(21), 0);
  EXPECT_EQ(vector.Resize(22), 1);
  EXPECT_EQ(vector.Limit(), 41u);
  EXPECT_EQ(vector.Resize(61), 1);  // 20 more: no rounding
  EXPECT_EQ(vector.Limit(), 61u);
  EXPECT_EQ(vector.Resize(82), 1);  // 21 more: 40
  EXPECT_EQ(vector.Limit(), 101u);
  EXPECT_EQ(vector.Top(), 0u);
}

TEST(ValueVector, NextDeltaRoundsLikeResize) {
  const Vector vector(20, 20, 0);
  EXPECT_EQ(vector.NextDelta(0), 0u);
  EXPECT_EQ(vector.NextDelta(1), 20u);
  EXPECT_EQ(vector.NextDelta(20), 20u);
  EXPECT_EQ(vector.NextDelta(21), 40u);
}

TEST(ValueVector, GrowsInProportionToItsSize) {
  Vector half(3, 0.5, 0);
  EXPECT_EQ(half.Limit(), 4u);
  EXPECT_EQ(half.GetDelta(), 0u);
  EXPECT_EQ(half.NextDelta(1), 2u);
  EXPECT_EQ(half.NextDelta(3), 5u);  // 4, 6, 9
  EXPECT_EQ(half.Resize(5), 1);
  EXPECT_EQ(half.Limit(), 6u);
}

TEST(ValueVector, ProportionalGrowthIsAtLeastOneSlot) {
  Vector tenth(3, 0.1, 0);
  EXPECT_EQ(tenth.Resize(5), 1);
  EXPECT_EQ(tenth.Limit(), 5u);
}

TEST(ValueVector, FactorThatIsNotAboveZeroIsOne) {
  for (const double factor : {0.0, -2.0, std::nan("")}) {
    Vector vector(3, factor, 0);
    EXPECT_EQ(vector.Resize(5), 1);
    EXPECT_EQ(vector.Limit(), 8u) << factor;
  }
}

TEST(ValueVector, GrowthBeyond32BitsFails) {
  Vector infinite(3, std::numeric_limits<double>::infinity(), 0);
  EXPECT_EQ(infinite.Resize(5), 0);
  Vector wrapping(0, 4000000000u, 0);
  EXPECT_EQ(wrapping.Resize(500000001u), 0);  // the rounded step wraps to less than was asked for
  EXPECT_EQ(wrapping.AddAt(1, std::numeric_limits<unsigned>::max()), 0);
  EXPECT_EQ(infinite.Limit(), 4u);
  EXPECT_EQ(wrapping.Limit(), 1u);
}

TEST(ValueVector, AddKeepsOrderAndAcceptsDuplicates) {
  Vector vector(20, 20, 0);
  for (const int v : {5, 1, 3, 3, 9, 1}) EXPECT_EQ(vector.Add(v), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 1, 3, 3, 5, 9}));
}

TEST(ValueVector, AddUniqueAcceptsAPresentValueWithoutChange) {
  Vector vector = VectorOf({10, 20});
  EXPECT_EQ(vector.AddUnique(20), 1);
  EXPECT_EQ(vector.Top(), 2u);
  EXPECT_EQ(vector.AddUnique(15), 1);
  EXPECT_EQ(vector.AddUnique(5), 1);
  EXPECT_EQ(vector.AddUnique(25), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{5, 10, 15, 20, 25}));
}

TEST(ValueVector, AddUniqueInsertsBehindTheRunOfTheLowerNeighbour) {
  Vector vector = VectorOf({10, 10, 10, 20});
  EXPECT_EQ(vector.AddUnique(15), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{10, 10, 10, 15, 20}));
}

TEST(ValueVector, InsertsAValueOfItsOwnWhileGrowing) {
  Vector vector(0, 1, 0);
  vector.Add(7);
  EXPECT_EQ(vector.Add(vector[0]), 1);
  EXPECT_EQ(vector.AddAt(vector[1], 0), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{7, 7, 7}));
}

TEST(ValueVector, AddAtKeepsNoOrder) {
  Vector vector = VectorOf({1, 2, 3});
  EXPECT_EQ(vector.AddAt(9, 1), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 9, 2, 3}));
}

TEST(ValueVector, AddAtBeyondTheTopRaisesItAndLeavesTheSlotsBetween) {
  Vector vector = VectorOf({1, 2, 3});
  vector.DetachAt(1, 2);
  EXPECT_EQ(vector.AddAt(9, 4), 1);
  EXPECT_EQ(vector.Top(), 5u);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2, 3, 0, 9}));
}

TEST(ValueVector, AddAtBeyondTheLimitGrows) {
  Vector vector = VectorOf({1});
  EXPECT_EQ(vector.AddAt(9, 30), 1);
  EXPECT_EQ(vector.Limit(), 41u);
  EXPECT_EQ(vector.Top(), 31u);
  EXPECT_EQ(vector[30].GetValue(), 9);
}

TEST(ValueVector, AddAtGrowsAFullVector) {
  Vector vector(1, 3, 0);
  vector.Add(1);
  vector.Add(2);
  EXPECT_EQ(vector.AddAt(3, 0), 1);
  EXPECT_EQ(vector.Limit(), 5u);
  EXPECT_EQ(ValuesOf(vector), (Values{3, 1, 2}));
}

TEST(ValueVector, DetachAtTellsSlotsFromPositionsBeyondThem) {
  Vector vector = VectorOf({1, 2, 3});
  EXPECT_EQ(vector.DetachAt(3, 1), 1);
  EXPECT_EQ(vector.DetachAt(20, 1), 1);
  EXPECT_EQ(vector.DetachAt(21, 1), 0);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2, 3}));
}

TEST(ValueVector, DetachAtRemovesNoMoreThanTheTail) {
  Vector vector = VectorOf({1, 2, 3, 4});
  EXPECT_EQ(vector.DetachAt(1, 2), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 4}));
  EXPECT_EQ(vector.DetachAt(1, std::numeric_limits<unsigned>::max()), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{1}));
}

TEST(ValueVector, DetachRemovesOneOfSeveralEquals) {
  Vector vector = VectorOf({1, 2, 2, 3});
  EXPECT_EQ(vector.Detach(2), 1);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2, 3}));
  EXPECT_EQ(vector.Detach(7), 0);
}

TEST(ValueVector, FlushKeepsTheStorage) {
  Vector vector = VectorOf({1, 2});
  vector.Resize(30);
  vector.Flush();
  EXPECT_EQ(vector.IsEmpty(), 1);
  EXPECT_EQ(vector.Limit(), 41u);
}

TEST(ValueVector, SearchesOfAnEmptyVectorFindNothing) {
  const Vector vector(20, 20, 0);
  EXPECT_EQ(vector.Find(1), 22u);
  EXPECT_EQ(vector.ClusteredFind(1), 22u);
  EXPECT_EQ(vector.FindLowerBound(1, 0), 22u);
  EXPECT_EQ(vector.FindUpperBound(1, 1), 22u);
}

TEST(ValueVector, SearchesMeetNeighboursOfAbsentValues) {
  const Vector vector = VectorOf({10, 20, 30});
  const unsigned absent = vector.Limit() + 1;
  EXPECT_EQ(vector.Find(20), 1u);
  EXPECT_EQ(vector.Find(25), absent);
  EXPECT_EQ(vector.FindLowerBound(25, 0), 1u);
  EXPECT_EQ(vector.FindUpperBound(25, 0), 2u);
  EXPECT_EQ(vector.FindLowerBound(30, 0), 2u);
  EXPECT_EQ(vector.FindUpperBound(31, 0), absent);
  EXPECT_EQ(vector.FindLowerBound(5, 0), absent);
}

TEST(ValueVector, SearchesAgreeWithALinearScan) {
  for (int n = 0; n <= 17; ++n) {
    Vector vector(20, 20, 0);
    for (int i = 0; i < n; ++i) vector.Add(10 * i);
    for (int v = -5; v <= 10 * n + 5; ++v) {
      unsigned below = vector.Limit() + 1;
      unsigned above = vector.Limit() + 1;
      unsigned equal = vector.Limit() + 1;
      for (unsigned i = 0; i < vector.Top(); ++i) {
        if (vector[i].GetValue() <= v) below = i;
        if (vector[i].GetValue() >= v && above > vector.Top()) above = i;
        if (vector[i].GetValue() == v) equal = i;
      }
      EXPECT_EQ(vector.FindLowerBound(v, 0), below) << n << ' ' << v;
      EXPECT_EQ(vector.FindUpperBound(v, 0), above) << n << ' ' << v;
      EXPECT_EQ(vector.Find(v), equal) << n << ' ' << v;
    }
  }
}

TEST(ValueVector, ClusteredSearchesMeetTheFirstOfEquals) {
  const Vector vector = VectorOf({1, 5, 5, 5, 5, 9, 9});
  EXPECT_EQ(vector.ClusteredFind(5), 1u);
  EXPECT_EQ(vector.ClusteredFind(4), vector.Limit() + 1);
  EXPECT_EQ(vector.FindLowerBound(5, 1), 1u);
  EXPECT_EQ(vector.FindLowerBound(7, 1), 1u);
  EXPECT_EQ(vector.FindUpperBound(5, 1), 1u);
  EXPECT_EQ(vector.FindUpperBound(6, 1), 5u);
  EXPECT_EQ(vector.FindLowerBound(0, 1), vector.Limit() + 1);
}

TEST(ValueVector, CopiesAreIndependent) {
  Vector vector = VectorOf({1, 2});
  Vector copy(vector);
  Vector assigned;
  assigned = vector;
  vector.Add(3);
  copy.Add(4);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2, 3}));
  EXPECT_EQ(ValuesOf(copy), (Values{1, 2, 4}));
  EXPECT_EQ(ValuesOf(assigned), (Values{1, 2}));
  EXPECT_EQ(copy.Limit(), 21u);
  EXPECT_EQ(copy.GetDelta(), 20u);
}

TEST(ValueVector, ElementwiseCopyTakesUnusedSlotsOverToo) {
  for (const int bitwise : {0, 1}) {
    Vector vector(3, 1, bitwise);
    vector.Add(7);
    vector.Flush();
    Vector copy(vector);
    copy.AddAt(9, 1);
    EXPECT_EQ(copy[0].GetValue(), bitwise == 0 ? 7 : 0);
  }
}

TEST(ValueVector, SelfAssignmentChangesNothing) {
  Vector vector = VectorOf({1, 2});
  const Vector& same = vector;
  EXPECT_EQ(&(vector = same), &same);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2}));
}

TEST(ValueVector, WalksVisitTheRange) {
  Vector vector = VectorOf({1, 2, 3, 4});
  const auto double_it = [](SubIntBase& v, void* sum) {
    v = 2 * v.GetValue();
    *static_cast<int*>(sum) += v.GetValue();
  };
  int sum = 0;
  vector.ForEach(double_it, &sum);
  EXPECT_EQ(sum, 20);
  sum = 0;
  vector.ForEach(double_it, &sum, 1, 3);
  EXPECT_EQ(sum, 20);
  vector.ForEach(double_it, &sum, 3, 3);
  vector.ForEach(double_it, &sum, 3, 1);
  EXPECT_EQ(ValuesOf(vector), (Values{2, 8, 12, 8}));
}

int CountAndTestEven(const SubIntBase& v, void* calls) {
  ++*static_cast<int*>(calls);
  return v.GetValue() % 2 == 0;
}

TEST(ValueVector, FirstThatStopsAtTheFirstMatch) {
  const Vector vector = VectorOf({1, 2, 3, 4, 5});
  int calls = 0;
  EXPECT_EQ(vector.FirstThat(CountAndTestEven, &calls), &vector[1]);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(vector.FirstThat(CountAndTestEven, &calls, 2, 5), &vector[3]);
  EXPECT_EQ(vector.FirstThat(CountAndTestEven, &calls, 2, 3), nullptr);
}

TEST(ValueVector, LastThatTestsEveryElementOfTheRange) {
  const Vector vector = VectorOf({1, 2, 3, 4, 5});
  int calls = 0;
  EXPECT_EQ(vector.LastThat(CountAndTestEven, &calls), &vector[3]);
  EXPECT_EQ(calls, 5);
  calls = 0;
  EXPECT_EQ(vector.LastThat(CountAndTestEven, &calls, 0, 3), &vector[1]);
  EXPECT_EQ(calls, 3);
  EXPECT_EQ(vector.LastThat(CountAndTestEven, &calls, 4, 5), nullptr);
}

TEST(ValueVector, ConstructorWithoutMemoryIsNotGood) {
  const kiv::SlotMemoryLimit none(0);
  const Vector by_step(20, 20, 0);
  const Vector by_factor(20, 0.5, 0);
  EXPECT_EQ(by_step.Good(), 0);
  EXPECT_EQ(by_factor.Good(), 0);
  EXPECT_EQ(by_step.Limit(), 0u);
  EXPECT_EQ(by_step.FindLowerBound(1, 0), 1u);
}

TEST(ValueVector, CopyWithoutMemoryIsNotGoodAndEmpty) {
  const Vector vector = VectorOf({1, 2});
  Vector assigned = VectorOf({3});
  const kiv::SlotMemoryLimit none(0);
  const Vector copy(vector);
  EXPECT_EQ(copy.Good(), 0);
  EXPECT_EQ(copy.Top(), 0u);
  assigned = vector;
  EXPECT_EQ(assigned.Good(), 0);
  EXPECT_EQ(assigned.Top(), 0u);
}

TEST(ValueVector, AssignmentFromOneThatIsNotGoodTakesOnlyThat) {
  Vector vector = VectorOf({1, 2});
  {
    const kiv::SlotMemoryLimit none(0);
    vector = Vector(20, 20, 0);
  }
  EXPECT_EQ(vector.Good(), 0);
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2}));
}

TEST(ValueVector, GrowthWithoutMemoryChangesNothing) {
  Vector vector(1, 1, 0);
  vector.Add(1);
  vector.Add(2);
  {
    const kiv::SlotMemoryLimit none(0);
    EXPECT_EQ(vector.Add(0), 0);
    EXPECT_EQ(vector.AddUnique(3), 0);
    EXPECT_EQ(vector.AddAt(3, 0), 0);
    EXPECT_EQ(vector.AddAt(3, 9), 0);
    EXPECT_EQ(vector.AddUnique(2), 1);
  }
  EXPECT_EQ(ValuesOf(vector), (Values{1, 2}));
  EXPECT_EQ(vector.Limit(), 2u);
  EXPECT_EQ(vector.Good(), 1);
  EXPECT_EQ(vector.Add(0), 1);
}

TEST(ValueVector, BecomesGoodWhenItGetsMemoryAfterAll) {
  Vector vector = [] {
    const kiv::SlotMemoryLimit none(0);
    return Vector(20, 20, 0);
  }();
  EXPECT_EQ(vector.Add(5), 1);
  EXPECT_EQ(vector.Good(), 1);
  EXPECT_EQ(vector.Limit(), 20u);
  EXPECT_EQ(ValuesOf(vector), (Values{5}));
}

// A vector that counts the calls that reach its replaced operations.
class CountingVector : public Vector {
 public:
  using Vector::Vector;
  int Add(const SubIntBase& v) override {
    ++adds;
    return Vector::Add(v);
  }
  int AddAt(const SubIntBase& v, unsigned i) override {
    ++adds_at;
    return Vector::AddAt(v, i);
  }
  unsigned Find(const SubIntBase& v) const override {
    ++finds;
    return Vector::Find(v);
  }
  unsigned FindLowerBound(SubIntBase v, int clustered) const override {
    ++lower_bounds;
    return Vector::FindLowerBound(v, clustered);
  }

  int adds = 0;
  int adds_at = 0;
  mutable int finds = 0;
  mutable int lower_bounds = 0;
};

TEST(ValueVector, OperationsCallEachOtherThroughTheirSlots) {
  CountingVector vector(20u, 20u, 0);
  vector.AddUnique(5);
  EXPECT_EQ(vector.adds, 1);
  vector.AddUnique(9);
  EXPECT_EQ(vector.adds_at, 1);
  EXPECT_EQ(vector.lower_bounds, 2);
  vector.ClusteredFind(5);
  vector.Detach(5);
  EXPECT_EQ(vector.finds, 2);
}

}  // namespace
