#include "framework/numbers/single_boolean.h"

#include <gtest/gtest.h>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

using Boolean = KivOmbSingleBoolean;

// The domain that holds the given values.
Boolean Holding(bool can_be_false, bool can_be_true) {
  Boolean domain;
  if (!can_be_false) domain.CalcTruthValue(true);
  if (!can_be_true) domain.CalcTruthValue(false);
  return domain;
}

const Boolean kAllStates[] = {Holding(false, false), Holding(true, false), Holding(false, true),
                              Holding(true, true)};

// Which of its two values `target` keeps, out of those with a partner in `known`.
template <class Relation>
std::string Supported(const Boolean& target, const Boolean& known, Relation&& holds) {
  const auto keeps = [&](bool value) {
    return target.CanBe(value) != 0 && ((known.CanBe(false) != 0 && holds(value, false)) ||
                                        (known.CanBe(true) != 0 && holds(value, true)));
  };
  return Text(Holding(keeps(false), keeps(true)));
}

TEST(SingleBoolean, IsAnyByDefault) {
  const Boolean any;
  EXPECT_EQ(any.CheckAny(), 1);
  EXPECT_EQ(any.IsUndefined(), 1);
  EXPECT_EQ(any.IsNil(), 0);
  EXPECT_EQ(any.GetCardinality(), 2u);
  EXPECT_EQ(any.CanBe(false) + any.CanBe(true), 2);
}

TEST(SingleBoolean, IsConstructedFromATruthValue) {
  for (const bool value : {false, true}) {
    const Boolean domain(value);
    EXPECT_EQ(domain.CanBe(value), 1);
    EXPECT_EQ(domain.CanBe(!value), 0);
    EXPECT_EQ(domain.GetCardinality(), 1u);
    EXPECT_EQ(domain.CheckAny() + domain.CheckNil(), 0);
  }
}

TEST(SingleBoolean, NilEmptiesAndReturnsOneEveryTime) {
  Boolean domain(true);
  EXPECT_EQ(domain.Nil(), 1);
  EXPECT_EQ(domain.Nil(), 1);
  EXPECT_EQ(domain.CheckNil(), 1);
  EXPECT_EQ(domain.IsNil(), 1);
  EXPECT_EQ(domain.GetCardinality(), 0u);
  domain.SetUndefinedValue();
  EXPECT_EQ(Text(domain), "Any");
  domain.SetNilValue();
  EXPECT_EQ(Text(domain), "Nil");
  domain.Any();
  EXPECT_EQ(Text(domain), "Any");
}

TEST(SingleBoolean, CopiesItsValueAndNotItsOwner) {
  Boolean original(true);
  Listener listener(original);
  Boolean copy(original);
  copy.Nil();
  EXPECT_EQ(listener.announcements, 0);
  original = copy;
  EXPECT_EQ(listener.announcements, 1);
  EXPECT_EQ(Text(original), "Nil");
}

TEST(SingleBoolean, TakesATruthValueOnce) {
  Boolean domain;
  EXPECT_EQ(domain.CalcTruthValue(true), 1);
  EXPECT_EQ(Text(domain), "true");
  EXPECT_EQ(domain.CalcTruthValue(true), 0);
  EXPECT_EQ(domain.CalcTruthValue(false), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.CalcTruthValue(false), 0);
}

TEST(SingleBoolean, EqualAndUnequalKeepWhatHasAPartner) {
  for (const Boolean& before : kAllStates) {
    for (const Boolean& known : kAllStates) {
      SCOPED_TRACE(Text(before) + " and " + Text(known));
      const auto check = [&](auto&& relation, const std::string& expected) {
        Boolean target(before);
        EXPECT_EQ(relation(target), expected != Text(before));
        EXPECT_EQ(Text(target), expected);
        EXPECT_EQ(relation(target), 0);
      };
      const auto equal = Supported(before, known, std::equal_to<>());
      check([&](Boolean& target) { return target.CalcEqualValue(known); }, equal);
      check([&](Boolean& target) { return known.CalcInverseEqualValue(target); }, equal);
      const auto unequal = Supported(before, known, std::not_equal_to<>());
      check([&](Boolean& target) { return target.CalcUnequalValue(known); }, unequal);
      check([&](Boolean& target) { return known.CalcInverseUnequalValue(target); }, unequal);
    }
  }
}

TEST(SingleBoolean, SetOperationsAreThoseOfTheTwoValues) {
  for (const Boolean& a : kAllStates) {
    for (const Boolean& b : kAllStates) {
      SCOPED_TRACE(Text(a) + " and " + Text(b));
      const auto both = [&](bool value) { return a.CanBe(value) != 0 && b.CanBe(value) != 0; };
      const auto either = [&](bool value) { return a.CanBe(value) != 0 || b.CanBe(value) != 0; };
      Boolean united(a);
      united.Unite(b);
      EXPECT_EQ(Text(united), Text(Holding(either(false), either(true))));
      Boolean common(a);
      common.Intersect(b);
      EXPECT_EQ(Text(common), Text(Holding(both(false), both(true))));
      EXPECT_EQ(a.IsIntersected(b), both(false) || both(true));
      Boolean assigned(a);
      assigned.Assign(b);
      EXPECT_EQ(Text(assigned), Text(b));
    }
  }
}

TEST(SingleBoolean, AssignedToItselfItStaysWhatItIs) {
  for (const Boolean& state : kAllStates) {
    Boolean domain(state);
    domain.Assign(domain);
    EXPECT_EQ(Text(domain), Text(state));
  }
}

TEST(SingleBoolean, AnIntegerIsNoOperand) {
  const KivOmbSingleInteger one(1);
  Boolean domain(true);
  EXPECT_EQ(domain.IsIntersected(one), 0);
  domain.Unite(one);
  EXPECT_EQ(Text(domain), "true");
  EXPECT_EQ(domain.CalcUnequalValue(one), 1);
  EXPECT_EQ(Text(domain), "Nil");
  EXPECT_EQ(domain.CalcUnequalValue(one), 0);
  Boolean equal(true);
  EXPECT_EQ(equal.CalcEqualValue(one), 1);
  EXPECT_EQ(Text(equal), "Nil");
  Boolean assigned(true);
  assigned.Assign(one);
  EXPECT_EQ(Text(assigned), "Nil");
  KivOmbSingleInteger target(1);
  EXPECT_EQ(Boolean(true).CalcInverseEqualValue(target), 1);
  EXPECT_EQ(Text(target), "Nil");
}

TEST(SingleBoolean, TellsWhetherTwoAreEqualOnceThatIsDecided) {
  for (const Boolean& a : kAllStates) {
    for (const Boolean& b : kAllStates) {
      for (const Boolean& before : kAllStates) {
        SCOPED_TRACE(Text(a) + " == " + Text(b) + " is " + Text(before));
        bool can_be[2] = {};
        for (const bool x : {false, true}) {
          for (const bool y : {false, true}) {
            if (a.CanBe(x) != 0 && b.CanBe(y) != 0 && before.CanBe(x == y) != 0) {
              can_be[x == y] = true;
            }
          }
        }
        const std::string expected = Text(Holding(can_be[0], can_be[1]));
        Boolean result(before);
        EXPECT_EQ(a.CalcIsEqual(b, result), expected != Text(before));
        EXPECT_EQ(Text(result), expected);
        EXPECT_EQ(a.CalcIsEqual(b, result), 0);
      }
    }
  }
  Boolean result;
  EXPECT_EQ(Boolean(true).CalcIsEqual(KivOmbSingleInteger(1), result), 1);
  EXPECT_EQ(Text(result), "Nil");
}

TEST(SingleBoolean, FalseIsTheLowerHalf) {
  using enum KivOmbiAny::ValueSelection;
  const auto split = [](const Boolean& before, KivOmbiAny::ValueSelection selection) {
    Boolean domain(before);
    Boolean other(true);
    domain.Bisect(other, selection);
    return Text(domain) + " gave " + Text(other);
  };
  EXPECT_EQ(split(Boolean(), kLowerHalf), "true gave false");
  EXPECT_EQ(split(Boolean(), kSmallest), "true gave false");
  EXPECT_EQ(split(Boolean(), kUpperHalf), "false gave true");
  EXPECT_EQ(split(Boolean(), kGreatest), "false gave true");
  for (const auto selection : {kLowerHalf, kSmallest, kGreatest}) {
    EXPECT_EQ(split(Boolean(false), selection), "Nil gave false");
    EXPECT_EQ(split(Boolean(true), selection), "Nil gave true");
  }
  EXPECT_EQ(split(Boolean(false), kUpperHalf), "false gave Nil");
  EXPECT_EQ(split(kAllStates[0], kLowerHalf), "Nil gave true");
  Boolean domain;
  KivOmbSingleInteger stranger(3);
  domain.Bisect(stranger, kLowerHalf);
  EXPECT_EQ(Text(domain) + " gave " + Text(stranger), "Nil gave 3");
}

}  // namespace
}  // namespace kiv::test
