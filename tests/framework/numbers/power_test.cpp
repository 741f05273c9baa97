// The power of single integers, and its inverses on intervals, against plain walks and at the ends
// of the range.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <optional>
#include <random>

#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_integer.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

using Single = KivOmbSingleInteger;
using Interval = KivOmbIntervalInteger;

Interval Between(std::int32_t lower, std::int32_t upper) {
  return Interval(SubdefInt(lower, upper));
}

std::string Text(const KivOmbiObject& object) {
  Kivostrstream out;
  object.PrintOn(out);
  return out.Str();
}

Single NilSingle() {
  Single nil;
  nil.Nil();
  return nil;
}

Interval NilInterval() {
  Interval nil;
  nil.Nil();
  return nil;
}

// What an Any result becomes: a number, "Any" where the power is not known, "Nil" where there is
// none.
std::string PowerText(std::int32_t base, std::int32_t exponent) {
  Single power;
  power.CalcPowerValue(Single(base), Single(exponent));
  return Text(power);
}

// Multiplies one by one. Any: not known; Nil: none.
Single WalkedPower(std::int32_t base, std::int32_t exponent) {
  if (exponent == 0) return Single(1);
  if (exponent == kMin || exponent == kMax) {
    if (base < 0) return Single();
    if (base == 1) return Single(1);
    if (exponent == kMin) return NilSingle();
    return Single(base == 0 ? 0 : kMax);
  }
  if (exponent < 0) {
    if (base == 1) return Single(1);
    if (base == -1) return Single(exponent % 2 == 0 ? 1 : -1);
    return NilSingle();
  }
  std::int64_t power = 1;
  // More factors than these change nothing but the sign.
  const std::int32_t factors = exponent > 64 ? 64 + exponent % 2 : exponent;
  for (std::int32_t i = 0; i < factors; ++i) {
    power = std::clamp<std::int64_t>(power * base, kMin, kMax);
  }
  return Single(static_cast<std::int32_t>(power));
}

bool MayBe(const Single& power, const Interval& result) {
  return power.CheckAny() || (!power.CheckNil() && result.GetLowerBound() <= power.GetValue() &&
                              power.GetValue() <= result.GetUpperBound());
}

// The hull of those of `range` that `accept` takes.
template <class Accept>
Interval WalkedHull(const Interval& range, Accept accept) {
  Interval hull = NilInterval();
  for (std::int64_t v = range.GetLowerBound(); v <= range.GetUpperBound(); ++v) {
    if (accept(static_cast<std::int32_t>(v))) hull.InsertExactValue(static_cast<std::int32_t>(v));
  }
  return hull;
}

Interval WalkedBases(const Interval& result, const Interval& bases, std::int32_t exponent) {
  return WalkedHull(bases,
                    [&](std::int32_t base) { return MayBe(WalkedPower(base, exponent), result); });
}

Interval WalkedExponents(const Interval& result, const Interval& bases, const Interval& exponents) {
  return WalkedHull(exponents, [&](std::int32_t exponent) {
    return !WalkedBases(result, bases, exponent).CheckNil();
  });
}

void CompareBases(const Interval& result, const Interval& bases, std::int32_t exponent) {
  SCOPED_TRACE(Text(bases) + " ^ " + std::to_string(exponent) + " = " + Text(result));
  const Interval expected = WalkedBases(result, bases, exponent);
  Interval narrowed = bases;
  const int code = result.CalcFirstInversePowerValue(narrowed, Single(exponent));
  ASSERT_EQ(Text(narrowed), Text(expected));
  ASSERT_EQ(code, Text(expected) != Text(bases));
}

void CompareExponents(const Interval& result, const Interval& bases, const Interval& exponents) {
  SCOPED_TRACE(Text(bases) + " ^ " + Text(exponents) + " = " + Text(result));
  const Interval expected = WalkedExponents(result, bases, exponents);
  Interval narrowed = exponents;
  const int code = result.CalcSecondInversePowerValue(bases, narrowed);
  ASSERT_EQ(Text(narrowed), Text(expected));
  ASSERT_EQ(code, Text(expected) != Text(exponents));
}

TEST(Power, IsThatOfRepeatedMultiplication) {
  for (std::int32_t base = -70; base <= 70; ++base) {
    for (std::int32_t exponent = -5; exponent <= 40; ++exponent) {
      EXPECT_EQ(PowerText(base, exponent), Text(WalkedPower(base, exponent)))
          << base << " ^ " << exponent;
    }
  }
}

TEST(Power, AtTheEndsOfTheRange) {
  for (const std::int32_t base : {kMin, kMin + 1, -46341, -46340, -1290, -2, -1, 0, 1, 2, 1290,
                                  1291, 46340, 46341, kMax - 1, kMax}) {
    for (const std::int32_t exponent :
         {kMin, kMin + 1, -2, -1, 0, 1, 2, 3, 30, 31, 32, kMax - 1, kMax}) {
      EXPECT_EQ(PowerText(base, exponent), Text(WalkedPower(base, exponent)))
          << base << " ^ " << exponent;
    }
  }
}

TEST(Power, IsClampedWithTheSignOfTheParity) {
  EXPECT_EQ(PowerText(2, 30), "1073741824");
  EXPECT_EQ(PowerText(2, 31), "Max");
  EXPECT_EQ(PowerText(-2, 31), "Min");
  EXPECT_EQ(PowerText(-2, 32), "Max");
  EXPECT_EQ(PowerText(46340, 2), "2147395600");
  EXPECT_EQ(PowerText(46341, 2), "Max");
  EXPECT_EQ(PowerText(-1291, 3), "Min");
  EXPECT_EQ(PowerText(kMin, 1), "Min");
  EXPECT_EQ(PowerText(kMin, 2), "Max");
}

TEST(Power, ForAnExponentOfZeroIsOne) {
  for (const std::int32_t base : {kMin, -1, 0, 1, kMax}) EXPECT_EQ(PowerText(base, 0), "1");
}

TEST(Power, ForANegativeExponentExistsForTheUnitsAlone) {
  EXPECT_EQ(PowerText(1, -3), "1");
  EXPECT_EQ(PowerText(-1, -3), "-1");
  EXPECT_EQ(PowerText(-1, -4), "1");
  EXPECT_EQ(PowerText(0, -1), "Nil");
  EXPECT_EQ(PowerText(2, -1), "Nil");
}

TEST(Power, ForAnInfiniteExponent) {
  EXPECT_EQ(PowerText(0, kMax), "0");
  EXPECT_EQ(PowerText(1, kMax), "1");
  EXPECT_EQ(PowerText(1, kMin), "1");
  EXPECT_EQ(PowerText(2, kMax), "Max");
  EXPECT_EQ(PowerText(0, kMin), "Nil");
  EXPECT_EQ(PowerText(2, kMin), "Nil");
  EXPECT_EQ(PowerText(-1, kMax), "Any");
  EXPECT_EQ(PowerText(-5, kMin), "Any");
}

TEST(Power, IntersectsItsResult) {
  Single result(8);
  EXPECT_EQ(result.CalcPowerValue(Single(2), Single(3)), 0);
  EXPECT_EQ(Text(result), "8");
  EXPECT_EQ(result.CalcPowerValue(Single(-2), Single(kMax)), 0);
  EXPECT_EQ(result.CalcPowerValue(Single(), Single(3)), 0);
  EXPECT_EQ(result.CalcPowerValue(Single(2), Single()), 0);
  EXPECT_EQ(Text(result), "8");
  EXPECT_EQ(result.CalcPowerValue(Single(3), Single(3)), 1);
  EXPECT_EQ(Text(result), "Nil");
  EXPECT_EQ(result.CalcPowerValue(Single(3), Single(3)), 0);
  Single any;
  EXPECT_EQ(any.CalcPowerValue(Single(), NilSingle()), 1);
  EXPECT_EQ(Text(any), "Nil");
}

TEST(Power, TakesIntervalsOfOneValue) {
  Single result;
  EXPECT_EQ(result.CalcPowerValue(Between(2, 3), Between(2, 2)), 0);
  EXPECT_EQ(result.CalcPowerValue(Between(3, 3), Between(2, 2)), 1);
  EXPECT_EQ(Text(result), "9");
}

TEST(PowerBases, AreTheHullOfTheRoots) {
  Interval bases = Between(-5, 5);
  EXPECT_EQ(Between(9, 9).CalcFirstInversePowerValue(bases, Single(2)), 1);
  EXPECT_EQ(Text(bases), "[-3, 3]");
  bases = Interval();
  EXPECT_EQ(Between(-8, -8).CalcFirstInversePowerValue(bases, Single(3)), 1);
  EXPECT_EQ(Text(bases), "-2");
  bases = Interval();
  EXPECT_EQ(Between(10, 15).CalcFirstInversePowerValue(bases, Single(2)), 1);
  EXPECT_EQ(Text(bases), "Nil");
}

TEST(PowerBases, OfAnInfiniteResultReachTheEnds) {
  Interval bases = Between(0, kMax);
  EXPECT_EQ(Between(kMax, kMax).CalcFirstInversePowerValue(bases, Single(2)), 1);
  EXPECT_EQ(Text(bases), "[46341, Max]");
  bases = Interval();
  EXPECT_EQ(Between(kMin, kMin).CalcFirstInversePowerValue(bases, Single(3)), 1);
  EXPECT_EQ(Text(bases), "[Min, -1291]");
  bases = Interval();
  EXPECT_EQ(Between(kMax - 1, kMax - 1).CalcFirstInversePowerValue(bases, Single(1)), 1);
  EXPECT_EQ(Text(bases), "2147483646");
  bases = Interval();
  EXPECT_EQ(Between(2147395600, kMax - 1).CalcFirstInversePowerValue(bases, Single(2)), 1);
  EXPECT_EQ(Text(bases), "[-46340, 46340]");
}

TEST(PowerBases, ForAnInfiniteExponentKeepTheNegativeOnes) {
  Interval bases;
  EXPECT_EQ(Between(5, 5).CalcFirstInversePowerValue(bases, Single(kMax)), 1);
  EXPECT_EQ(Text(bases), "[Min, -1]");
  bases = Interval();
  EXPECT_EQ(Between(kMax, kMax).CalcFirstInversePowerValue(bases, Single(kMax)), 0);
  EXPECT_EQ(Text(bases), "Any");
  bases = Between(-3, 9);
  EXPECT_EQ(Between(0, 1).CalcFirstInversePowerValue(bases, Single(kMin)), 1);
  EXPECT_EQ(Text(bases), "[-3, 1]");
}

TEST(PowerBases, StateOfTheOthersDecides) {
  Interval bases = Between(1, 9);
  EXPECT_EQ(Interval().CalcFirstInversePowerValue(bases, Single(2)), 0);
  EXPECT_EQ(Between(4, 4).CalcFirstInversePowerValue(bases, Single()), 0);
  EXPECT_EQ(Text(bases), "[1, 9]");
  EXPECT_EQ(Between(4, 4).CalcFirstInversePowerValue(bases, NilSingle()), 1);
  EXPECT_EQ(Text(bases), "Nil");
  EXPECT_EQ(Between(4, 4).CalcFirstInversePowerValue(bases, Single(2)), 0);
  bases = Interval();
  EXPECT_EQ(NilInterval().CalcFirstInversePowerValue(bases, Single(2)), 1);
  EXPECT_EQ(Text(bases), "Nil");
}

TEST(PowerBases, OfSeveralExponentsAreTheHullOfAllRoots) {
  Interval bases = Between(1, 9);
  EXPECT_EQ(Between(4, 4).CalcFirstInversePowerValue(bases, Between(1, 2)), 1);
  EXPECT_EQ(Text(bases), "[2, 4]");
  bases = Interval();
  EXPECT_EQ(Between(-27, -8).CalcFirstInversePowerValue(bases, Between(2, kMax - 1)), 1);
  EXPECT_EQ(Text(bases), "[-3, -2]");
  bases = Between(-9, -3);
  EXPECT_EQ(Between(-2, 2).CalcFirstInversePowerValue(bases, Between(-8, -1)), 1);
  EXPECT_EQ(Text(bases), "Nil");
  // An infinite exponent has unknown powers of negative bases.
  bases = Between(-9, 9);
  EXPECT_EQ(Between(3, 4).CalcFirstInversePowerValue(bases, Between(2, kMax)), 1);
  EXPECT_EQ(Text(bases), "[-9, 2]");
}

TEST(PowerBases, OfASingleAreTested) {
  Single base(-3);
  EXPECT_EQ(Between(9, 9).CalcFirstInversePowerValue(base, Single(2)), 0);
  EXPECT_EQ(Between(9, 9).CalcFirstInversePowerValue(base, Single(3)), 1);
  EXPECT_EQ(Text(base), "Nil");
}

TEST(PowerExponents, AreTheHullOfTheLogarithms) {
  Interval exponents;
  EXPECT_EQ(Between(8, 8).CalcSecondInversePowerValue(Between(2, 2), exponents), 1);
  EXPECT_EQ(Text(exponents), "3");
  exponents = Interval();
  EXPECT_EQ(Between(1, 1).CalcSecondInversePowerValue(Between(5, 5), exponents), 1);
  EXPECT_EQ(Text(exponents), "0");
  exponents = Interval();
  EXPECT_EQ(Between(64, 64).CalcSecondInversePowerValue(Between(2, 9), exponents), 1);
  EXPECT_EQ(Text(exponents), "[2, 6]");
  exponents = Interval();
  EXPECT_EQ(Between(kMax, kMax).CalcSecondInversePowerValue(Between(2, 2), exponents), 1);
  EXPECT_EQ(Text(exponents), "[31, Max]");
  exponents = Interval();
  EXPECT_EQ(Between(0, 0).CalcSecondInversePowerValue(Between(0, 0), exponents), 1);
  EXPECT_EQ(Text(exponents), "[1, Max]");
  exponents = Interval();
  EXPECT_EQ(Between(3, 3).CalcSecondInversePowerValue(Between(2, 2), exponents), 1);
  EXPECT_EQ(Text(exponents), "Nil");
}

TEST(PowerExponents, OfNegativeBasesFollowTheParity) {
  Interval exponents = Between(-9, 9);
  EXPECT_EQ(Between(1, 1).CalcSecondInversePowerValue(Between(-1, -1), exponents), 1);
  EXPECT_EQ(Text(exponents), "[-8, 8]");
  exponents = Between(40, 44);
  EXPECT_EQ(Between(kMin, kMin).CalcSecondInversePowerValue(Between(-2, -2), exponents), 1);
  EXPECT_EQ(Text(exponents), "[41, 43]");
  exponents = Interval();
  EXPECT_EQ(Between(4, 4).CalcSecondInversePowerValue(Between(-2, -2), exponents), 0);
  EXPECT_EQ(Text(exponents), "Any");
}

TEST(PowerExponents, StateOfTheOthersDecides) {
  Interval exponents = Between(1, 9);
  EXPECT_EQ(Interval().CalcSecondInversePowerValue(Between(2, 2), exponents), 0);
  EXPECT_EQ(Text(exponents), "[1, 9]");
  EXPECT_EQ(Between(4, 4).CalcSecondInversePowerValue(NilInterval(), exponents), 1);
  EXPECT_EQ(Text(exponents), "Nil");
  EXPECT_EQ(Between(4, 4).CalcSecondInversePowerValue(Between(2, 2), exponents), 0);
  exponents = Interval();
  EXPECT_EQ(NilInterval().CalcSecondInversePowerValue(Between(2, 2), exponents), 1);
  EXPECT_EQ(Text(exponents), "Nil");
}

class PowerProperty : public testing::Test {
 protected:
  std::int32_t Number(std::int64_t low, std::int64_t high) {
    return static_cast<std::int32_t>(
        std::uniform_int_distribution<std::int64_t>(low, high)(random_));
  }

  // An interval of at most `width` + 1 integers that begins in [low, high].
  Interval Range(std::int64_t low, std::int64_t high, std::int64_t width) {
    const std::int64_t lower = Number(low, high);
    const std::int64_t upper = std::min<std::int64_t>(lower + Number(0, width), kMax);
    return Between(static_cast<std::int32_t>(lower), static_cast<std::int32_t>(upper));
  }

  // Somewhere about zero, about an end of the range, or about the roots of its ends.
  Interval NotableRange(std::int64_t width) {
    switch (Number(0, 6)) {
      case 0:
        return Range(kMin, kMin + 4, width);
      case 1:
        return Range(kMax - 4 - width, kMax, width);
      case 2:
        return Range(46330, 46350, width);
      case 3:
        return Range(-46350, -46330, width);
      case 4:
        return Range(-1300, 1300, width);
      default:
        return Range(-9, 9, width);
    }
  }

  // A result near a power of one of `bases`, or anywhere.
  Interval ResultNear(const Interval& bases, std::int32_t exponent) {
    const std::int32_t base = Number(bases.GetLowerBound(), bases.GetUpperBound());
    const Single power = WalkedPower(base, exponent);
    const std::int64_t middle = power.GetValue();
    const std::int64_t lower = std::max<std::int64_t>(middle - Number(0, 2), kMin);
    const std::int64_t upper =
        std::min<std::int64_t>(lower + (Number(0, 3) == 0 ? Number(0, kMax) : Number(0, 4)), kMax);
    return Between(static_cast<std::int32_t>(lower), static_cast<std::int32_t>(upper));
  }

  std::int32_t Exponent() {
    static constexpr std::int32_t kNotable[] = {kMin, kMin + 1, kMin + 2, 30,       31,
                                                32,   33,       kMax - 2, kMax - 1, kMax};
    return Number(0, 2) == 0 ? kNotable[Number(0, std::ssize(kNotable) - 1)] : Number(-3, 12);
  }

  const std::uint64_t seed_ = Seed(std::random_device()());
  testing::ScopedTrace trace_{__FILE__, __LINE__, Replay(seed_)};
  std::mt19937_64 random_{seed_};
};

TEST_F(PowerProperty, BasesAreThoseOfAWalk) {
  for (int i = 0; i < 20000; ++i) {
    const std::int32_t exponent = Exponent();
    const Interval bases = NotableRange(Number(0, 3) == 0 ? 200 : 12);
    const Interval result = ResultNear(bases, exponent);
    if (result.CheckAny()) continue;
    CompareBases(result, bases, exponent);
    if (HasFatalFailure()) return;
  }
}

TEST_F(PowerProperty, ExponentsAreThoseOfAWalk) {
  for (int i = 0; i < 5000; ++i) {
    const std::int32_t first = Exponent();
    const std::int64_t last = std::min<std::int64_t>(std::int64_t{first} + Number(0, 40), kMax);
    const Interval exponents = Between(first, static_cast<std::int32_t>(last));
    const Interval bases = NotableRange(6);
    const Interval result = ResultNear(bases, Number(first, last));
    if (result.CheckAny()) continue;
    CompareExponents(result, bases, exponents);
    if (HasFatalFailure()) return;
  }
}

// What a walk cannot reach: every integer is a base or an exponent.
TEST_F(PowerProperty, EndsOfWideHullsAreSolutionsAndTheirOuterNeighboursAreNot) {
  const auto clamped = [](std::int64_t v) { return SubIntBase::Clamp(v).GetValue(); };
  for (int i = 0; i < 5000; ++i) {
    const std::int32_t exponent = Number(1, 40);
    const std::int32_t lower = Number(0, 1) == 0 ? Number(kMin, kMax) : Number(-999, 999);
    const Interval result = Between(lower, clamped(std::int64_t{lower} + Number(0, 100000)));
    if (result.CheckAny()) continue;
    Interval bases;
    result.CalcFirstInversePowerValue(bases, Single(exponent));
    if (bases.CheckNil()) continue;
    SCOPED_TRACE(Text(bases) + " ^ " + std::to_string(exponent) + " = " + Text(result));
    for (const std::int32_t end : {bases.GetLowerBound(), bases.GetUpperBound()}) {
      ASSERT_TRUE(MayBe(WalkedPower(end, exponent), result)) << end;
    }
    for (std::int64_t step = 1; step <= 3; ++step) {
      for (const std::int64_t outer :
           {bases.GetLowerBound() - step, bases.GetUpperBound() + step}) {
        if (outer < kMin || outer > kMax) continue;
        ASSERT_FALSE(MayBe(WalkedPower(clamped(outer), exponent), result)) << outer;
      }
    }
  }
}

}  // namespace
}  // namespace kiv::test
