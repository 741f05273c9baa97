// Several values taken out of a vector and put back, among all other writes, against a plain list.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>
#include <vector>

#include "enum_integers/storage/slot_memory.h"
#include "enum_integers/storage/value_vector.h"
#include "tests/support/seed.h"

namespace {

using Vector = KivSVectorImp_SubIntBase;
using List = std::vector<SubIntBase>;

List ListOf(const Vector& vector) {
  List list;
  for (unsigned i = 0; i < vector.Top(); ++i) list.push_back(vector[i]);
  return list;
}

Vector Range(int first, int count) {
  Vector vector(20, 20, 0);
  for (int v = first; v < first + count; ++v) vector.Add(v);
  return vector;
}

class Writes {
 public:
  explicit Writes(std::uint64_t seed) : random_(seed) {
    for (int count = Below(200); count > 0; --count) Add();
  }

  void Write() {
    switch (Below(9)) {
      case 0:
        return Add();
      case 1:
        return Keep();
      case 2:
      case 3:
        return Remove();
      case 4:
      case 5:
        return Merge();
      case 6:
        return Copy();
      case 7:
        return Insert();
      default:
        return Resize();
    }
  }

  void Check() const {
    ASSERT_EQ(ListOf(vector_), list_);
    ASSERT_GE(vector_.Limit(), vector_.Top());
    for (std::size_t i = 0; i < list_.size(); ++i) ASSERT_EQ(vector_.Find(list_[i]), i);
    ASSERT_GT(vector_.Find(10'000), vector_.Top());
  }

 private:
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  void Add() {
    const SubIntBase v = Below(400);
    const auto place = std::ranges::lower_bound(list_, v);
    if (place == list_.end() || *place != v) list_.insert(place, v);
    ASSERT_EQ(vector_.AddUnique(v), 1);
  }
  void Insert() {
    if (list_.empty()) return;
    const SubIntBase v = list_.back().GetValue() + 1;
    list_.push_back(v);
    ASSERT_EQ(vector_.AddAt(v, vector_.Top()), 1);
  }
  void Keep() {
    const auto count = static_cast<int>(list_.size());
    const int first = Below(count + 1) / (1 + Below(5));
    const int end = count - Below(count - first + 1) / (1 + Below(5));
    const unsigned limit = vector_.Limit();
    if (end < count) Take(list_.begin() + end, list_.end());
    if (first > 0) Take(list_.begin(), list_.begin() + first);
    vector_.Keep(static_cast<unsigned>(first), static_cast<unsigned>(end));
    ASSERT_EQ(vector_.Limit(), limit);
  }
  void Take(List::iterator first, List::iterator end) {
    taken_.push_back({first, end});
    list_.erase(first, end);
  }
  void Remove() {
    if (list_.empty()) return;
    List removed;
    const int part = 1 + Below(20);
    std::ranges::copy_if(list_, std::back_inserter(removed), [&](auto) { return !Below(part); });
    if (removed.empty())
      removed.push_back(list_[static_cast<std::size_t>(Below(static_cast<int>(list_.size())))]);
    std::erase_if(list_, [&](SubIntBase v) { return std::ranges::binary_search(removed, v); });
    vector_.Remove(removed.data(), static_cast<unsigned>(removed.size()));
    taken_.push_back(removed);
  }
  // What was taken last, unless something else took its place.
  void Merge() {
    if (taken_.empty()) return;
    List back = taken_.back();
    taken_.pop_back();
    std::erase_if(back, [&](SubIntBase v) { return std::ranges::binary_search(list_, v); });
    if (back.empty()) return;
    ASSERT_EQ(vector_.Merge(back.data(), static_cast<unsigned>(back.size())), 1);
    list_.insert(list_.end(), back.begin(), back.end());
    std::ranges::sort(list_);
  }
  void Copy() {
    Vector copy(vector_);
    ASSERT_EQ(ListOf(copy), list_);
    ASSERT_EQ(copy.Limit(), vector_.Limit());
    copy.Flush();
    if (Below(2) == 0) {
      copy = vector_;
      ASSERT_EQ(copy.Limit(), vector_.Limit());
      vector_ = Range(0, Below(60));
      vector_ = copy;
    }
  }
  void Resize() {
    const unsigned limit = vector_.Limit();
    const auto wanted = static_cast<unsigned>(Below(300));
    ASSERT_EQ(vector_.Resize(wanted), wanted > limit);
    ASSERT_GE(vector_.Limit(), std::max(limit, wanted));
  }

  std::mt19937_64 random_;
  Vector vector_{20, 20, 0};
  List list_;
  std::vector<List> taken_;
};

TEST(PartsOfAVector, GoAndComeBackAmongAllOtherWrites) {
  const std::uint64_t first = kiv::test::Seed(1);
  for (std::uint64_t seed = first; seed < first + kiv::test::Times(2000); ++seed) {
    Writes writes(seed);
    for (int step = 0; step < 40; ++step) {
      writes.Write();
      writes.Check();
      if (testing::Test::HasFatalFailure()) FAIL() << kiv::test::Replay(seed);
    }
  }
}

TEST(PartsOfAVector, LeaveTheirSlotsToWhatIsAdded) {
  Vector vector = Range(0, 20);
  vector.Keep(15, 20);
  EXPECT_EQ(vector.Limit(), 21u);
  const List all = ListOf(Range(15, 21));
  const kiv::SlotMemoryLimit none(0);
  for (int v = 20; v < 36; ++v) EXPECT_EQ(vector.Add(v), 1);
  EXPECT_EQ(vector.Add(36), 0);
  EXPECT_EQ(ListOf(vector), all);
}

TEST(PartsOfAVector, ComeBackWithoutMemoryWhereTheyWere) {
  Vector vector = Range(0, 21);
  const List all = ListOf(vector);
  const kiv::SlotMemoryLimit none(0);
  vector.Keep(5, 15);
  vector.Remove(&all[7], 2);
  EXPECT_EQ(vector.Merge(&all[7], 2), 1);
  EXPECT_EQ(vector.Merge(&all[15], 6), 1);
  EXPECT_EQ(vector.Merge(&all[0], 5), 1);
  EXPECT_EQ(ListOf(vector), all);
  EXPECT_EQ(vector.Merge(&all[0], 1), 0);
  EXPECT_EQ(ListOf(vector), all);
}

}  // namespace
