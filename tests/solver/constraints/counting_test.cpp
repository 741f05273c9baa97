// How often values are taken: among, count, the number of different values.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "solver/constraints/among.h"
#include "solver/constraints/count.h"
#include "solver/constraints/number_of_values.h"
#include "tests/solver/constraints/random_case.h"
#include "tests/support/modules.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;
using VariableId = KivOmbNetwork::VariableId;

template <class T, class... Parameters>
auto Posts(const Parameters&... parameters) {
  return [=](KivOmbNetwork& network, std::span<const VariableId> arguments) {
    network.Emplace<T>(arguments, parameters...);
  };
}

TEST(Among, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  std::size_t exact = 0;
  for (std::uint64_t seed = first; seed < first + Times(1500); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    for (int count = Pick(random, 0, 4); count > 0; --count) chosen.AddTerm(Range(-2, 4), 5, 10);
    chosen.AddTerm(Range(-1, 5), 5, 10);
    Values set;
    for (int size = Pick(random, 0, 4); size > 0; --size) set.push_back(Pick(random, -2, 5));
    const bool is_exact = chosen.AreSets() && !chosen.Repeats();
    exact += is_exact ? 1 : 0;
    CheckConstraint(
        chosen.Finish("among", is_exact ? Strength::kDomain : Strength::kWeaker, Posts<Among>(set),
                      [&](const Assignment& values) {
                        const auto in_set = std::count_if(
                            values.begin(), values.end() - 1,
                            [&](auto value) { return std::ranges::find(set, value) != set.end(); });
                        return in_set == values.back();
                      }),
        seed);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(exact, Times(1500) / 20);
}

TEST(Count, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1500); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    for (int count = Pick(random, 0, 4); count > 0; --count) chosen.AddTerm(Range(-2, 3), 4, 10);
    chosen.AddTerm(Range(-2, 4), 4, 10);
    chosen.AddTerm(Range(-1, 5), 4, 10);
    CheckConstraint(chosen.Finish("count", Strength::kWeaker, Posts<Count>(),
                                  [](const Assignment& values) {
                                    const auto terms = values.end() - 2;
                                    return std::count(values.begin(), terms, *terms) ==
                                           values.back();
                                  }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(NumberOfValues, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(1500); ++seed) {
    Generator random(seed);
    RandomCase chosen(random);
    for (int count = Pick(random, 0, 4); count > 0; --count) chosen.AddTerm(Range(-2, 4), 4, 10);
    chosen.AddTerm(Range(-1, 5), 4, 10);
    CheckConstraint(chosen.Finish("number of values", Strength::kWeaker, Posts<NumberOfValues>(),
                                  [](const Assignment& values) {
                                    const std::set terms(values.begin(), values.end() - 1);
                                    return static_cast<std::int64_t>(terms.size()) == values.back();
                                  }),
                    seed);
    if (testing::Test::HasFailure()) return;
  }
}

// x, y, z, then what follows; the texts of all after propagation.
template <class T, class... Parameters>
std::string Propagated(const std::vector<Declared>& variables, const Parameters&... parameters) {
  KivOmbNetwork network;
  std::vector<VariableId> ids;
  for (const Declared& variable : variables) ids.push_back(Declare(network, variable));
  network.Emplace<T>(ids, parameters...);
  return network.Propagate() == Outcome::kFixpoint ? Text(network) : "contradiction";
}

std::string Texts(const std::vector<Declared>& variables) {
  KivOmbNetwork network;
  for (const Declared& variable : variables) Declare(network, variable);
  return Text(network);
}

TEST(Among, AnUnknownCountIsFoundOut) {
  const auto* kind = Kind("enum int");
  const Declared x{kind, {1, 2}};
  const Declared y{kind, {2, 9}};
  EXPECT_EQ(Propagated<Among>({x, y, {kind, {}}}, Values{1, 2}), Texts({x, y, {kind, {1, 2}}}));
  EXPECT_EQ(Propagated<Among>({{kind, {}}}, Values{1, 2}), Texts({{kind, {0}}}));
}

TEST(Among, UnknownTermsTakeTheValuesThatAllOfThemNeed) {
  const auto* kind = Kind("enum int");
  EXPECT_EQ(Propagated<Among>({{kind, {}}, {kind, {1, 7}}, {kind, {2}}}, Values{7, 3, 7}),
            Texts({{kind, {3, 7}}, {kind, {7}}, {kind, {2}}}));
  EXPECT_EQ(Propagated<Among>({{kind, {}}, {kind, {1, 7}}, {kind, {3}}}, Values{7, 3}),
            "contradiction");
}

TEST(Count, AValueThatCannotBeTakenThatOftenIsNotCounted) {
  const auto* kind = Kind("enum int");
  const Declared x{kind, {1, 2}};
  const Declared z{kind, {2, 3}};
  EXPECT_EQ(Propagated<Count>({x, x, z, {kind, {1, 2, 3, 4}}, {kind, {2, 3}}}),
            Texts({x, x, z, {kind, {1, 2}}, {kind, {2, 3}}}));
}

TEST(Count, AnUnknownValueThatIsTakenLiesAmongTheTerms) {
  const auto* x = Kind("enum int");
  const auto* y = Kind("interval int");
  EXPECT_EQ(Propagated<Count>({{x, {3, 8}}, {x, {5, 6}}, {y, {}}, {x, {1, 2}}}),
            Texts({{x, {3, 8}}, {x, {5, 6}}, {y, {3, 8}}, {x, {1}}}));
}

TEST(NumberOfValues, DisjointHullsAreThatManyValues) {
  const auto* kind = Kind("interval int");
  const std::vector<Declared> terms{{kind, {0, 3}}, {kind, {5, 9}}, {kind, {2, 6}}};
  auto with = [&](Values counted) {
    auto all = terms;
    all.push_back({kind, std::move(counted)});
    return all;
  };
  EXPECT_EQ(Propagated<NumberOfValues>(with({})), Texts(with({2, 3})));
  EXPECT_EQ(Propagated<NumberOfValues>(with({0, 1})), "contradiction");
}

TEST(NumberOfValues, OpenTermsKeepToTheValuesThatThereAreOrLoseThem) {
  const auto* kind = Kind("enum int");
  const std::vector<Declared> start{{kind, {4}}, {kind, {6}}, {kind, {1, 4, 6}}};
  auto with = [&](Values open, std::int32_t counted) {
    auto all = start;
    all[2].values = std::move(open);
    all.push_back({kind, {counted}});
    return all;
  };
  EXPECT_EQ(Propagated<NumberOfValues>(with({1, 4, 6}, 2)), Texts(with({4, 6}, 2)));
  EXPECT_EQ(Propagated<NumberOfValues>(with({1, 4, 6}, 3)), Texts(with({1}, 3)));
}

TEST(Counting, TellsItsGroundTruthBeyond32Bits) {
  const Among among({1, 2, 2});
  EXPECT_TRUE(among.Holds(std::array<std::int64_t, 4>{1, 2, 4294967297, 2}));
  EXPECT_FALSE(among.Holds(std::array<std::int64_t, 4>{1, 2, 4294967297, 3}));
  const Count count;
  EXPECT_TRUE(count.Holds(std::array<std::int64_t, 4>{7, 4294967303, 7, 1}));
  EXPECT_FALSE(count.Holds(std::array<std::int64_t, 4>{7, 4294967303, 7, 2}));
  const NumberOfValues number;
  EXPECT_TRUE(number.Holds(std::array<std::int64_t, 3>{7, 4294967303, 2}));
  EXPECT_FALSE(number.Holds(std::array<std::int64_t, 3>{7, 7, 2}));
  EXPECT_TRUE(number.Holds(std::array<std::int64_t, 1>{0}));
}

}  // namespace
}  // namespace kiv::test
