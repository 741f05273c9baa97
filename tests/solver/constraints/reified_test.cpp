#include "solver/constraints/reified.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "solver/constraints/all_different.h"
#include "solver/constraints/clause.h"
#include "solver/constraints/element_of_constants.h"
#include "solver/constraints/inverse.h"
#include "solver/constraints/linear_disequality.h"
#include "solver/constraints/parity.h"
#include "solver/constraints/table.h"
#include "solver/constraints/truncated_power.h"
#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// A constraint to be tied, its arguments but for the truth, and its meaning.
struct Inner {
  std::string name;
  std::function<void(RandomCase&)> add_arguments;
  std::function<std::unique_ptr<KivOmbiConstraint>()> make;
  std::function<bool(std::span<const std::int64_t>)> holds;
};

void AddIntegers(RandomCase& random_case, int count) {
  for (int i = 0; i < count; ++i) random_case.AddTerm(Range(-2, 4), 4, 8);
}

void AddTruths(RandomCase& random_case, int count) {
  for (int i = 0; i < count; ++i) random_case.AddTruth();
}

bool AreDifferent(std::span<const std::int64_t> values) {
  return std::set(values.begin(), values.end()).size() == values.size();
}

// Of all classes that keep notes about changes between their runs, and some that do not.
Inner RandomInner(Generator& random) {
  switch (Pick(random, 0, 7)) {
    case 0:
      return {"power", [](RandomCase& c) { AddIntegers(c, 3); },
              [] { return std::make_unique<TruncatedPower>(); },
              [](auto v) {
                if (v[1] < 0 && v[0] == 0) return false;
                const double power =
                    std::pow(static_cast<double>(v[0]), static_cast<double>(std::abs(v[1])));
                const double truncated = std::abs(power) == 1 ? power : 0;
                return static_cast<double>(v[2]) == (v[1] < 0 ? truncated : power);
              }};
    case 1: {
      const int first = Pick(random, -1, 2);
      return {
          "element", [](RandomCase& c) { AddIntegers(c, 2); },
          [=] {
            return std::make_unique<ElementOfConstants>(std::vector<std::int32_t>{3, 0, 3}, first);
          },
          [=](auto v) {
            const std::int64_t i = v[0] - first;
            return i >= 0 && i < 3 && v[1] == (i == 1 ? 0 : 3);
          }};
    }
    case 2:
      return {"different", [](RandomCase& c) { AddIntegers(c, 3); },
              [] { return std::make_unique<AllDifferent>(); }, AreDifferent};
    case 3:
      return {"clause", [](RandomCase& c) { AddTruths(c, 3); },
              [] { return std::make_unique<Clause>(1); },
              [](auto v) { return v[0] == 1 || v[1] == 0 || v[2] == 0; }};
    case 4:
      return {"parity", [](RandomCase& c) { AddTruths(c, 3); },
              [] { return std::make_unique<Parity>(Parity::kOdd); },
              [](auto v) { return (v[0] + v[1] + v[2]) % 2 == 1; }};
    case 5:
      return {"disequality", [](RandomCase& c) { AddIntegers(c, 3); },
              [] {
                return std::make_unique<LinearDisequality>(std::vector<std::int64_t>{1, 2, -1},
                                                           Int128{3});
              },
              [](auto v) { return v[0] + 2 * v[1] - v[2] != 3; }};
    case 6:
      return {"inverse", [](RandomCase& c) { AddIntegers(c, 4); },
              [] { return std::make_unique<Inverse>(2, 0, 0); },
              [](auto v) {
                const bool same = v[0] == 0 && v[1] == 1 && v[2] == 0 && v[3] == 1;
                const bool swapped = v[0] == 1 && v[1] == 0 && v[2] == 1 && v[3] == 0;
                return same || swapped;
              }};
    default:
      return {"table", [](RandomCase& c) { AddIntegers(c, 2); },
              [] {
                return std::make_unique<Table>(
                    2, 5, std::vector<std::int32_t>{0, 0, 1, 3, 2, 2, 4, 0, 4, 1});
              },
              [](auto v) {
                const std::pair pair{v[0], v[1]};
                return pair == std::pair<std::int64_t, std::int64_t>{0, 0} ||
                       pair == std::pair<std::int64_t, std::int64_t>{1, 3} ||
                       pair == std::pair<std::int64_t, std::int64_t>{2, 2} ||
                       (v[0] == 4 && (v[1] == 0 || v[1] == 1));
              }};
  }
}

TEST(Reified, StandsUnderBruteForceAroundOtherConstraints) {
  CheckRandomCases(6000, [](Generator& random) {
    const Inner inner = RandomInner(random);
    const auto reification =
        OneIn(random, 3) ? Reification::kImplication : Reification::kEquivalence;
    RandomCase random_case(random);
    inner.add_arguments(random_case);
    random_case.AddTruth();
    return random_case.Finish(
        "reified " + inner.name, Strength::kWeaker,
        [=](KivOmbNetwork& network, auto arguments) {
          network.Emplace<Reified>(arguments, inner.make(), reification);
        },
        [=](const Assignment& values) {
          const bool holds = inner.holds(std::span(values).first(values.size() - 1));
          return reification == Reification::kImplication ? values.back() == 0 || holds
                                                          : holds == (values.back() == 1);
        });
  });
}

// x ^ y = z over sets, and its truth.
struct TiedPower {
  TiedPower(const Values& base, const Values& exponent, const Values& power, const Values& known) {
    const Values* values[] = {&base, &exponent, &power};
    for (int i = 0; i < 3; ++i) arguments[i] = Declare(network, {Kind("enum int"), *values[i]});
    arguments[3] = Declare(network, {Kind("interval int"), known});
    network.Emplace<Reified>(arguments, std::make_unique<TruncatedPower>(),
                             Reification::kEquivalence);
    network.Propagate();
  }

  KivOmbNetwork network;
  VariableId arguments[4];
};

TEST(Reified, APartialFunctionOutsideItsDomainIsFalse) {
  TiedPower tied({0}, {-1}, {0, 1, 2}, {0, 1});
  EXPECT_EQ(Text(tied.network, tied.arguments[3]), "0");
}

TEST(Reified, NarrowsLikeTheConstraintOnceItIsTrue) {
  TiedPower tied({2, 3}, {2, 3}, Range(0, 30), {1});
  EXPECT_EQ(Text(tied.network, tied.arguments[2]), "{ 4, 8, 9, 27 }");
}

TEST(Reified, OnceItIsFalseTheLastOpenVariableLosesWhatWouldSatisfyIt) {
  TiedPower tied({-2, 1, 2, 3}, {2}, {4}, {0});
  EXPECT_EQ(Text(tied.network, tied.arguments[0]), "{ 1, 3 }");
}

TEST(Reified, IsKnownOnceTheLastOpenVariableDecides) {
  EXPECT_EQ(Text(TiedPower({-2, 2}, {2}, {4}, {0, 1}).network, 3), "1");
  EXPECT_EQ(Text(TiedPower({-2, 3}, {2}, {5}, {0, 1}).network, 3), "0");
  EXPECT_EQ(Text(TiedPower({-2, 3}, {2}, {4}, {0, 1}).network, 3), "[0, 1]");
}

}  // namespace
}  // namespace kiv::test
