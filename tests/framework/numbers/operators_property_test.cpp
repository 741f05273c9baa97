// The operators of the number kinds over random small domains of all three integer kinds: no
// solution of enumeration is lost, and targets become what the bounds of the other operands tell.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "framework/intervals/hull.h"
#include "tests/framework/numbers/samples.h"

namespace kiv::test {
namespace {

constexpr Hull kAll{-Hull::kUnbounded, Hull::kUnbounded};

Hull HullOf(const Sample& sample) {
  if (!sample.values) return kAll;
  if (sample.values->empty()) return kEmptyHull;
  return {sample.values->front(), sample.values->back()};
}

// The text of `target` after it was narrowed to `possible`, which says nothing of values inside.
std::string Narrowed(const Sample& target, const Hull& possible) {
  const Hull common = Intersection(HullOf(target), possible);
  if (common.IsEmpty()) return "Nil";
  const auto number = [](std::int64_t bound) { return SubIntBase::Clamp(bound).GetValue(); };
  if (target.kind == kKinds[1]) return Text(Interval(number(common.lower), number(common.upper)));
  Values kept;
  if (target.values) {
    std::ranges::copy_if(*target.values, std::back_inserter(kept),
                         [&](std::int32_t value) { return common.Contains(value); });
  } else {
    // An unknown domain takes what it can hold.
    const std::int64_t most = target.kind == kKinds[0] ? 1 : 1023;
    if (common.upper - common.lower >= most) return "Any";
    for (std::int64_t value = common.lower; value <= common.upper; ++value) {
      kept.push_back(number(value));
    }
  }
  return Text(*MakeInteger(target.kind, kept));
}

// Whether nothing is left to narrow by then: an enumerated domain may have lost more than the hull
// did, to which its new ends tell more.
bool NarrowsOnce(const Sample& target) { return target.kind != kKinds[2]; }

using Result = std::optional<std::int64_t>;

// z = f(x, y) and its operations; the inverses, where there are such, with the hulls of what they
// keep.
struct Operator {
  const char* name;
  Result (*value)(std::int64_t x, std::int64_t y);
  Hull (*z_hull)(const Hull& x, const Hull& y);
  Hull (*x_hull)(const Hull& x, const Hull& y, const Hull& z);
  Hull (*y_hull)(const Hull& x, const Hull& y, const Hull& z);
  int (*narrow_z)(KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y);
  int (*narrow_x)(const KivOmbiInteger& z, KivOmbiInteger& x, const KivOmbiInteger& y);
  int (*narrow_y)(const KivOmbiInteger& z, const KivOmbiInteger& x, KivOmbiInteger& y);
};

Result PowerOfValues(std::int64_t x, std::int64_t y) {
  if (y < 0 && x != 1 && x != -1) return std::nullopt;
  return static_cast<std::int64_t>(std::pow(static_cast<double>(x), static_cast<double>(y)));
}

const Operator kOperators[] = {
    {"product", [](auto x, auto y) { return Result(x * y); }, Product, Factor, nullptr,
     [](auto& z, auto& x, auto& y) { return z.CalcProdValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcFirstInverseProdValue(x, y); }, nullptr},
    {"remainder", [](auto x, auto y) { return y == 0 ? Result() : Result(x % y); }, Remainder,
     Dividend, Modulus, [](auto& z, auto& x, auto& y) { return z.CalcModValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcFirstInverseModValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcSecondInverseModValue(x, y); }},
    {"minimum", [](auto x, auto y) { return Result(std::min(x, y)); }, Minimum, MinimumOperand,
     nullptr, [](auto& z, auto& x, auto& y) { return z.CalcMinValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcFirstInverseMinValue(x, y); }, nullptr},
    {"maximum", [](auto x, auto y) { return Result(std::max(x, y)); }, Maximum, MaximumOperand,
     nullptr, [](auto& z, auto& x, auto& y) { return z.CalcMaxValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcFirstInverseMaxValue(x, y); }, nullptr},
    {"power", PowerOfValues, Power, Base, Exponent,
     [](auto& z, auto& x, auto& y) { return z.CalcPowerValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcFirstInversePowerValue(x, y); },
     [](auto& z, auto& x, auto& y) { return z.CalcSecondInversePowerValue(x, y); }}};

// Of the power only domains that are known are compared here: what Any means for it is told by the
// tests of its own.
bool IsCompared(const Operator& op, std::initializer_list<const Sample*> samples) {
  return op.value != PowerOfValues || std::ranges::all_of(samples, [](const Sample* sample) {
           return sample->values.has_value();
         });
}

// Runs `narrow` on a copy of `target` and looks for each of its values that `is_solution` takes.
template <class Narrow, class IsSolution>
void ExpectNoneLost(const Sample& target, Narrow&& narrow, IsSolution&& is_solution) {
  if (!target.values) return;
  const DomainPointer domain = target.Make();
  narrow(AsInteger(domain));
  for (const std::int32_t value : *target.values) {
    EXPECT_TRUE(!is_solution(value) || AsInteger(domain).MayBe(value)) << "lost " << value;
  }
}

// Whether some values of two known samples satisfy `holds`.
template <class Holds>
bool Some(const Sample& a, const Sample& b, Holds&& holds) {
  return std::ranges::any_of(*a.values, [&](std::int64_t first) {
    return std::ranges::any_of(*b.values,
                               [&](std::int64_t second) { return holds(first, second); });
  });
}

TEST(NumberOperators, NarrowTheirTargetToTheHullOfItsSolutions) {
  ForRandomSeeds(12000, [](std::mt19937_64& random) {
    const Sample z = RandomSample(random, {kKinds[0], kKinds[1]});
    const Sample x = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    const Sample y = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    const DomainPointer z_domain = z.Make();
    const DomainPointer x_domain = x.Make();
    const DomainPointer y_domain = y.Make();
    for (const Operator& op : kOperators) {
      SCOPED_TRACE(z.Print() + " is " + op.name + " of " + x.Print() + " and " + y.Print());
      const bool all_known = x.values && y.values && z.values;
      const auto narrow_z = [&](KivOmbiInteger& target) {
        return op.narrow_z(target, AsInteger(x_domain), AsInteger(y_domain));
      };
      const auto narrow_x = [&](KivOmbiInteger& target) {
        return op.narrow_x(AsInteger(z_domain), target, AsInteger(y_domain));
      };
      if (IsCompared(op, {&x, &y})) {
        Check("forward", z, Narrowed(z, op.z_hull(HullOf(x), HullOf(y))), narrow_z);
      }
      if (IsCompared(op, {&x, &y, &z})) {
        const Hull hull = HullOf(y).IsEmpty() || HullOf(z).IsEmpty()
                              ? kEmptyHull
                              : op.x_hull(HullOf(x), HullOf(y), HullOf(z));
        Check("first inverse", x, Narrowed(x, hull), narrow_x, NarrowsOnce(x));
      }
      if (all_known) {
        ExpectNoneLost(z, narrow_z, [&](std::int64_t c) {
          return Some(x, y, [&](auto a, auto b) { return op.value(a, b) == c; });
        });
        ExpectNoneLost(x, narrow_x, [&](std::int64_t a) {
          return Some(y, z, [&](auto b, auto c) { return op.value(a, b) == c; });
        });
      }
      if (op.narrow_y == nullptr) continue;
      const auto narrow_y = [&](KivOmbiInteger& target) {
        return op.narrow_y(AsInteger(z_domain), AsInteger(x_domain), target);
      };
      if (IsCompared(op, {&x, &y, &z})) {
        const Hull hull = op.y_hull(HullOf(x), HullOf(y), HullOf(z));
        Check("second inverse", y, Narrowed(y, hull), narrow_y,
              NarrowsOnce(y) && op.y_hull != Modulus);
      }
      if (all_known) {
        ExpectNoneLost(y, narrow_y, [&](std::int64_t b) {
          return Some(x, z, [&](auto a, auto c) { return op.value(a, b) == c; });
        });
      }
    }
  });
}

TEST(NumberOperators, TakeTheirTargetAsOperand) {
  ForRandomSeeds(1000, [](std::mt19937_64& random) {
    const Sample sample = RandomSample(random, {kKinds[0], kKinds[1]});
    SCOPED_TRACE(sample.Print());
    const DomainPointer copy = sample.Make();
    // `narrow(target, other)` with another domain of the same values and with the target itself.
    const auto compare = [&](auto&& narrow) {
      const DomainPointer apart = sample.Make();
      const int code = narrow(AsInteger(apart), AsInteger(copy));
      const DomainPointer same = sample.Make();
      EXPECT_EQ(narrow(AsInteger(same), AsInteger(same)), code);
      EXPECT_EQ(Text(*same), Text(*apart));
    };
    for (const Operator& op : kOperators) {
      SCOPED_TRACE(op.name);
      compare([&](auto& target, auto& other) { return op.narrow_z(target, other, other); });
      compare([&](auto& target, auto& other) { return op.narrow_x(other, target, other); });
      if (op.narrow_y == nullptr) continue;
      compare([&](auto& target, auto& other) { return op.narrow_y(other, other, target); });
    }
  });
}

// z = f(x), in both directions.
struct Function {
  const char* name;
  std::int64_t (*value)(std::int64_t x);
  Hull (*z_hull)(const Hull& x);
  Hull (*x_hull)(const Hull& x, const Hull& z);
  int (*narrow_z)(KivOmbiInteger& z, const KivOmbiInteger& x);
  int (*narrow_x)(const KivOmbiInteger& z, KivOmbiInteger& x);
};

const Function kFunctions[] = {
    {"absolute", [](auto x) { return std::abs(x); }, Absolute, AbsoluteOperand,
     [](auto& z, auto& x) { return z.CalcAbsoluteValue(x); },
     [](auto& z, auto& x) { return z.CalcInverseAbsoluteValue(x); }},
    {"negative", [](auto x) { return -x; }, Negation, [](auto&, auto& z) { return Negation(z); },
     [](auto& z, auto& x) { return z.CalcNegativeValue(x); },
     [](auto& z, auto& x) { return z.CalcInverseNegativeValue(x); }},
    {"next", [](auto x) { return x + 1; },
     [](auto& x) {
       return Sum(x, {1, 1});
     },
     [](auto&, auto& z) {
       return Difference(z, {1, 1});
     },
     [](auto& z, auto& x) { return z.CalcNextValue(x); },
     [](auto& z, auto& x) { return z.CalcInverseNextValue(x); }}};

TEST(NumberFunctions, NarrowTheirTargetToTheHullOfItsSolutions) {
  ForRandomSeeds(6000, [](std::mt19937_64& random) {
    const Sample known = RandomSample(random, {kKinds[0], kKinds[1]});
    const Sample other = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    const DomainPointer known_domain = known.Make();
    const DomainPointer other_domain = other.Make();
    const bool all_known = known.values && other.values;
    for (const Function& function : kFunctions) {
      SCOPED_TRACE(known.Print() + " is " + function.name + " of " + other.Print());
      const auto narrow_z = [&](auto& z) { return function.narrow_z(z, AsInteger(other_domain)); };
      const auto narrow_x = [&](auto& x) { return function.narrow_x(AsInteger(known_domain), x); };
      Check("forward", known, Narrowed(known, function.z_hull(HullOf(other))), narrow_z);
      Check("inverse", other, Narrowed(other, function.x_hull(HullOf(other), HullOf(known))),
            narrow_x, NarrowsOnce(other));
      if (!all_known) continue;
      ExpectNoneLost(known, narrow_z, [&](std::int64_t z) {
        return Some(other, other, [&](auto x, auto) { return function.value(x) == z; });
      });
      ExpectNoneLost(other, narrow_x, [&](std::int64_t x) {
        return std::ranges::binary_search(*known.values, function.value(x));
      });
    }
  });
}

// The sign narrows an operand of any kind, and a domain is narrowed by each sign that is possible.
TEST(NumberSigns, NarrowTheirTargetToTheHullOfItsSolutions) {
  ForRandomSeeds(6000, [](std::mt19937_64& random) {
    const Sample x = RandomSample(random, {kKinds[0], kKinds[1]});
    const Sample s = RandomSample(random, {kKinds[0], kKinds[1], kKinds[2]});
    SCOPED_TRACE(s.Print() + " is the sign of " + x.Print());
    const DomainPointer x_domain = x.Make();
    const DomainPointer s_domain = s.Make();
    Check("sign", s, Narrowed(s, Sign(HullOf(x))),
          [&](KivOmbiInteger& target) { return AsInteger(x_domain).CalcSignumValue(target); });
    Hull solutions = kEmptyHull;
    for (std::int32_t value = -6; value <= 6; ++value) {
      const std::int32_t sign = (value > 0) - (value < 0);
      if (!AsInteger(s_domain).MayBe(sign) || !HullOf(x).Contains(value)) continue;
      solutions = Union(solutions, {value, value});
    }
    // Beyond the values above the sign does not change.
    if (!x.values && solutions.lower == -6) solutions.lower = -Hull::kUnbounded;
    if (!x.values && solutions.upper == 6) solutions.upper = Hull::kUnbounded;
    Check("inverse", x, Narrowed(x, solutions), [&](KivOmbiInteger& target) {
      return target.CalcInverseSignumValue(AsInteger(s_domain));
    });
  });
}

}  // namespace
}  // namespace kiv::test
