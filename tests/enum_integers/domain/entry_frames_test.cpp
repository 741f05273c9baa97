// What the virtual entries answer for operands of every kind and state, whatever the operator.

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "enum_integers/domain/enum_integer.h"
#include "framework/numbers/single_boolean.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

// The entries with one operand, of either base type.
struct ForwardEntryCase {
  const char* name;
  std::function<int(KivOmbiInteger&, const KivOmbiInteger&)> call;
};

const std::vector<ForwardEntryCase> kForwardEntries = {
    {"LessOrEqual", [](auto& t, auto& x) { return t.CalcLessOrEqualValue(x); }},
    {"Less", [](auto& t, auto& x) { return t.CalcLessValue(x); }},
    {"NotLess", [](auto& t, auto& x) { return t.CalcNotLessValue(x); }},
    {"NotLessAndUnequal", [](auto& t, auto& x) { return t.CalcNotLessAndUnequalValue(x); }},
    {"Next", [](auto& t, auto& x) { return t.CalcNextValue(x); }},
    {"Absolute", [](auto& t, auto& x) { return t.CalcAbsoluteValue(x); }},
    {"Negative", [](auto& t, auto& x) { return t.CalcNegativeValue(x); }},
};

struct InverseEntryCase {
  const char* name;
  std::function<int(const KivOmbiInteger&, KivOmbiInteger&)> call;
};

const std::vector<InverseEntryCase> kInverseEntries = {
    {"LessOrEqual", [](auto& t, auto& x) { return t.CalcInverseLessOrEqualValue(x); }},
    {"Less", [](auto& t, auto& x) { return t.CalcInverseLessValue(x); }},
    {"NotLess", [](auto& t, auto& x) { return t.CalcInverseNotLessValue(x); }},
    {"NotLessAndUnequal", [](auto& t, auto& x) { return t.CalcInverseNotLessAndUnequalValue(x); }},
    {"Next", [](auto& t, auto& x) { return t.CalcInverseNextValue(x); }},
    {"Absolute", [](auto& t, auto& x) { return t.CalcInverseAbsoluteValue(x); }},
    {"Negative", [](auto& t, auto& x) { return t.CalcInverseNegativeValue(x); }},
};

TEST(ForwardEntryOfOneOperand, WithANilTargetReturnsZero) {
  const KivOmbSingleInteger single(3);
  const KivOmbEnumInteger set = Set({3});
  const KivOmbEnumInteger nil = NilSet();
  const KivOmbIntervalInteger interval = Interval(1, 2);
  for (const auto& entry : kForwardEntries) {
    KivOmbEnumInteger target = NilSet();
    for (const KivOmbiInteger* const x :
         std::initializer_list<const KivOmbiInteger*>{&single, &set, &nil, &interval}) {
      EXPECT_EQ(entry.call(target, *x), 0) << entry.name;
    }
    EXPECT_EQ(target.CheckNil(), 1);
  }
}

TEST(ForwardEntryOfOneOperand, WithANilOperandMakesTheTargetNil) {
  const KivOmbSingleInteger single = NilSingle();
  const KivOmbEnumInteger set = NilSet();
  for (const auto& entry : kForwardEntries) {
    for (KivOmbEnumInteger target : {KivOmbEnumInteger(), Set({1}), SetLeftAny({1})}) {
      KivOmbEnumInteger copy(target);
      EXPECT_EQ(entry.call(target, single), 1) << entry.name;
      EXPECT_EQ(target.CheckNil(), 1);
      EXPECT_EQ(entry.call(copy, set), 1) << entry.name;
      EXPECT_EQ(copy.CheckNil(), 1);
    }
  }
}

TEST(ForwardEntryOfOneOperand, WithAnIntervalMakesTheTargetNil) {
  const KivOmbIntervalInteger interval = Interval(0, 100);
  for (const auto& entry : kForwardEntries) {
    KivOmbEnumInteger target = Set({1});
    EXPECT_EQ(entry.call(target, interval), 1) << entry.name;
    EXPECT_EQ(target.CheckNil(), 1);
  }
}

TEST(ForwardEntryOfOneOperand, TakesASingleAsASet) {
  KivOmbEnumInteger target = Set({1, 5, 9});
  const KivOmbiScalar& five = KivOmbSingleInteger(5);
  EXPECT_EQ(target.CalcLessValue(five), 1);
  EXPECT_EQ(Text(target), "1");
  const KivOmbSingleInteger any;
  EXPECT_EQ(target.CalcLessOrEqualValue(static_cast<const KivOmbiAny&>(any)), 0);
}

TEST(ForwardEntryOfTwoOperands, WithANilTargetReturnsZeroEvenForANilOperand) {
  KivOmbEnumInteger target = NilSet();
  EXPECT_EQ(target.CalcSumValue(NilSingle(), Interval(1, 2)), 0);
  EXPECT_EQ(target.CheckNil(), 1);
}

TEST(ForwardEntryOfTwoOperands, WithANilOperandMakesTheTargetNil) {
  for (const bool nil_first : {true, false}) {
    KivOmbEnumInteger target;
    const KivOmbSingleInteger nil = NilSingle();
    const KivOmbSingleInteger any;
    EXPECT_EQ(target.CalcSumValue(nil_first ? nil : any, nil_first ? any : nil), 1);
    EXPECT_EQ(target.CheckNil(), 1);
  }
}

TEST(ForwardEntryOfTwoOperands, TakesAnIntervalAsNil) {
  KivOmbEnumInteger target;
  EXPECT_EQ(target.CalcSumValue(Set({1}), Interval(1, 2)), 1);
  EXPECT_EQ(target.CheckNil(), 1);
}

TEST(ForwardEntryOfTwoOperands, TakesTheTargetItselfAsOperand) {
  KivOmbEnumInteger target = Set({0, 1, 2});
  const KivOmbiNumber& same = target;
  EXPECT_EQ(target.CalcSumValue(same, same), 0);
  target = Set({1, 2});
  EXPECT_EQ(target.CalcSumValue(same, same), 1);
  EXPECT_EQ(Text(target), "2");
}

TEST(InverseEntryOfOneOperand, WithANilTargetReturnsZero) {
  for (const auto& entry : kInverseEntries) {
    KivOmbEnumInteger set = NilSet();
    KivOmbSingleInteger single = NilSingle();
    KivOmbIntervalInteger interval = NilInterval();
    for (const KivOmbEnumInteger& known : {NilSet(), Set({1})}) {
      EXPECT_EQ(entry.call(known, set), 0) << entry.name;
      EXPECT_EQ(entry.call(known, single), 0) << entry.name;
      EXPECT_EQ(entry.call(known, interval), 0) << entry.name;
    }
  }
}

TEST(InverseEntryOfOneOperand, WithANilReceiverMakesTheTargetNil) {
  const KivOmbEnumInteger known = NilSet();
  for (const auto& entry : kInverseEntries) {
    KivOmbEnumInteger set = SetLeftAny({1});
    KivOmbSingleInteger single;
    KivOmbIntervalInteger interval = Interval(1, 2);
    EXPECT_EQ(entry.call(known, set), 1) << entry.name;
    EXPECT_EQ(entry.call(known, single), 1) << entry.name;
    EXPECT_EQ(entry.call(known, interval), 1) << entry.name;
    EXPECT_EQ(set.CheckNil(), 1);
    EXPECT_EQ(single.CheckNil(), 1);
    EXPECT_EQ(interval.CheckNil(), 1);
  }
}

TEST(InverseEntryOfOneOperand, WithAnAnyReceiverLeavesASingle) {
  const KivOmbEnumInteger any;
  for (const auto& entry : kInverseEntries) {
    KivOmbSingleInteger single(kMin);
    EXPECT_EQ(entry.call(any, single), 0) << entry.name;
    EXPECT_EQ(Text(single), Text(KivOmbSingleInteger(kMin)));
  }
}

TEST(InverseEntryOfOneOperand, WithAnAnyReceiverLetsTheCoreDecideForASet) {
  const KivOmbEnumInteger any;
  KivOmbEnumInteger set = Set({kMin, 4});
  EXPECT_EQ(any.CalcInverseLessValue(static_cast<KivOmbiScalar&>(set)), 1);
  EXPECT_EQ(Text(set), "4");
}

TEST(InverseEntryOfOneOperand, LeavesAnIntervalThatHasNoConversion) {
  for (const auto& entry : kInverseEntries) {
    KivOmbIntervalInteger interval = Interval(0, 100);
    EXPECT_EQ(entry.call(Set({50}), interval), 0) << entry.name;
    EXPECT_EQ(interval.GetLowerBound(), 0);
    EXPECT_EQ(interval.GetUpperBound(), 100);
  }
}

int InverseSum(const KivOmbEnumInteger& z, KivOmbiNumber& x, const KivOmbiNumber& y) {
  return z.CalcFirstInverseSumValue(x, y);
}

TEST(FirstInverseEntry, NarrowsTargetsByOperandsOfBothKinds) {
  const KivOmbEnumInteger z = Set({5, 8});
  const KivOmbEnumInteger y_set = Set({2});
  const KivOmbSingleInteger y_single(2);
  for (const KivOmbiNumber* const y :
       std::initializer_list<const KivOmbiNumber*>{&y_set, &y_single}) {
    KivOmbEnumInteger set = Range(1, 10);
    EXPECT_EQ(InverseSum(z, set, *y), 1);
    EXPECT_EQ(Text(set), "{ 3, 6 }");
    KivOmbSingleInteger single(4);
    EXPECT_EQ(InverseSum(z, single, *y), 1);
    EXPECT_EQ(single.CheckNil(), 1);
  }
}

TEST(FirstInverseEntry, WithANilTargetReturnsZero) {
  KivOmbEnumInteger set = NilSet();
  KivOmbSingleInteger single = NilSingle();
  KivOmbIntervalInteger interval = NilInterval();
  EXPECT_EQ(InverseSum(NilSet(), set, NilSet()), 0);
  EXPECT_EQ(InverseSum(NilSet(), single, NilSingle()), 0);
  EXPECT_EQ(InverseSum(NilSet(), interval, NilSet()), 0);
}

TEST(FirstInverseEntry, WithANilOperandOrReceiverMakesTheTargetNil) {
  const KivOmbEnumInteger nil = NilSet();
  const KivOmbSingleInteger nil_single = NilSingle();
  const KivOmbEnumInteger any;
  const KivOmbEnumInteger one = Set({1});
  struct {
    const KivOmbEnumInteger& z;
    const KivOmbiNumber& y;
  } const cases[] = {{any, nil}, {any, nil_single}, {nil, any}, {nil, one}};
  for (const auto& [z, y] : cases) {
    KivOmbEnumInteger set = SetLeftAny({1});
    KivOmbSingleInteger single;
    KivOmbIntervalInteger interval = Interval(1, 2);
    EXPECT_EQ(InverseSum(z, set, y), 1);
    EXPECT_EQ(InverseSum(z, single, y), 1);
    EXPECT_EQ(InverseSum(z, interval, y), 1);
    EXPECT_EQ(set.CheckNil(), 1);
    EXPECT_EQ(single.CheckNil(), 1);
    EXPECT_EQ(interval.CheckNil(), 1);
  }
}

TEST(FirstInverseEntry, WithAnAnyReceiverLeavesEveryTarget) {
  const KivOmbEnumInteger any;
  const KivOmbEnumInteger y = Set({2});
  const KivOmbIntervalInteger y_interval = Interval(1, 2);
  for (const KivOmbiNumber* const operand :
       std::initializer_list<const KivOmbiNumber*>{&y, &y_interval}) {
    KivOmbEnumInteger set = Set({1});
    KivOmbSingleInteger single(1);
    KivOmbIntervalInteger interval = Interval(1, 2);
    EXPECT_EQ(InverseSum(any, set, *operand), 0);
    EXPECT_EQ(InverseSum(any, single, *operand), 0);
    EXPECT_EQ(InverseSum(any, interval, *operand), 0);
    EXPECT_EQ(Text(set), "1");
    EXPECT_EQ(Text(single), "1");
    EXPECT_EQ(interval.GetUpperBound(), 2);
  }
}

TEST(FirstInverseEntry, TakesAnIntervalOperandAsNil) {
  KivOmbEnumInteger set = Set({1});
  EXPECT_EQ(InverseSum(Set({5}), set, Interval(1, 9)), 1);
  EXPECT_EQ(set.CheckNil(), 1);
  KivOmbSingleInteger single(1);
  EXPECT_EQ(InverseSum(Set({5}), single, Interval(1, 9)), 1);
  EXPECT_EQ(single.CheckNil(), 1);
}

TEST(FirstInverseEntry, LeavesAnIntervalTarget) {
  KivOmbIntervalInteger interval = Interval(0, 100);
  EXPECT_EQ(InverseSum(Set({5}), interval, Set({2})), 0);
  EXPECT_EQ(interval.GetLowerBound(), 0);
}

TEST(FirstInverseEntry, TakesTheTargetItselfAsOperand) {
  KivOmbEnumInteger x = Set({1, 2, 5});
  EXPECT_EQ(InverseSum(Set({7}), x, x), 1);
  EXPECT_EQ(Text(x), "{ 2, 5 }");
}

// z = x mod y, and z = x ^ y.
struct SecondInverseEntryCase {
  const char* name;
  std::function<int(const KivOmbEnumInteger&, const KivOmbiNumber&, KivOmbiNumber&)> call;
};

const std::vector<SecondInverseEntryCase> kSecondInverseEntries = {
    {"Mod", [](auto& z, auto& x, auto& y) { return z.CalcSecondInverseModValue(x, y); }},
    {"Power", [](auto& z, auto& x, auto& y) { return z.CalcSecondInversePowerValue(x, y); }},
};

TEST(SecondInverseEntry, NarrowsTargetsByOperandsOfBothKinds) {
  const KivOmbEnumInteger z = Set({1, 4});
  const KivOmbEnumInteger x_set = Set({-2});
  const KivOmbSingleInteger x_single(-2);
  for (const KivOmbiNumber* const x :
       std::initializer_list<const KivOmbiNumber*>{&x_set, &x_single}) {
    KivOmbEnumInteger set = Range(-3, 3);
    EXPECT_EQ(z.CalcSecondInversePowerValue(*x, set), 1);
    EXPECT_EQ(Text(set), "{ 0, 2 }");
    KivOmbSingleInteger single(2);
    EXPECT_EQ(z.CalcSecondInversePowerValue(*x, single), 0);
    EXPECT_EQ(Text(single), "2");
    single.SetExactValue(3);
    EXPECT_EQ(z.CalcSecondInversePowerValue(*x, single), 1);
    EXPECT_EQ(single.CheckNil(), 1);
  }
}

TEST(SecondInverseEntry, GivesAnAnySingleItsOnlyValue) {
  KivOmbSingleInteger single;
  EXPECT_EQ(Set({8}).CalcSecondInversePowerValue(KivOmbSingleInteger(2), single), 1);
  EXPECT_EQ(Text(single), "3");
}

TEST(SecondInverseEntry, WithANilTargetReturnsZero) {
  for (const auto& entry : kSecondInverseEntries) {
    KivOmbEnumInteger set = NilSet();
    KivOmbSingleInteger single = NilSingle();
    KivOmbIntervalInteger interval = NilInterval();
    EXPECT_EQ(entry.call(NilSet(), NilSet(), set), 0) << entry.name;
    EXPECT_EQ(entry.call(NilSet(), NilSingle(), single), 0) << entry.name;
    EXPECT_EQ(entry.call(NilSet(), NilSet(), interval), 0) << entry.name;
  }
}

TEST(SecondInverseEntry, WithANilOperandOrReceiverMakesTheTargetNil) {
  const KivOmbEnumInteger nil = NilSet();
  const KivOmbSingleInteger nil_single = NilSingle();
  const KivOmbEnumInteger any;
  const KivOmbEnumInteger one = Set({1});
  struct {
    const KivOmbEnumInteger& z;
    const KivOmbiNumber& x;
  } const cases[] = {{any, nil}, {any, nil_single}, {nil, any}, {nil, one}};
  for (const auto& entry : kSecondInverseEntries) {
    for (const auto& [z, x] : cases) {
      KivOmbEnumInteger set = SetLeftAny({1});
      KivOmbSingleInteger single;
      KivOmbIntervalInteger interval = Interval(1, 2);
      EXPECT_EQ(entry.call(z, x, set), 1) << entry.name;
      EXPECT_EQ(entry.call(z, x, single), 1) << entry.name;
      EXPECT_EQ(entry.call(z, x, interval), 1) << entry.name;
      EXPECT_EQ(set.CheckNil(), 1);
      EXPECT_EQ(single.CheckNil(), 1);
      EXPECT_EQ(interval.CheckNil(), 1);
    }
  }
}

TEST(SecondInverseEntry, WithAnAnyOperandOrReceiverLeavesEveryTarget) {
  const KivOmbEnumInteger any;
  const KivOmbSingleInteger any_single;
  const KivOmbEnumInteger one = Set({1});
  struct {
    const KivOmbEnumInteger& z;
    const KivOmbiNumber& x;
  } const cases[] = {{any, one}, {one, any}, {one, any_single}, {any, any}};
  for (const auto& entry : kSecondInverseEntries) {
    for (const auto& [z, x] : cases) {
      KivOmbEnumInteger set = Set({7});
      KivOmbSingleInteger single(7);
      KivOmbIntervalInteger interval = Interval(7, 8);
      EXPECT_EQ(entry.call(z, x, set), 0) << entry.name;
      EXPECT_EQ(entry.call(z, x, single), 0) << entry.name;
      EXPECT_EQ(entry.call(z, x, interval), 0) << entry.name;
      EXPECT_EQ(Text(set), "7");
      EXPECT_EQ(Text(single), "7");
      EXPECT_EQ(Text(interval), "[7, 8]");
    }
  }
}

TEST(SecondInverseEntry, TakesAnIntervalOperandAsNil) {
  for (const auto& entry : kSecondInverseEntries) {
    KivOmbEnumInteger set = Set({1});
    EXPECT_EQ(entry.call(Set({5}), Interval(1, 9), set), 1) << entry.name;
    EXPECT_EQ(set.CheckNil(), 1);
    KivOmbSingleInteger single(1);
    EXPECT_EQ(entry.call(Set({5}), KivOmbIntervalInteger(), single), 1) << entry.name;
    EXPECT_EQ(single.CheckNil(), 1);
  }
}

TEST(SecondInverseEntry, LeavesAnIntervalTarget) {
  for (const auto& entry : kSecondInverseEntries) {
    KivOmbIntervalInteger interval = Interval(0, 100);
    EXPECT_EQ(entry.call(Set({5}), Set({2}), interval), 0) << entry.name;
    EXPECT_EQ(Text(interval), "[0, 100]");
  }
}

TEST(SecondInverseEntry, TakesTheTargetItselfAsOperandOrReceiver) {
  KivOmbEnumInteger y = Set({2, 3, 7});
  EXPECT_EQ(Set({1}).CalcSecondInverseModValue(static_cast<const KivOmbiNumber&>(y),
                                               static_cast<KivOmbiNumber&>(y)),
            1);
  EXPECT_EQ(Text(y), "{ 2, 3 }");
  y = Set({1, 3, 5});
  EXPECT_EQ(y.CalcSecondInverseModValue(KivOmbSingleInteger(4), static_cast<KivOmbiNumber&>(y)), 1);
  EXPECT_EQ(Text(y), "3");
}

}  // namespace
