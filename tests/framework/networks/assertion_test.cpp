#include <gtest/gtest.h>

#include <random>

#include "tests/support/enumeration.h"
#include "tests/support/modules.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;

class Assertions : public testing::Test {
 protected:
  Assertions() { Build(network_); }

  // x + y = z and x < y over the digits.
  void Build(KivOmbNetwork& network) {
    for (auto* variable : {&x_, &y_, &z_}) {
      *variable = Declare(network, {kind_, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}});
    }
    network.Post(*OpenModules().operators.Resolve("+", {kind_, kind_}), x_, y_, z_);
    network.Post(*OpenModules().operators.Resolve("<", {kind_, kind_}), x_, y_,
                 KivOmbNetwork::kNone);
  }

  KivOmbNetwork::AssertionId Set(KivOmbNetwork::VariableId variable, std::int32_t value) {
    KivOmbNetwork other;  // only to own the value
    const auto domain = Declare(other, {kind_, {value}});
    return network_.Assert(variable, other.GetDomain(domain));
  }
  std::string Text(KivOmbNetwork::VariableId variable) const {
    Kivostrstream out;
    network_.GetDomain(variable).PrintOn(out);
    return out.Str();
  }
  std::string Texts() const { return Text(x_) + "; " + Text(y_) + "; " + Text(z_); }

  const KivOmbiObjectDescriptor* kind_ = OpenModules().FindKind("enum int");
  KivOmbNetwork network_;
  KivOmbNetwork::VariableId x_ = 0;
  KivOmbNetwork::VariableId y_ = 0;
  KivOmbNetwork::VariableId z_ = 0;
};

TEST_F(Assertions, RetractingTheFirstKeepsWhatFollowsFromTheSecond) {
  const auto first = Set(z_, 7);
  Set(x_, 2);
  EXPECT_EQ(Texts(), "2; 5; 7");
  network_.Retract(first);
  EXPECT_EQ(network_.CountAssertions(), 1u);
  EXPECT_EQ(Texts(), "2; { 3, 4, 5, 6, 7 }; { 5, 6, 7, 8, 9 }");
}

TEST_F(Assertions, RetractingTheLastGivesBackWhatStoodBefore) {
  network_.Propagate();
  const std::string before = Texts();
  const auto only = Set(y_, 4);
  EXPECT_NE(Texts(), before);
  network_.Retract(only);
  EXPECT_EQ(Texts(), before);
  EXPECT_EQ(network_.GetLevel(), 0u);
}

TEST_F(Assertions, AContradictionGoesWithTheAssertionThatMadeIt) {
  Set(x_, 3);
  const auto wrong = Set(y_, 2);
  EXPECT_EQ(network_.Propagate(), Outcome::kContradiction);
  const auto after = Set(z_, 8);  // asserted while contradictory
  network_.Retract(wrong);
  EXPECT_EQ(network_.Propagate(), Outcome::kFixpoint);
  EXPECT_EQ(Texts(), "3; 5; 8");
  network_.Retract(after);
  EXPECT_EQ(Text(x_), "3");
}

TEST_F(Assertions, RefusesAValueOfAnotherKindAndAnAssertionThatIsNotThere) {
  KivOmbNetwork other;
  const auto interval = Declare(other, {OpenModules().FindKind("interval int"), {1, 2}});
  EXPECT_THROW(network_.Assert(x_, other.GetDomain(interval)), std::invalid_argument);
  EXPECT_THROW(network_.Retract(12), std::invalid_argument);
}

// In any order of setting and unsetting, the domains are those of a network that never saw what was
// unset.
TEST_F(Assertions, AnyOrderOfSettingAndUnsettingLeavesOnlyWhatStands) {
  const std::uint64_t seed = Seed(5);
  SCOPED_TRACE(Replay(seed));
  std::mt19937_64 random(seed);
  struct Standing {
    KivOmbNetwork::AssertionId id;
    KivOmbNetwork::VariableId variable;
    std::int32_t value;
  };
  std::vector<Standing> standing;
  for (int step = 0; step < 400; ++step) {
    if (standing.size() < 4 && random() % 2 == 0) {
      const auto variable = static_cast<KivOmbNetwork::VariableId>(random() % 3);
      const auto value = static_cast<std::int32_t>(random() % 10);
      standing.push_back({Set(variable, value), variable, value});
    } else if (!standing.empty()) {
      const auto gone = standing.begin() + static_cast<std::ptrdiff_t>(random() % standing.size());
      network_.Retract(gone->id);
      standing.erase(gone);
    }
    KivOmbNetwork fresh;
    Build(fresh);
    for (const Standing& assertion : standing) {
      fresh.Update(assertion.variable, [&](KivOmbiAny& domain) {
        KivOmbNetwork other;
        domain.Intersect(other.GetDomain(Declare(other, {kind_, {assertion.value}})));
      });
    }
    const Outcome expected = fresh.Propagate();
    ASSERT_EQ(network_.Propagate(), expected);
    if (expected != Outcome::kFixpoint) continue;
    for (KivOmbNetwork::VariableId i = 0; i < 3; ++i) {
      EXPECT_EQ(ValuesOf(network_, i), ValuesOf(fresh, i));
    }
  }
}

}  // namespace
}  // namespace kiv::test
