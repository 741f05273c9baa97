// The hulls that settle in one call, against the directions of their operation one by one.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "framework/intervals/hull.h"
#include "tests/framework/intervals/printed_hull.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

constexpr std::int64_t kUnbounded = Hull::kUnbounded;
constexpr std::int64_t kGreatest = 2147483646;

struct Settled {
  Hull x;
  Hull y;
  Hull z;

  bool IsEmpty() const { return x.IsEmpty() || y.IsEmpty() || z.IsEmpty(); }
  // All that have no solution are alike.
  friend bool operator==(const Settled& a, const Settled& b) {
    if (a.IsEmpty() || b.IsEmpty()) return a.IsEmpty() == b.IsEmpty();
    return a.x == b.x && a.y == b.y && a.z == b.z;
  }
  friend void PrintTo(const Settled& hulls, std::ostream* out) {
    *out << testing::PrintToString(hulls.x) << " with " << testing::PrintToString(hulls.y)
         << " gives " << testing::PrintToString(hulls.z);
  }
};

Settled ProductsOf(Settled hulls) {
  SettleProduct(hulls.x, hulls.y, hulls.z);
  return hulls;
}

Settled PlainProductsOf(Settled hulls) {
  for (Settled before = hulls;; before = hulls) {
    hulls.z = Intersection(hulls.z, Product(hulls.x, hulls.y));
    hulls.x = Factor(hulls.x, hulls.y, hulls.z);
    hulls.y = Factor(hulls.y, hulls.x, hulls.z);
    if (hulls == before) return hulls;
  }
}

Settled PowersOf(Settled hulls) {
  SettlePower(hulls.x, hulls.y.lower, hulls.z);
  return hulls;
}

Settled PlainPowersOf(Settled hulls) {
  for (Settled before = hulls;; before = hulls) {
    hulls.z = Intersection(hulls.z, Power(hulls.x, hulls.y));
    hulls.x = Base(hulls.x, hulls.y, hulls.z);
    if (hulls == before) return hulls;
  }
}

Settled RemaindersOf(Settled hulls) {
  SettleRemainder(hulls.x, hulls.y.lower, hulls.z);
  return hulls;
}

Settled PlainRemaindersOf(Settled hulls) {
  for (Settled before = hulls;; before = hulls) {
    hulls.z = Intersection(hulls.z, Remainder(hulls.x, hulls.y));
    hulls.x = Dividend(hulls.x, hulls.y, hulls.z);
    if (hulls == before) return hulls;
  }
}

std::vector<Hull> HullsBetween(const std::vector<std::int64_t>& ends) {
  std::vector<Hull> hulls;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    for (std::size_t j = i; j < ends.size(); ++j) hulls.push_back({ends[i], ends[j]});
  }
  return hulls;
}

const std::vector<Hull> kResults = HullsBetween(
    {-kUnbounded, -37, -25, -12, -8, -1, 0, 1, 3, 4, 7, 9, 11, 12, 24, 35, 36, 37, kUnbounded});

TEST(SettledHulls, AreThoseOfFactorsOneByOne) {
  const std::vector<Hull> operands = HullsBetween({-6, -5, -2, -1, 0, 1, 2, 3, 5, 6});
  for (const Hull& z : kResults) {
    for (const Hull& y : operands) {
      for (const Hull& x : operands) {
        const Settled hulls{x, y, z};
        const Settled settled = ProductsOf(hulls);
        ASSERT_EQ(settled, PlainProductsOf(hulls)) << testing::PrintToString(hulls);
        for (std::int64_t a = x.lower; a <= x.upper; ++a) {
          for (std::int64_t b = y.lower; b <= y.upper; ++b) {
            if (!z.Contains(a * b)) continue;
            ASSERT_TRUE(settled.x.Contains(a) && settled.y.Contains(b) && settled.z.Contains(a * b))
                << testing::PrintToString(hulls) << " loses " << a << " * " << b;
          }
        }
      }
    }
  }
}

TEST(SettledHulls, AreThoseOfBasesOneByOne) {
  for (const Hull& z : kResults) {
    for (const Hull& x : HullsBetween({-6, -3, -1, 0, 1, 2, 3, 6, kGreatest, kUnbounded - 1})) {
      for (std::int64_t exponent = -3; exponent <= 5; ++exponent) {
        const Settled hulls{x, {exponent, exponent}, z};
        ASSERT_EQ(PowersOf(hulls), PlainPowersOf(hulls)) << testing::PrintToString(hulls);
      }
    }
  }
}

TEST(SettledHulls, AreThoseOfDividendsOneByOne) {
  for (const Hull& z : kResults) {
    for (const Hull& x : HullsBetween({-kUnbounded, -20, -7, -1, 0, 1, 2, 3, 4, 7, 8, 9, 12, 13, 20,
                                       31, kGreatest, kUnbounded})) {
      for (const std::int64_t modulus : {-9, -2, -1, 1, 2, 3, 4, 7, 8, 13, 30, 40}) {
        const Settled hulls{x, {modulus, modulus}, z};
        ASSERT_EQ(RemaindersOf(hulls), PlainRemaindersOf(hulls)) << testing::PrintToString(hulls);
      }
    }
  }
}

// Hulls of all sizes up to the ends of the integers, most of them positive.
class RandomHulls {
 public:
  explicit RandomHulls(std::uint64_t seed) : random_(seed) {}

  std::int64_t Uniform(std::int64_t lower, std::int64_t upper) {
    return std::uniform_int_distribution<std::int64_t>(lower, upper)(random_);
  }
  std::int64_t Number(int bits) {
    const std::int64_t most = std::min(kGreatest, std::int64_t{1} << Uniform(1, bits));
    return Uniform(0, 3) == 0 ? most : Uniform(0, most);
  }
  Hull Around(std::int64_t value) {
    const std::int64_t lower = value - (Uniform(0, 2) == 0 ? 0 : Number(31));
    const std::int64_t upper = value + (Uniform(0, 2) == 0 ? 0 : Number(31));
    return {Uniform(0, 9) == 0   ? -kUnbounded
            : Uniform(0, 1) == 0 ? std::clamp<std::int64_t>(lower, 0, value)
                                 : lower,
            Uniform(0, 9) == 0 ? kUnbounded : upper};
  }

 private:
  std::mt19937_64 random_;
};

TEST(SettledHulls, StayThoseOfTheirOperationsUpToTheEndsOfTheIntegers) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(20000); ++seed) {
    RandomHulls random(seed);
    SCOPED_TRACE(Replay(seed));
    const std::int64_t a = random.Number(20);
    const std::int64_t b = random.Number(11);
    const Settled factors{random.Around(a), random.Around(b), random.Around(a * b)};
    ASSERT_EQ(ProductsOf(factors), PlainProductsOf(factors)) << testing::PrintToString(factors);

    const std::int64_t modulus = random.Number(20) + 1;
    const Settled remainders{random.Around(a), {modulus, modulus}, random.Around(a % modulus)};
    ASSERT_EQ(RemaindersOf(remainders), PlainRemaindersOf(remainders))
        << testing::PrintToString(remainders);

    const std::int64_t base = random.Number(10);
    const std::int64_t exponent = random.Uniform(1, 4);
    std::int64_t result = 1;
    for (std::int64_t i = 0; i < exponent; ++i) result *= base;
    const Settled powers{random.Around(base), {exponent, exponent}, random.Around(result)};
    ASSERT_EQ(PowersOf(powers), PlainPowersOf(powers)) << testing::PrintToString(powers);
  }
}

// The greatest squares are those of 2^30 and less; they and their neighbours are the hard cases of
// a root that is found by floating point.
TEST(SettledHulls, FindTheSquareRootsOfAllSizes) {
  const std::uint64_t first = Seed(1);
  std::mt19937_64 random(first);
  SCOPED_TRACE(Replay(first));
  for (std::uint64_t i = 0; i < Times(100000); ++i) {
    const std::int64_t most = (std::int64_t{4} << i % 29) - 1;
    const std::int64_t root =
        i % 3 == 0 ? most : std::uniform_int_distribution<std::int64_t>(2, most)(random);
    const std::int64_t square = root * root;
    const auto roots_between = [](std::int64_t lower, std::int64_t upper) {
      Hull x{0, kUnbounded};
      Hull z{lower, upper};
      SettlePower(x, 2, z);
      return x;
    };
    const Hull only{root, root};
    ASSERT_EQ(roots_between(square, square), only) << root;
    ASSERT_EQ(roots_between(square - 1, square + 1), only) << root;
    ASSERT_EQ(roots_between(square - 2 * root + 2, square + 2 * root), only) << root;
    ASSERT_TRUE(roots_between(square + 1, square + 2 * root).IsEmpty()) << root;
  }
}

}  // namespace
}  // namespace kiv::test
