#include "solver/constraints/membership.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/support/constraint_case.h"
#include "tests/support/modules.h"
#include "tests/support/random_variables.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

using Outcome = KivOmbNetwork::Outcome;

const KivOmbiObjectDescriptor* Kind(const char* name) { return OpenModules().FindKind(name); }

ConstraintCase MembershipOf(const Declared& variable, const Values& values) {
  return {.name = "member of the values",
          .variables = {variable},
          .arguments = {0},
          .post = [=](KivOmbNetwork& network,
                      auto arguments) { network.Emplace<Membership>(arguments, values); },
          .holds =
              [=](const Assignment& argument) {
                return std::ranges::find(values, argument[0]) != values.end();
              },
          .strength = Strength::kDomain};
}

// The text of a variable after it was made a member of `values`.
std::string Member(const char* kind, const Values& domain, const Values& values) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind(kind), domain});
  network.Emplace<Membership>(std::span(&x, 1), values);
  network.Propagate();
  return Text(network, x);
}

TEST(Membership, StandsUnderBruteForce) {
  const std::uint64_t first = Seed(1);
  const KivOmbiObjectDescriptor& set = *Kind("enum int");
  for (std::uint64_t seed = first; seed < first + Times(2000); ++seed) {
    Generator random(seed);
    const Flavour flavour = RandomFlavour(random);
    const Values values = RandomValues(random, set, flavour);
    CheckConstraint(MembershipOf(RandomVariable(random, flavour), values), seed);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(Membership, AnIntervalKeepsTheHullOfItsMembers) {
  EXPECT_EQ(Member("interval int", Range(0, 10), {-5, 2, 3, 8, 20}), "[2, 8]");
  EXPECT_EQ(Member("interval int", Range(3, 8), {-5, 2, 3, 8, 20}), "[3, 8]");
  EXPECT_EQ(Member("interval int", {-1000000000, 1000000000}, {-2000000000, 7, 2000000000}), "7");
  EXPECT_EQ(Member("interval int", {}, {3, 8}), "[3, 8]");
}

TEST(Membership, ADomainBetweenTwoMembersIsEmpty) {
  for (const char* kind : {"interval int", "enum int"}) {
    EXPECT_EQ(Member(kind, Range(4, 7), {2, 3, 8}), "Nil");
    EXPECT_EQ(Member(kind, Range(9, 11), {2, 3, 8}), "Nil");
    EXPECT_EQ(Member(kind, Range(-1, 1), {2, 3, 8}), "Nil");
  }
  EXPECT_EQ(Member("int", {4}, {3, 5}), "Nil");
}

TEST(Membership, AnEnumeratedDomainKeepsItsMembersAlone) {
  EXPECT_EQ(Member("enum int", Range(0, 9), {-5, 2, 3, 8, 20}), "{ 2, 3, 8 }");
  EXPECT_EQ(Member("enum int", {1, 2}, {2}), "2");
  EXPECT_EQ(Member("int", {2}, {1, 2}), "2");
}

TEST(Membership, AnUnknownVariableTakesTheMembersThatItsKindCanHold) {
  EXPECT_EQ(Member("enum int", {}, {3, 5, 9}), "{ 3, 5, 9 }");
  EXPECT_EQ(Member("enum int", {}, {7}), "7");
  EXPECT_EQ(Member("int", {}, {7}), "7");
  EXPECT_EQ(Member("int", {}, {7, 8}), "Any");
  EXPECT_EQ(Member("enum int", {}, Range(1, 3000)), "Any");
}

TEST(Membership, HolesOfAWideIntervalAreFoundBySearch) {
  KivOmbNetwork network;
  const auto x = Declare(network, {Kind("interval int"), {-2147483646, 2147483646}});
  network.Emplace<Membership>(std::span(&x, 1), Values{-2147483646, 0, 9, 2147483646});
  EXPECT_EQ(SearchSolutions(network),
            (std::vector<Assignment>{{-2147483646}, {0}, {9}, {2147483646}}));
}

TEST(Membership, TellsItsGroundTruthBeyond32Bits) {
  const Membership membership({-1, 3});
  EXPECT_TRUE(membership.Holds(std::array<std::int64_t, 1>{3}));
  EXPECT_FALSE(membership.Holds(std::array<std::int64_t, 1>{2}));
  EXPECT_FALSE(membership.Holds(std::array<std::int64_t, 1>{4294967295}));
}

}  // namespace
}  // namespace kiv::test
