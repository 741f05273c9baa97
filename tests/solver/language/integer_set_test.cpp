#include "solver/language/integer_set.h"

#include <gtest/gtest.h>

#include <limits>

namespace kiv {
namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();

std::vector<std::int64_t> ValuesOf(const IntegerSet& set) {
  std::vector<std::int64_t> values;
  set.ForEach([&values](std::int64_t value) {
    values.push_back(value);
    return true;
  });
  return values;
}

TEST(IntegerSet, SortsValuesAndDropsDuplicates) {
  const IntegerSet set = IntegerSet::FromValues({5, -1, 5, 3});
  EXPECT_EQ(ValuesOf(set), (std::vector<std::int64_t>{-1, 3, 5}));
  EXPECT_EQ(set.Count(), 3u);
  EXPECT_FALSE(set.IsRange());
  EXPECT_TRUE(set.Contains(3));
  EXPECT_FALSE(set.Contains(4));
}

TEST(IntegerSet, ValuesWithoutGapsAreARange) {
  EXPECT_TRUE(IntegerSet::FromValues({3, 1, 2}).IsRange());
  EXPECT_EQ(ValuesOf(IntegerSet::FromValues({3, 1, 2})), ValuesOf(IntegerSet::FromRange(1, 3)));
}

TEST(IntegerSet, MayBeEmpty) {
  for (const IntegerSet& set :
       {IntegerSet(), IntegerSet::FromRange(2, 1), IntegerSet::FromValues({})}) {
    EXPECT_TRUE(set.IsEmpty());
    EXPECT_EQ(set.Count(), 0u);
    EXPECT_FALSE(set.Contains(1));
    EXPECT_EQ(ValuesOf(set), std::vector<std::int64_t>{});
  }
}

TEST(IntegerSet, ReachesTheEndsOf64Bits) {
  EXPECT_EQ(ValuesOf(IntegerSet::FromRange(kGreatest - 1, kGreatest)),
            (std::vector<std::int64_t>{kGreatest - 1, kGreatest}));
  const IntegerSet all = IntegerSet::FromRange(kLeast, kGreatest);
  EXPECT_EQ(all.Count(), std::numeric_limits<std::uint64_t>::max());
  EXPECT_TRUE(all.Contains(0));
  EXPECT_FALSE(IntegerSet::FromValues({kLeast, kGreatest}).Contains(0));
}

TEST(IntegerSet, StopsWhenAsked) {
  int visits = 0;
  EXPECT_FALSE(IntegerSet::FromRange(1, 9).ForEach([&](std::int64_t value) {
    ++visits;
    return value < 3;
  }));
  EXPECT_EQ(visits, 3);
}

}  // namespace
}  // namespace kiv
