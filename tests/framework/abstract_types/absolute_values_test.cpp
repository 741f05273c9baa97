#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "framework/abstract_types/integer.h"
#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

constexpr std::int32_t kGreatest = 40;

Values SomeValues(Generator& random, std::int32_t least) {
  Values values;
  const int one_in = Pick(random, 1, 9);
  for (std::int32_t value = least; value <= kGreatest; ++value) {
    if (OneIn(random, one_in)) values.push_back(value);
  }
  if (values.empty()) values.push_back(Pick(random, least, kGreatest));
  return values;
}

Values ValuesOf(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable) {
  const auto& domain = static_cast<const KivOmbiInteger&>(network.GetDomain(variable));
  Values values;
  for (std::int32_t value = -kGreatest; value <= kGreatest; ++value) {
    if (domain.MayBe(value)) values.push_back(value);
  }
  return values;
}

TEST(AbsoluteValues, KeepsTheValuesThatHaveAPartner) {
  const auto* kind = OpenModules().FindKind("enum int");
  const auto* absolute = OpenModules().operators.Resolve("abs", {kind});
  ASSERT_NE(absolute, nullptr);
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(5000); ++seed) {
    Generator random(seed);
    const Values a = SomeValues(random, -kGreatest);
    const Values z = SomeValues(random, OneIn(random, 2) ? 0 : -kGreatest);
    const auto contains = [](const Values& values, std::int32_t value) {
      return std::ranges::find(values, value) != values.end();
    };
    Values a_left, z_left;
    std::ranges::copy_if(a, std::back_inserter(a_left),
                         [&](std::int32_t value) { return contains(z, std::abs(value)); });
    std::ranges::copy_if(z, std::back_inserter(z_left), [&](std::int32_t value) {
      return value >= 0 && (contains(a, value) || contains(a, -value));
    });

    KivOmbNetwork network;
    const auto operand = Declare(network, {kind, a});
    const auto result = Declare(network, {kind, z});
    network.Post(*absolute, operand, KivOmbNetwork::kNone, result);
    const bool possible = network.Propagate() == KivOmbNetwork::Outcome::kFixpoint;
    ASSERT_EQ(possible, !z_left.empty()) << Replay(seed);
    if (!possible) continue;
    ASSERT_EQ(ValuesOf(network, operand), a_left) << Replay(seed);
    ASSERT_EQ(ValuesOf(network, result), z_left) << Replay(seed);
  }
}

}  // namespace
}  // namespace kiv::test
