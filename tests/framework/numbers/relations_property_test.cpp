// The relations and the sum of the number kinds over random small domains of all three integer
// kinds, against enumeration.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/framework/numbers/samples.h"

namespace kiv::test {
namespace {

// An Any is taken to hold the values between the ends.
constexpr int kAnyEnd = 60;

// What a target has to become: a set out of which it keeps what its kind can tell apart.
struct Expected {
  Values supported;
  // Whether the kind narrows to the bounds of `supported` alone.
  bool by_bounds;
};

// The text of `target` after it was narrowed to `expected`, as exactly as its kind can.
std::string Narrowed(const Sample& target, const Expected& expected) {
  const DomainPointer before = target.Make();
  const Values& supported = expected.supported;
  if (supported.empty()) return "Nil";
  const auto is_supported = [&](std::int32_t value) {
    return expected.by_bounds ? supported.front() <= value && value <= supported.back()
                              : std::ranges::binary_search(supported, value);
  };
  const bool bounded_below = supported.front() > -kAnyEnd;
  const bool bounded_above = supported.back() < kAnyEnd;
  if (target.kind == kKinds[1]) {
    const Values kept = ValuesOf(AsInteger(before), kAnyEnd);
    Values both;
    std::ranges::copy_if(kept, std::back_inserter(both), is_supported);
    if (both.empty()) return "Nil";
    KivOmbIntervalInteger interval;
    if (bounded_below || !IsAny(before)) interval.SetLowerBound(both.front());
    if (bounded_above || !IsAny(before)) interval.SetUpperBound(both.back());
    return Text(interval);
  }
  if (!IsAny(before)) {
    Values kept;
    std::ranges::copy_if(*target.values, std::back_inserter(kept), is_supported);
    return Text(*MakeInteger(target.kind, kept));
  }
  // An unknown single takes a single value; an unknown enumerated domain takes any finite set.
  const bool takes = target.kind == kKinds[0] ? supported.front() == supported.back()
                                              : bounded_below && bounded_above;
  if (!takes) return "Any";
  Values all;
  for (std::int32_t value = supported.front(); value <= supported.back(); ++value) {
    if (is_supported(value)) all.push_back(value);
  }
  return Text(*MakeInteger(target.kind, all));
}

struct Relation {
  const char* name;
  int (*forward)(KivOmbiInteger& receiver, const KivOmbiInteger& operand);
  int (*inverse)(const KivOmbiInteger& receiver, KivOmbiInteger& operand);
  int (*is)(const KivOmbiInteger& receiver, const KivOmbiInteger& operand,
            KivOmbiBoolean& result);  // null for a relation without a truth value
  bool (*holds)(int receiver, int operand);
};

const Relation kRelations[] = {
    {"Equal", [](auto& r, auto& o) { return r.CalcEqualValue(o); },
     [](auto& r, auto& o) { return r.CalcInverseEqualValue(o); },
     [](auto& r, auto& o, auto& t) { return r.CalcIsEqual(o, t); },
     [](int r, int o) { return r == o; }},
    {"Unequal", [](auto& r, auto& o) { return r.CalcUnequalValue(o); },
     [](auto& r, auto& o) { return r.CalcInverseUnequalValue(o); }, nullptr,
     [](int r, int o) { return r != o; }},
    {"LessOrEqual", [](auto& r, auto& o) { return r.CalcLessOrEqualValue(o); },
     [](auto& r, auto& o) { return r.CalcInverseLessOrEqualValue(o); },
     [](auto& r, auto& o, auto& t) { return r.CalcIsLessOrEqual(o, t); },
     [](int r, int o) { return r <= o; }},
    {"Less", [](auto& r, auto& o) { return r.CalcLessValue(o); },
     [](auto& r, auto& o) { return r.CalcInverseLessValue(o); },
     [](auto& r, auto& o, auto& t) { return r.CalcIsLess(o, t); },
     [](int r, int o) { return r < o; }},
    {"NotLess", [](auto& r, auto& o) { return r.CalcNotLessValue(o); },
     [](auto& r, auto& o) { return r.CalcInverseNotLessValue(o); }, nullptr,
     [](int r, int o) { return r >= o; }},
    {"NotLessAndUnequal", [](auto& r, auto& o) { return r.CalcNotLessAndUnequalValue(o); },
     [](auto& r, auto& o) { return r.CalcInverseNotLessAndUnequalValue(o); }, nullptr,
     [](int r, int o) { return r > o; }}};

// The values of `target` for which `holds(value, partner)` with some value of `known`.
template <class Holds>
Values Supported(const Sample& target, const Sample& known, Holds&& holds) {
  Values supported;
  const DomainPointer target_domain = target.Make();
  const DomainPointer known_domain = known.Make();
  const Values partners = ValuesOf(AsInteger(known_domain), 2 * kAnyEnd);
  for (const std::int32_t value : ValuesOf(AsInteger(target_domain), kAnyEnd)) {
    if (std::ranges::any_of(partners, [&](int partner) { return holds(value, partner); })) {
      supported.push_back(value);
    }
  }
  return supported;
}

TEST(NumberRelations, NarrowTheirTargetToWhatHasAPartner) {
  ForRandomSeeds(6000, [](std::mt19937_64& random) {
    const Sample number = RandomSample(random, {kKinds[0], kKinds[1]});
    const Sample other = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    SCOPED_TRACE(number.Print() + " with " + other.Print());
    const DomainPointer number_domain = number.Make();
    const DomainPointer other_domain = other.Make();
    for (const Relation& relation : kRelations) {
      const std::string_view name = relation.name;
      const auto keep = [&](const Sample& target, const Sample& known, Values supported) {
        // An unknown value excludes none, not even the one of a Nil.
        if (name == "Unequal" && known.values && known.values->empty()) {
          return Text(*target.Make());
        }
        // An interval equals the hull of its operand.
        if (name == "Equal" && target.kind == kKinds[1]) {
          return Narrowed(target, {ValuesOf(AsInteger(known.Make()), kAnyEnd), true});
        }
        return Narrowed(target, {std::move(supported), false});
      };
      Check(relation.name, number, keep(number, other, Supported(number, other, relation.holds)),
            [&](KivOmbiInteger& target) {
              return relation.forward(target, AsInteger(other_domain));
            });
      const auto exchanged = [&](int value, int partner) { return relation.holds(partner, value); };
      SCOPED_TRACE("inverse");
      Check(relation.name, other, keep(other, number, Supported(other, number, exchanged)),
            [&](KivOmbiInteger& target) {
              return relation.inverse(AsInteger(number_domain), target);
            });
    }
  });
}

TEST(NumberRelations, ADomainMayBeItsOwnOperand) {
  ForRandomSeeds(1000, [](std::mt19937_64& random) {
    const Sample sample = RandomSample(random, {kKinds[0], kKinds[1]});
    SCOPED_TRACE(sample.Print());
    const DomainPointer copy = sample.Make();
    for (const Relation& relation : kRelations) {
      SCOPED_TRACE(relation.name);
      const DomainPointer apart = sample.Make();
      const int forward = relation.forward(AsInteger(apart), AsInteger(copy));
      const DomainPointer same = sample.Make();
      EXPECT_EQ(relation.forward(AsInteger(same), AsInteger(same)), forward);
      EXPECT_EQ(Text(*same), Text(*apart));

      const DomainPointer apart_inverse = sample.Make();
      const int inverse = relation.inverse(AsInteger(copy), AsInteger(apart_inverse));
      const DomainPointer same_inverse = sample.Make();
      EXPECT_EQ(relation.inverse(AsInteger(same_inverse), AsInteger(same_inverse)), inverse);
      EXPECT_EQ(Text(*same_inverse), Text(*apart_inverse));
    }
    const DomainPointer sum_apart = sample.Make();
    AsInteger(sum_apart).CalcSumValue(AsInteger(copy), AsInteger(copy));
    const DomainPointer sum_same = sample.Make();
    AsInteger(sum_same).CalcSumValue(AsInteger(sum_same), AsInteger(sum_same));
    EXPECT_EQ(Text(*sum_same), Text(*sum_apart));
    const DomainPointer term_apart = sample.Make();
    AsInteger(copy).CalcFirstInverseSumValue(AsInteger(term_apart), AsInteger(copy));
    const DomainPointer term_same = sample.Make();
    AsInteger(term_same).CalcFirstInverseSumValue(AsInteger(term_same), AsInteger(term_same));
    EXPECT_EQ(Text(*term_same), Text(*term_apart));
  });
}

// A truth value is told only when it is right, always when bounds or fixed values decide it, and
// contradicts a result that claims the other.
TEST(NumberRelations, TellTheirTruthWhereItIsDecided) {
  ForRandomSeeds(4000, [](std::mt19937_64& random) {
    const Sample x = RandomSample(random, {kKinds[0], kKinds[1]});
    const Sample y = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    SCOPED_TRACE(x.Print() + " with " + y.Print());
    const DomainPointer x_domain = x.Make();
    const DomainPointer y_domain = y.Make();
    const Values xs = ValuesOf(AsInteger(x_domain), kAnyEnd);
    const Values ys = ValuesOf(AsInteger(y_domain), kAnyEnd);
    for (const Relation& relation : kRelations) {
      if (relation.is == nullptr) continue;
      SCOPED_TRACE(relation.name);
      KivOmbSingleBoolean truth;
      const int code = relation.is(AsInteger(x_domain), AsInteger(y_domain), truth);
      EXPECT_EQ(code, truth.CheckAny() == 0);
      EXPECT_EQ(relation.is(AsInteger(x_domain), AsInteger(y_domain), truth), 0);
      EXPECT_EQ(truth.CheckNil() != 0, xs.empty() || ys.empty());
      if (xs.empty() || ys.empty()) continue;
      bool possible[2] = {};
      for (const int a : xs) {
        for (const int b : ys) possible[relation.holds(a, b)] = true;
      }
      for (const bool value : {false, true}) {
        EXPECT_TRUE(truth.CanBe(value) != 0 || !possible[value]);
      }
      const bool fixed = xs.size() == 1 && ys.size() == 1;
      const bool ordered = std::string_view(relation.name) != "Equal";
      const bool apart = xs.back() < ys.front() || ys.back() < xs.front();
      if (fixed || apart || (ordered && possible[0] != possible[1])) {
        EXPECT_EQ(Text(truth), possible[1] ? "true" : "false");
      }
      KivOmbSingleBoolean denied(!possible[1]);
      relation.is(AsInteger(x_domain), AsInteger(y_domain), denied);
      EXPECT_EQ(denied.CheckNil() != 0, truth.CheckAny() == 0);
    }
  });
}

// The sums of two domains by bounds: from the sum of the lower to the sum of the upper bounds.
Values SumsOf(const Sample& x, const Sample& y, int sign) {
  if ((x.values && x.values->empty()) || (y.values && y.values->empty())) return {};
  if (!x.values || !y.values) return {-kAnyEnd, kAnyEnd};
  return sign > 0
             ? Values{x.values->front() + y.values->front(), x.values->back() + y.values->back()}
             : Values{x.values->front() - y.values->back(), x.values->back() - y.values->front()};
}

TEST(NumberSums, NarrowTheirTargetToTheBoundsOfTheSum) {
  ForRandomSeeds(12000, [](std::mt19937_64& random) {
    const Sample z = RandomSample(random, {kKinds[0], kKinds[1]});
    const Sample x = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    const Sample y = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    SCOPED_TRACE(z.Print() + " = " + x.Print() + " + " + y.Print());
    const DomainPointer x_domain = x.Make();
    const DomainPointer y_domain = y.Make();
    const DomainPointer z_domain = z.Make();
    Check("sum", z, Narrowed(z, {SumsOf(x, y, 1), true}), [&](KivOmbiInteger& target) {
      return target.CalcSumValue(AsInteger(x_domain), AsInteger(y_domain));
    });
    Check("first inverse", x, Narrowed(x, {SumsOf(z, y, -1), true}), [&](KivOmbiInteger& target) {
      return AsInteger(z_domain).CalcFirstInverseSumValue(target, AsInteger(y_domain));
    });
  });
}

}  // namespace
}  // namespace kiv::test
