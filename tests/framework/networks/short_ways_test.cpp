// The short ways that a descriptor offers to a domain do what the operations of the domain do.

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "framework/abstract_types/integer.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

constexpr std::int32_t kLeast = -12;
constexpr std::int32_t kGreatest = 12;

const KivOmbiInteger& DomainOf(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable) {
  return static_cast<const KivOmbiInteger&>(network.GetDomain(variable));
}

std::vector<std::int32_t> ValuesOf(const KivOmbiInteger& domain) {
  std::vector<std::int32_t> values;
  for (std::int32_t value = kLeast; value <= kGreatest; ++value) {
    if (domain.MayBe(value)) values.push_back(value);
  }
  return values;
}

Values SomeValues(std::mt19937& random) {
  Values values;
  for (std::int32_t value = kLeast; value <= kGreatest; ++value) {
    if (random() % 2 == 0) values.push_back(value);
  }
  if (values.empty()) values.push_back(0);
  return values;
}

TEST(ShortWays, KeepBetweenKeepsWhatLiesBetween) {
  std::mt19937 random(1);
  for (const char* name : {"enum int", "interval int"}) {
    const auto& kind = *OpenModules().FindKind(name);
    for (int round = 0; round < 300; ++round) {
      KivOmbNetwork network;
      const auto variable = Declare(network, {&kind, SomeValues(random)});
      const auto before = ValuesOf(DomainOf(network, variable));
      const auto lower = static_cast<std::int32_t>(random() % 30) - 15;
      const auto upper = static_cast<std::int32_t>(random() % 30) - 15;
      std::vector<std::int32_t> expected;
      for (const auto value : before) {
        if (lower <= value && value <= upper) expected.push_back(value);
      }
      int result = 0;
      network.PushLevel();
      network.Update(variable,
                     [&](KivOmbiAny& domain) { result = kind.KeepBetween(domain, lower, upper); });
      EXPECT_EQ(ValuesOf(DomainOf(network, variable)), expected);
      EXPECT_EQ(result, expected == before ? 0 : 1);
      EXPECT_EQ(DomainOf(network, variable).IsNil() != 0, expected.empty());
      network.PopLevel();
      EXPECT_EQ(ValuesOf(DomainOf(network, variable)), before);
    }
  }
}

TEST(ShortWays, RemoveValuesRemovesTheListedOnes) {
  std::mt19937 random(2);
  const auto& kind = *OpenModules().FindKind("enum int");
  for (int round = 0; round < 300; ++round) {
    KivOmbNetwork network;
    const auto variable = Declare(network, {&kind, SomeValues(random)});
    const auto before = ValuesOf(DomainOf(network, variable));
    std::vector<std::int32_t> lost;
    std::vector<std::int32_t> expected = before;
    for (std::int32_t value = kLeast; value <= kGreatest; ++value) {
      if (random() % 3 == 0) continue;
      lost.push_back(value);
      std::erase(expected, value);
    }
    int result = 0;
    network.PushLevel();
    network.Update(variable, [&](KivOmbiAny& domain) { result = kind.RemoveValues(domain, lost); });
    EXPECT_EQ(ValuesOf(DomainOf(network, variable)), expected);
    EXPECT_EQ(result, expected == before ? 0 : 1);
    EXPECT_EQ(DomainOf(network, variable).IsNil() != 0, expected.empty());
    network.PopLevel();
    EXPECT_EQ(ValuesOf(DomainOf(network, variable)), before);
  }
}

TEST(ShortWays, KeepWordKeepsTheValuesOfTheWord) {
  std::mt19937 random(3);
  const auto& kind = *OpenModules().FindKind("enum int");
  for (int round = 0; round < 300; ++round) {
    KivOmbNetwork network;
    const auto variable = Declare(network, {&kind, SomeValues(random)});
    const auto before = ValuesOf(DomainOf(network, variable));
    std::uint64_t word = 0;
    std::vector<std::int32_t> expected;
    for (const auto value : before) {
      if (random() % 3 == 0) continue;
      word |= std::uint64_t{1} << (value - before.front());
      expected.push_back(value);
    }
    if (expected.empty() || expected == before) continue;
    network.PushLevel();
    network.Update(variable,
                   [&](KivOmbiAny& domain) { EXPECT_EQ(kind.KeepWord(domain, word), 1); });
    EXPECT_EQ(ValuesOf(DomainOf(network, variable)), expected);
    network.PopLevel();
    EXPECT_EQ(ValuesOf(DomainOf(network, variable)), before);
  }
}

TEST(ShortWays, AListingKindHandsOutItsValues) {
  KivOmbNetwork network;
  const auto& listing = *OpenModules().FindKind("enum int");
  const auto& gapless = *OpenModules().FindKind("interval int");
  const auto listed = Declare(network, {&listing, {-3, 1, 8}});
  const auto interval = Declare(network, {&gapless, {1, 2, 3}});
  const auto values = listing.GetValues(network.GetDomain(listed));
  ASSERT_EQ(values.size(), 3u);
  EXPECT_EQ(values[0], SubIntBase(-3));
  EXPECT_EQ(values[2], SubIntBase(8));
  EXPECT_TRUE(gapless.GetValues(network.GetDomain(interval)).empty());
  EXPECT_TRUE(listing.HoldsGaps());
  EXPECT_FALSE(gapless.HoldsGaps());
}

TEST(ShortWays, AKindWithoutThemSaysSo) {
  KivOmbNetwork network;
  const auto& kind = *OpenModules().FindKind("bool");
  const auto truth = network.AddVariable(kind);
  network.Update(truth, [&](KivOmbiAny& domain) {
    EXPECT_EQ(kind.KeepBetween(domain, 0, 0), KivOmbiObjectDescriptor::kNotOffered);
    EXPECT_EQ(kind.RemoveValues(domain, {}), KivOmbiObjectDescriptor::kNotOffered);
    EXPECT_EQ(kind.KeepWord(domain, 1), KivOmbiObjectDescriptor::kNotOffered);
  });
}

}  // namespace
}  // namespace kiv::test
