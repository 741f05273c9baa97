// The edits and the set algebra against their literal versions.

#include <gtest/gtest.h>

#include <limits>

#include "tests/enum_integers/support/kernel_paths.h"
#include "tests/enum_integers/support/random_domains.h"

namespace {

using namespace kiv::test;
namespace reference = kiv::reference;

constexpr int kCases = 2000;

bool IsOdd(std::int32_t v) { return v % 2 != 0; }
int IsOddValue(const SubIntBase& v, void*) { return IsOdd(v.GetValue()); }

// Runs both versions of an operation that narrows a set by an operand, and compares the code and
// both domains.
template <class Operand, class Operation, class Literal>
void CompareNarrowing(const reference::EnumSet& set, Operand operand, Operation operation,
                      Literal literal) {
  reference::EnumSet expected = set;
  const int expected_code = literal(expected, operand);
  ForEachKernelPath([&] {
    KivOmbEnumInteger domain = Made(set);
    const auto x = Made(operand);
    const int code = operation(domain, x);
    ASSERT_EQ(code, expected_code)
        << testing::PrintToString(set) << testing::PrintToString(operand);
    ASSERT_EQ(Read(domain), expected)
        << testing::PrintToString(set) << testing::PrintToString(operand);
    ASSERT_EQ(Read(x), operand);
  });
}

// The same for an inverse, which narrows the operand.
template <class Operand, class Operation, class Literal>
void CompareInverse(const reference::EnumSet& set, Operand operand, Operation operation,
                    Literal literal) {
  Operand expected = operand;
  const int expected_code = literal(set, expected);
  const KivOmbEnumInteger domain = Made(set);
  auto x = Made(operand);
  const int code = operation(domain, x);
  ASSERT_EQ(code, expected_code) << testing::PrintToString(set) << testing::PrintToString(operand);
  ASSERT_EQ(Read(x), expected) << testing::PrintToString(set) << testing::PrintToString(operand);
  ASSERT_EQ(Read(domain), set);
}

constexpr auto kIntersect = [](auto& d, const auto& x) { return d.Intersect(x); };
constexpr auto kIntersectLiterally = [](auto& d, const auto& x) {
  return reference::Intersect(d, x);
};
constexpr auto kIntersectInverse = [](const auto& d, auto& x) { return d.IntersectInverse(x); };
constexpr auto kIntersectInverseLiterally = [](const auto& d, auto& x) {
  return reference::IntersectInverse(d, x);
};
constexpr auto kUnite = [](auto& d, const auto& x) {
  d.Unite(x);
  return 0;
};
constexpr auto kUniteLiterally = [](auto& d, const auto& x) {
  reference::Unite(d, x);
  return 0;
};

TEST(SetAlgebraDifferential, Intersect) {
  Random random;
  for (int i = 0; i < kCases && !HasFatalFailure(); ++i) {
    const auto set = RandomSet(random);
    CompareNarrowing(set, RandomSet(random), kIntersect, kIntersectLiterally);
    CompareNarrowing(set, RandomSingle(random), kIntersect, kIntersectLiterally);
    CompareNarrowing(set, RandomInterval(random), kIntersect, kIntersectLiterally);
  }
}

TEST(SetAlgebraDifferential, IntersectFiltered) {
  Random random;
  for (int i = 0; i < kCases && !HasFatalFailure(); ++i) {
    CompareNarrowing(
        RandomSet(random), RandomSet(random),
        [](auto& d, const auto& x) { return d.Intersect(x, IsOddValue, nullptr); },
        [](auto& d, const auto& x) { return reference::Intersect(d, x, IsOdd); });
    const auto other = RandomSet(random);
    CompareNarrowing(
        RandomSet(random), RandomSet(random),
        [&](auto& d, const auto& x) { return d.Intersect(x, Made(other), IsOddValue, nullptr); },
        [&](auto& d, const auto& x) { return reference::Intersect(d, x, other, IsOdd); });
  }
}

TEST(SetAlgebraDifferential, IntersectInverse) {
  Random random;
  for (int i = 0; i < kCases && !HasFatalFailure(); ++i) {
    const auto set = RandomSet(random);
    CompareInverse(set, RandomSingle(random), kIntersectInverse, kIntersectInverseLiterally);
    CompareInverse(set, RandomInterval(random), kIntersectInverse, kIntersectInverseLiterally);
  }
}

TEST(SetAlgebraDifferential, Unite) {
  Random random;
  for (int i = 0; i < kCases && !HasFatalFailure(); ++i) {
    const auto set = RandomSet(random);
    CompareNarrowing(set, RandomSet(random), kUnite, kUniteLiterally);
    CompareNarrowing(set, RandomSingle(random), kUnite, kUniteLiterally);
  }
}

TEST(SetAlgebraDifferential, ADomainWithItself) {
  Random random;
  for (int i = 0; i < kCases; ++i) {
    const auto set = RandomSet(random);
    KivOmbEnumInteger domain = Made(set);
    ASSERT_EQ(domain.Intersect(domain), 0);
    ASSERT_EQ(Read(domain), set);
    domain.Unite(domain);
    ASSERT_EQ(Read(domain), set);
    reference::EnumSet filtered = set;
    ASSERT_EQ(domain.Intersect(domain, IsOddValue, nullptr),
              reference::Intersect(filtered, set, IsOdd));
    ASSERT_EQ(Read(domain), filtered);
    reference::EnumSet joined = filtered;
    ASSERT_EQ(domain.Intersect(domain, domain, IsOddValue, nullptr),
              reference::Intersect(joined, filtered, filtered, IsOdd));
    ASSERT_EQ(Read(domain), joined);
  }
}

TEST(SetAlgebraDifferential, Minus) {
  Random random;
  for (int i = 0; i < kCases; ++i) {
    auto set = RandomSet(random);
    KivOmbEnumInteger domain = Made(set);
    domain.Minus();
    reference::Minus(set);
    ASSERT_EQ(Read(domain), set);
  }
}

// A value near the values of random sets, or an extreme one.
std::int32_t RandomValue(Random& random) {
  switch (random.Between(0, 9)) {
    case 0:
      return std::numeric_limits<std::int32_t>::min();
    case 1:
      return random.Between(reference::kMin, reference::kMin + 3);
    case 2:
      return random.Between(reference::kMax - 3, reference::kMax);
    case 3:
      return random.Between(-2000, 2000);
    default:
      return random.Between(-15, 15);
  }
}

TEST(EditsDifferential, SequencesOfEdits) {
  Random random;
  for (int i = 0; i < kCases; ++i) {
    auto set = RandomSet(random);
    KivOmbEnumInteger domain = Made(set);
    for (int step = 0; step < 8; ++step) {
      const std::int32_t v = RandomValue(random);
      const auto before = testing::PrintToString(set);
      const int operation = random.Between(0, 4);
      switch (operation) {
        case 0:
          ASSERT_EQ(domain.Insert(v), reference::Insert(set, v)) << before << v;
          break;
        case 1:
          domain.SetExactValue(v);
          reference::SetExactValue(set, v);
          break;
        case 2:
          ASSERT_EQ(domain.RemoveExactValue(v),
                    reference::RemoveExactValue(set, SubIntBase(v).GetValue()))
              << before << v;
          break;
        case 3:
          domain.SetLowerBound(v);
          reference::SetLowerBound(set, v);
          break;
        default:
          domain.SetUpperBound(v);
          reference::SetUpperBound(set, v);
          break;
      }
      ASSERT_EQ(Read(domain), set) << before << ' ' << operation << ' ' << v;
    }
  }
}

}  // namespace
