// The operators of single and interval integers by example: the ends of the range, unknown and
// empty operands, operands of other types.

#include <gtest/gtest.h>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

using Single = KivOmbSingleInteger;

KivOmbIntervalInteger NilInterval() {
  KivOmbIntervalInteger nil;
  nil.Nil();
  return nil;
}

// What an unknown interval becomes by `narrow`.
template <class Narrow>
std::string Unknown(Narrow&& narrow) {
  KivOmbIntervalInteger target;
  narrow(target);
  return Text(target);
}

std::string Product(const KivOmbiInteger& x, const KivOmbiInteger& y) {
  return Unknown([&](auto& z) { z.CalcProdValue(x, y); });
}
std::string Quotient(const KivOmbiInteger& z, const KivOmbiInteger& y) {
  return Unknown([&](auto& x) { z.CalcFirstInverseProdValue(x, y); });
}
std::string Remainder(const KivOmbiInteger& x, const KivOmbiInteger& y) {
  return Unknown([&](auto& z) { z.CalcModValue(x, y); });
}
std::string Power(const KivOmbiInteger& x, const KivOmbiInteger& y) {
  return Unknown([&](auto& z) { z.CalcPowerValue(x, y); });
}

TEST(NumberProduct, SaturatesAtTheEnds) {
  EXPECT_EQ(Product(Interval(2, 3), Interval(-4, 5)), "[-12, 15]");
  EXPECT_EQ(Product(Interval(65536, 65537), Interval(32767, 32768)), "[2147418112, Max]");
  EXPECT_EQ(Product(Interval(65536, 65536), Interval(-65536, 65536)), "Any");
  EXPECT_EQ(Product(Single(65536), Single(65536)), "Max");
  EXPECT_EQ(Product(Single(kMax), Single(-2)), "Min");
  EXPECT_EQ(Product(Interval(2, kMax), Interval(3, 4)), "[6, Max]");
  EXPECT_EQ(Product(KivOmbIntervalInteger(), Single(0)), "0");
  EXPECT_EQ(Product(KivOmbIntervalInteger(), Single(1)), "Any");
}

TEST(NumberProduct, HasTheIntegersBetweenItsQuotientsAsFactors) {
  EXPECT_EQ(Quotient(Single(7), Single(2)), "Nil");
  EXPECT_EQ(Quotient(Single(8), Single(2)), "4");
  EXPECT_EQ(Quotient(Interval(7, 9), Single(-2)), "-4");
  EXPECT_EQ(Quotient(Interval(7, 9), Interval(-2, 2)), "[-9, 9]");
  EXPECT_EQ(Quotient(Single(0), Interval(0, 3)), "Any");
  EXPECT_EQ(Quotient(Single(0), Interval(1, 3)), "0");
  EXPECT_EQ(Quotient(Interval(1, 3), Single(0)), "Nil");
  EXPECT_EQ(Quotient(KivOmbIntervalInteger(), Single(2)), "Any");
}

// Max as a product may stand for what saturated.
TEST(NumberProduct, KeepsTheFactorsOfASaturatedOne) {
  EXPECT_EQ(Quotient(Single(kMax), Single(2)), "[1073741824, Max]");
  EXPECT_EQ(Quotient(Single(kMin), Single(2)), "[Min, -1073741824]");
}

TEST(NumberRemainder, IsSmallerThanTheModulus) {
  EXPECT_EQ(Remainder(KivOmbIntervalInteger(), Interval(2, 5)), "[-4, 4]");
  EXPECT_EQ(Remainder(Interval(0, kMax), Interval(-5, 5)), "[0, 4]");
  EXPECT_EQ(Remainder(Interval(10, 12), Single(7)), "[3, 5]");
  EXPECT_EQ(Remainder(Single(-7), Single(2)), "-1");
  EXPECT_EQ(Remainder(Interval(kMin + 1, kMax - 1), Single(kMin + 1)), "[-2147483645, 2147483645]");
}

TEST(NumberRemainder, PassesOverTheModulusZero) {
  EXPECT_EQ(Remainder(Interval(3, 9), Interval(0, 2)), "[0, 1]");
  EXPECT_EQ(Remainder(Interval(3, 9), Single(0)), "Nil");
  KivOmbIntervalInteger dividend = Interval(-9, 9);
  EXPECT_EQ(Single(1).CalcFirstInverseModValue(dividend, Interval(0, 2)), 1);
  EXPECT_EQ(Text(dividend), "[1, 9]");
  EXPECT_EQ(Single(1).CalcFirstInverseModValue(dividend, Single(0)), 1);
  EXPECT_EQ(Text(dividend), "Nil");
  KivOmbIntervalInteger modulus = Interval(0, 9);
  EXPECT_EQ(Single(1).CalcSecondInverseModValue(Single(7), modulus), 1);
  EXPECT_EQ(Text(modulus), "[2, 6]");
}

TEST(NumberPower, OfRangesIsTheHullOfThePowers) {
  EXPECT_EQ(Power(Interval(-3, 2), Interval(2, 3)), "[-27, 9]");
  EXPECT_EQ(Power(Interval(-3, 2), Single(2)), "[0, 9]");
  EXPECT_EQ(Power(Interval(2, 3), Interval(-4, 1)), "[1, 3]");
  EXPECT_EQ(Power(Interval(2, 3), Interval(-4, -1)), "Nil");
  EXPECT_EQ(Power(Interval(2, 3), Interval(1, 40)), "[2, Max]");
  EXPECT_EQ(Power(Interval(2, 3), Interval(1, kMax)), "[2, Max]");
  EXPECT_EQ(Power(KivOmbIntervalInteger(), Single(2)), "Any");
  EXPECT_EQ(Power(Single(-2), Single(kMax)), "Any");
}

TEST(NumberFunctions, TurnTheEndsOfTheRangeOver) {
  const auto negative = [](const KivOmbiInteger& x) {
    return Unknown([&](auto& z) { z.CalcNegativeValue(x); });
  };
  const auto absolute = [](const KivOmbiInteger& x) {
    return Unknown([&](auto& z) { z.CalcAbsoluteValue(x); });
  };
  EXPECT_EQ(negative(Interval(kMin, 5)), "[-5, Max]");
  EXPECT_EQ(negative(Single(kMax)), "Min");
  EXPECT_EQ(absolute(Interval(kMin, 5)), "[0, Max]");
  EXPECT_EQ(absolute(Interval(kMin, -5)), "[5, Max]");
  EXPECT_EQ(absolute(KivOmbIntervalInteger()), "[0, Max]");
  EXPECT_EQ(absolute(Single(kMin)), "Max");
}

TEST(NumberFunctions, StepOverNeitherEndOfTheRange) {
  const auto next = [](const KivOmbiInteger& x) {
    return Unknown([&](auto& z) { z.CalcNextValue(x); });
  };
  const auto previous = [](const KivOmbiInteger& z) {
    return Unknown([&](auto& x) { z.CalcInverseNextValue(x); });
  };
  EXPECT_EQ(next(Interval(3, 5)), "[4, 6]");
  EXPECT_EQ(next(Interval(3, kMax)), "[4, Max]");
  EXPECT_EQ(next(Single(kMax)), "Max");
  EXPECT_EQ(next(KivOmbIntervalInteger()), "Any");
  EXPECT_EQ(previous(Interval(kMin, 5)), "[Min, 4]");
  EXPECT_EQ(previous(Single(kMin + 1)), "Min");
  EXPECT_EQ(previous(KivOmbIntervalInteger()), "Any");
}

TEST(NumberSigns, LeaveNothingWithoutASign) {
  KivOmbIntervalInteger x = Interval(-5, 7);
  EXPECT_EQ(x.CalcInverseSignumValue(Interval(-1, 1)), 0);
  EXPECT_EQ(x.CalcInverseSignumValue(Interval(0, 9)), 1);
  EXPECT_EQ(Text(x), "[0, 7]");
  EXPECT_EQ(x.CalcInverseSignumValue(AsInteger(MakeInteger("enum int", {-1, 1}))), 1);
  EXPECT_EQ(Text(x), "[1, 7]");
  EXPECT_EQ(x.CalcInverseSignumValue(Single(2)), 1);
  EXPECT_EQ(Text(x), "Nil");
  EXPECT_EQ(x.CalcInverseSignumValue(Single(1)), 0);
  Single sign;
  EXPECT_EQ(Interval(2, kMax).CalcSignumValue(sign), 1);
  EXPECT_EQ(Text(sign), "1");
  EXPECT_EQ(NilInterval().CalcSignumValue(sign), 1);
  EXPECT_EQ(Text(sign), "Nil");
}

// Each is given an operand that holds nothing, and then a target that holds nothing.
TEST(NumberOperators, BecomeNilByANilOperandOnce) {
  const KivOmbIntervalInteger nil = NilInterval();
  const Single one(1);
  const auto expect_nil = [](auto&& narrow) {
    for (const char* kind : {"int", "interval int", "enum int"}) {
      SCOPED_TRACE(kind);
      const DomainPointer target = MakeInteger(kind, {1});
      EXPECT_EQ(narrow(AsInteger(target)), 1);
      EXPECT_EQ(Text(*target), "Nil");
      EXPECT_EQ(narrow(AsInteger(target)), 0);
    }
  };
  // The receiver is Nil, then the other operand.
  expect_nil([&](auto& x) { return nil.CalcFirstInverseMinValue(x, one); });
  expect_nil([&](auto& x) { return Single(1).CalcFirstInverseMinValue(x, nil); });
  expect_nil([&](auto& x) { return nil.CalcFirstInverseMaxValue(x, one); });
  expect_nil([&](auto& x) { return Single(1).CalcFirstInverseMaxValue(x, nil); });
  expect_nil([&](auto& x) { return nil.CalcFirstInverseProdValue(x, one); });
  expect_nil([&](auto& x) { return Single(1).CalcFirstInverseProdValue(x, nil); });
  expect_nil([&](auto& x) { return nil.CalcFirstInverseModValue(x, one); });
  expect_nil([&](auto& x) { return Single(1).CalcFirstInverseModValue(x, nil); });
  expect_nil([&](auto& y) { return nil.CalcSecondInverseModValue(one, y); });
  expect_nil([&](auto& y) { return Single(1).CalcSecondInverseModValue(nil, y); });
  expect_nil([&](auto& x) { return nil.CalcFirstInversePowerValue(x, one); });
  expect_nil([&](auto& x) { return Single(1).CalcFirstInversePowerValue(x, nil); });
  expect_nil([&](auto& y) { return nil.CalcSecondInversePowerValue(one, y); });
  expect_nil([&](auto& y) { return Single(1).CalcSecondInversePowerValue(nil, y); });
  expect_nil([&](auto& x) { return nil.CalcInverseAbsoluteValue(x); });
  expect_nil([&](auto& x) { return nil.CalcInverseNegativeValue(x); });
  expect_nil([&](auto& x) { return nil.CalcInverseNextValue(x); });
  expect_nil([&](auto& s) { return nil.CalcSignumValue(s); });
}

TEST(NumberOperators, BecomeNilByAnOperandThatIsNoInteger) {
  const KivOmbSingleBoolean truth(true);
  KivOmbIntervalInteger z = Interval(1, 2);
  EXPECT_EQ(z.CalcMinValue(Single(1), truth), 1);
  EXPECT_EQ(Text(z), "Nil");
  z = Interval(1, 2);
  EXPECT_EQ(z.CalcMaxValue(truth, Single(1)), 1);
  EXPECT_EQ(Text(z), "Nil");
  Single x(1);
  EXPECT_EQ(Single(1).CalcFirstInverseMinValue(x, truth), 1);
  EXPECT_EQ(Text(x), "Nil");
  KivOmbSingleBoolean target(true);
  EXPECT_EQ(Single(1).CalcFirstInverseMaxValue(target, Single(1)), 1);
  EXPECT_EQ(Text(target), "Nil");
}

}  // namespace
}  // namespace kiv::test
