// The cores and single forms of the relations and of the sum against their literal versions.

#include <gtest/gtest.h>

#include "tests/enum_integers/support/random_domains.h"

namespace {

using namespace kiv::test;
namespace reference = kiv::reference;
using reference::EnumSet;
using reference::Single;

struct Relation {
  const char* name;
  int (KivOmbEnumInteger::*forward)(const KivOmbEnumInteger&);
  int (KivOmbEnumInteger::*inverse)(KivOmbEnumInteger&) const;
  int (KivOmbEnumInteger::*single)(KivOmbSingleInteger&) const;
  int (*literal_forward)(EnumSet&, const EnumSet&);
  int (*literal_inverse)(const EnumSet&, EnumSet&);
  int (*literal_single)(const EnumSet&, Single&);
};

const Relation kRelations[] = {
    {"LessOrEqual", &KivOmbEnumInteger::CalcLessOrEqualValue,
     &KivOmbEnumInteger::CalcInverseLessOrEqualValue,
     &KivOmbEnumInteger::CalcInverseLessOrEqualValue, reference::LessOrEqual,
     reference::InverseLessOrEqual, reference::InverseLessOrEqual},
    {"Less", &KivOmbEnumInteger::CalcLessValue, &KivOmbEnumInteger::CalcInverseLessValue,
     &KivOmbEnumInteger::CalcInverseLessValue, reference::Less, reference::InverseLess,
     reference::InverseLess},
    {"NotLess", &KivOmbEnumInteger::CalcNotLessValue, &KivOmbEnumInteger::CalcInverseNotLessValue,
     &KivOmbEnumInteger::CalcInverseNotLessValue, reference::NotLess, reference::InverseNotLess,
     reference::InverseNotLess},
    {"NotLessAndUnequal", &KivOmbEnumInteger::CalcNotLessAndUnequalValue,
     &KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue,
     &KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue, reference::NotLessAndUnequal,
     reference::InverseNotLessAndUnequal, reference::InverseNotLessAndUnequal},
};

EnumSet RandomSetNotNil(Random& random) {
  for (;;) {
    EnumSet set = RandomSet(random);
    if (!set.IsNil()) return set;
  }
}

TEST(RelationsDifferential, OnTwoDomains) {
  Random random;
  for (int i = 0; i < 1000; ++i) {
    for (const Relation& relation : kRelations) {
      const EnumSet a = RandomSetNotNil(random);
      const EnumSet b = RandomSetNotNil(random);
      SCOPED_TRACE(std::string(relation.name) + testing::PrintToString(a) +
                   testing::PrintToString(b));
      EnumSet expected = a;
      const int code = relation.literal_forward(expected, b);
      KivOmbEnumInteger target = Made(a);
      const KivOmbEnumInteger operand = Made(b);
      ASSERT_EQ((target.*relation.forward)(operand), code);
      ASSERT_EQ(Read(target), expected);
      ASSERT_EQ(Read(operand), b);

      expected = b;
      const int inverse_code = relation.literal_inverse(a, expected);
      const KivOmbEnumInteger known = Made(a);
      KivOmbEnumInteger narrowed = Made(b);
      ASSERT_EQ((known.*relation.inverse)(narrowed), inverse_code);
      ASSERT_EQ(Read(narrowed), expected);
      ASSERT_EQ(Read(known), a);
    }
  }
}

TEST(RelationsDifferential, OnADomainAndItself) {
  Random random;
  for (int i = 0; i < 1000; ++i) {
    for (const Relation& relation : kRelations) {
      const EnumSet set = RandomSetNotNil(random);
      SCOPED_TRACE(std::string(relation.name) + testing::PrintToString(set));
      EnumSet expected = set;
      const int code = relation.literal_forward(expected, set);
      KivOmbEnumInteger domain = Made(set);
      ASSERT_EQ((domain.*relation.forward)(domain), code);
      ASSERT_EQ(Read(domain), expected);
      domain = Made(set);
      expected = set;
      const int inverse_code = relation.literal_inverse(set, expected);
      ASSERT_EQ((domain.*relation.inverse)(domain), inverse_code);
      ASSERT_EQ(Read(domain), expected);
    }
  }
}

TEST(RelationsDifferential, OnASingle) {
  Random random;
  for (int i = 0; i < 2000; ++i) {
    const EnumSet set = RandomSet(random);
    if (set.values.empty()) continue;  // the entries do not let these come here
    const Single single = RandomSingle(random);
    if (single.state == Single::kNil) continue;
    for (const Relation& relation : kRelations) {
      SCOPED_TRACE(std::string(relation.name) + testing::PrintToString(set) +
                   testing::PrintToString(single));
      Single expected = single;
      const int code = relation.literal_single(set, expected);
      const KivOmbEnumInteger known = Made(set);
      KivOmbSingleInteger x = Made(single);
      ASSERT_EQ((known.*relation.single)(x), code);
      ASSERT_EQ(Read(x), expected);
      ASSERT_EQ(Read(known), set);
    }
  }
}

// Sums of large sets take the reference long, so most of the sets are small.
EnumSet RandomAddend(Random& random) {
  return random.OneIn(3) ? RandomSet(random) : RandomSmallSet(random);
}

class SumDifferential : public testing::Test {
 protected:
  void SetUp() override { SDClearError(); }
  void TearDown() override { SDClearError(); }

  // Compares the error indicator that the module left with the one expected, and clears it.
  static void CompareError(bool expected) {
    ASSERT_EQ(SDCheckError() != 0, expected);
    SDClearError();
  }
};

TEST_F(SumDifferential, Forward) {
  Random random;
  for (int i = 0; i < 2500; ++i) {
    const EnumSet x = RandomAddend(random);
    const EnumSet y = RandomAddend(random);
    const EnumSet z = RandomSet(random);
    SCOPED_TRACE(testing::PrintToString(z) + testing::PrintToString(x) + testing::PrintToString(y));
    EnumSet expected = z;
    bool error = false;
    const int code = reference::Sum(expected, x, y, error);
    KivOmbEnumInteger target = Made(z);
    const KivOmbEnumInteger first = Made(x);
    const KivOmbEnumInteger second = Made(y);
    ASSERT_EQ(target.CalcSumValue(first, second), code);
    ASSERT_EQ(Read(target), expected);
    ASSERT_EQ(Read(first), x);
    ASSERT_EQ(Read(second), y);
    CompareError(error);
  }
}

TEST_F(SumDifferential, FirstInverse) {
  Random random;
  for (int i = 0; i < 2500; ++i) {
    const EnumSet z = RandomAddend(random);
    const EnumSet y = RandomAddend(random);
    const EnumSet x = RandomSet(random);
    SCOPED_TRACE(testing::PrintToString(z) + testing::PrintToString(x) + testing::PrintToString(y));
    EnumSet expected = x;
    bool error = false;
    const int code = reference::FirstInverseSum(z, expected, y, error);
    const KivOmbEnumInteger known = Made(z);
    const KivOmbEnumInteger operand = Made(y);
    KivOmbEnumInteger target = Made(x);
    ASSERT_EQ(known.CalcFirstInverseSumValue(target, operand), code);
    ASSERT_EQ(Read(target), expected);
    ASSERT_EQ(Read(known), z);
    ASSERT_EQ(Read(operand), y);
    CompareError(error);

    const Single single = RandomSingle(random);
    Single expected_single = single;
    error = false;
    const int single_code = reference::FirstInverseSum(z, expected_single, y, error);
    KivOmbSingleInteger x_single = Made(single);
    ASSERT_EQ(known.CalcFirstInverseSumValue(x_single, operand), single_code);
    ASSERT_EQ(Read(x_single), expected_single);
    CompareError(error);
  }
}

TEST_F(SumDifferential, OfADomainWithItself) {
  Random random;
  for (int i = 0; i < 1200; ++i) {
    const EnumSet set = RandomAddend(random);
    SCOPED_TRACE(testing::PrintToString(set));
    EnumSet expected = set;
    bool error = false;
    const int code = reference::Sum(expected, set, set, error);
    KivOmbEnumInteger domain = Made(set);
    ASSERT_EQ(domain.CalcSumValue(domain, domain), code);
    ASSERT_EQ(Read(domain), expected);
    CompareError(error);

    domain = Made(set);
    expected = set;
    error = false;
    const int inverse_code = reference::FirstInverseSum(set, expected, set, error);
    ASSERT_EQ(domain.CalcFirstInverseSumValue(domain, domain), inverse_code);
    ASSERT_EQ(Read(domain), expected);
    CompareError(error);
  }
}

// Sets whose sums are about as many as the cap, with repetitions as first, inner and last
// candidate.
TEST_F(SumDifferential, WithAboutAsManySumsAsTheCap) {
  Random random;
  for (int i = 0; i < 60; ++i) {
    const auto range = [&](std::int32_t n) {
      EnumSet set;
      for (std::int32_t v = 0; v < n; ++v) set.values.push_back(v);
      return set;
    };
    EnumSet x = range(random.Between(1018, 1024));
    EnumSet y = range(random.Between(1, 4));
    if (random.OneIn(2)) x.values.push_back(random.Between(1024, 1040));
    while (x.values.size() > reference::kCap) x.values.pop_back();
    if (random.OneIn(2)) std::swap(x, y);
    SCOPED_TRACE(testing::PrintToString(x) + testing::PrintToString(y));
    EnumSet expected{{}, 1};
    bool error = false;
    const int code = reference::Sum(expected, x, y, error);
    KivOmbEnumInteger target;
    ASSERT_EQ(target.CalcSumValue(Made(x), Made(y)), code);
    ASSERT_EQ(Read(target), expected);

    expected = {{}, 1};
    const int inverse_code = reference::FirstInverseSum(x, expected, y, error);
    KivOmbEnumInteger difference;
    ASSERT_EQ(Made(x).CalcFirstInverseSumValue(difference, Made(y)), inverse_code);
    ASSERT_EQ(Read(difference), expected);
  }
}

}  // namespace
