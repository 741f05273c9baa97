#include "enum_integers/storage/value_vector_iterator.h"

#include <gtest/gtest.h>

#include <vector>

#include "enum_integers/storage/slot_memory.h"
#include "enum_integers/storage/value_vector.h"

namespace {

using Iterator = KivSVectorIteratorImp_SubIntBase;

class ValueVectorIterator : public testing::Test {
 protected:
  ValueVectorIterator() : vector_(20, 20, 0) {
    for (const int v : {1, 2, 3, 4}) vector_.Add(v);
  }

  static std::vector<int> Rest(Iterator& i) {
    std::vector<int> values;
    while (i) values.push_back(i++.GetValue());
    return values;
  }

  KivSVectorImp_SubIntBase vector_;
};

TEST_F(ValueVectorIterator, WalksOverAllValues) {
  Iterator i(vector_);
  EXPECT_EQ(Rest(i), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(static_cast<int>(i), 0);
}

TEST_F(ValueVectorIterator, WalksOverARange) {
  Iterator i(vector_, 1, 3);
  EXPECT_EQ(i.Current().GetValue(), 2);
  EXPECT_EQ(Rest(i), (std::vector<int>{2, 3}));
}

TEST_F(ValueVectorIterator, PrefixGivesTheNextAndPostfixTheCurrentValue) {
  Iterator i(vector_);
  EXPECT_EQ((++i).GetValue(), 2);
  EXPECT_EQ((i++).GetValue(), 2);
  EXPECT_EQ(i.Current().GetValue(), 3);
  EXPECT_EQ(&i.Current(), &vector_[2]);
}

TEST_F(ValueVectorIterator, RestartsAtItsStartOrAtANewRange) {
  Iterator i(vector_, 1, 4);
  Rest(i);
  i.Restart();
  EXPECT_EQ(Rest(i), (std::vector<int>{2, 3, 4}));
  i.Restart(0, 2);
  EXPECT_EQ(Rest(i), (std::vector<int>{1, 2}));
  i.Restart();
  EXPECT_EQ(Rest(i), (std::vector<int>{1, 2}));
}

TEST_F(ValueVectorIterator, DoesNotMeetValuesAddedLater) {
  Iterator i(vector_);
  vector_.Add(5);
  EXPECT_EQ(Rest(i).size(), 4u);
}

TEST_F(ValueVectorIterator, AssignmentTakesOverVectorAndRange) {
  KivSVectorImp_SubIntBase other(1, 1, 0);
  other.Add(9);
  Iterator i(vector_, 2, 4);
  ++i;
  Iterator copy(other);
  copy = i;
  EXPECT_EQ(copy.Current().GetValue(), 4);
  copy.Restart();
  EXPECT_EQ(Rest(copy), (std::vector<int>{3, 4}));
}

TEST_F(ValueVectorIterator, EndsAtOnceForAVectorThatIsNotGood) {
  const kiv::SlotMemoryLimit none(0);
  vector_ = KivSVectorImp_SubIntBase(1, 1, 0);
  Iterator i(vector_);
  EXPECT_EQ(vector_.Top(), 4u);
  EXPECT_EQ(static_cast<int>(i), 0);
}

}  // namespace
