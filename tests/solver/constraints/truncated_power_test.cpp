#include "solver/constraints/truncated_power.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "tests/solver/constraints/random_case.h"

namespace kiv::test {
namespace {

using VariableId = KivOmbNetwork::VariableId;

// Powers as great as a variable's values are exact in floating point.
bool IsPower(std::int64_t x, std::int64_t y, std::int64_t z) {
  if (y < 0 && x == 0) return false;
  const double power = std::pow(static_cast<double>(x), static_cast<double>(std::abs(y)));
  const double truncated = std::abs(power) == 1 ? power : 0;
  return static_cast<double>(z) == (y < 0 ? truncated : power);
}

TEST(TruncatedPower, StandsUnderBruteForce) {
  CheckRandomCases(4000, [](Generator& random) {
    RandomCase random_case(random);
    random_case.AddTerm(Range(-4, 4), 5, 0);
    random_case.AddTerm(OneIn(random, 4) ? Range(-3, -1) : Range(-3, 4), 5, 8);
    random_case.AddTerm({-64, -27, -8, -3, -1, 0, 1, 2, 3, 4, 8, 9, 16, 27, 81}, 6, 8);
    const bool exact = random_case.AreSets() && !random_case.Repeats();
    return random_case.Finish(
        "truncated power", exact ? Strength::kDomain : Strength::kWeaker,
        [](KivOmbNetwork& network, auto arguments) { network.Emplace<TruncatedPower>(arguments); },
        [](const Assignment& values) { return IsPower(values[0], values[1], values[2]); });
  });
}

TEST(TruncatedPower, NarrowsWideVariablesByTheirBounds) {
  KivOmbNetwork network;
  const VariableId x = Declare(network, {Kind("interval int"), {-100000, 100000}});
  const VariableId y = Declare(network, {Kind("interval int"), {-9, 9}});
  const VariableId z = Declare(network, {Kind("interval int"), {900, 1000}});
  const VariableId arguments[] = {x, y, z};
  network.Emplace<TruncatedPower>(arguments);
  network.Propagate();
  EXPECT_EQ(Text(network, x), "[-31, 1000]");
  EXPECT_EQ(Text(network, y), "[1, 3]");
}

TEST(TruncatedPower, LosesTheBaseZeroToNegativeExponents) {
  KivOmbNetwork network;
  const VariableId arguments[] = {Declare(network, {Kind("interval int"), {0, 2000000000}}),
                                  Declare(network, {Kind("interval int"), {-2000000000, -1}}),
                                  Declare(network, {Kind("interval int"), {-5, 5}})};
  network.Emplace<TruncatedPower>(arguments);
  network.Propagate();
  EXPECT_EQ(Text(network, arguments[0]), "[1, 2000000000]");
  EXPECT_EQ(Text(network, arguments[2]), "[0, 1]");
}

}  // namespace
}  // namespace kiv::test
