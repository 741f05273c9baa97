#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "solver/flatzinc/poster_table.h"
#include "tests/solver/flatzinc/random_text.h"
#include "tests/solver/flatzinc/solve_text.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

// The constraints over integers and booleans that every FlatZinc solver must have, and those that
// one may have.
constexpr std::string_view kStandard[] = {"int_abs",
                                          "int_div",
                                          "int_eq",
                                          "int_eq_reif",
                                          "int_le",
                                          "int_le_reif",
                                          "int_lin_eq",
                                          "int_lin_eq_reif",
                                          "int_lin_le",
                                          "int_lin_le_reif",
                                          "int_lin_ne",
                                          "int_lin_ne_reif",
                                          "int_lt",
                                          "int_lt_reif",
                                          "int_max",
                                          "int_min",
                                          "int_mod",
                                          "int_ne",
                                          "int_ne_reif",
                                          "int_plus",
                                          "int_pow",
                                          "int_pow_fixed",
                                          "int_times",
                                          "set_in",
                                          "set_in_reif",
                                          "array_int_element",
                                          "array_var_int_element",
                                          "array_int_maximum",
                                          "array_int_minimum",
                                          "array_bool_and",
                                          "array_bool_element",
                                          "array_bool_or",
                                          "array_bool_xor",
                                          "array_var_bool_element",
                                          "bool2int",
                                          "bool_and",
                                          "bool_clause",
                                          "bool_clause_reif",
                                          "bool_eq",
                                          "bool_eq_reif",
                                          "bool_le",
                                          "bool_le_reif",
                                          "bool_lin_eq",
                                          "bool_lin_le",
                                          "bool_lt",
                                          "bool_lt_reif",
                                          "bool_not",
                                          "bool_or",
                                          "bool_xor"};

// Those of Kiv's own library are tested apart.
std::vector<std::string_view> BuiltinNames() {
  std::vector<std::string_view> names;
  for (const flatzinc::Poster* poster : flatzinc::ListPosters()) {
    if (!poster->name.starts_with("kiv_")) names.push_back(poster->name);
  }
  return names;
}

void CheckText(const RandomText& text, std::uint64_t seed) {
  SCOPED_TRACE(text.Write() + Replay(seed));
  const auto expected = EnumerateSolutions(
      text.GetDomains(), [&](const Assignment& values) { return text.Holds(values); });
  ASSERT_EQ(SolveText(text.Write()), expected);
}

TEST(Builtins, AllOfTheStandardAreThere) {
  for (const std::string_view name : kStandard) {
    EXPECT_NE(flatzinc::FindPoster(name), nullptr) << name;
  }
}

TEST(Builtins, HaveOnePosterEach) {
  std::set<std::string_view> names;
  for (const flatzinc::Poster* poster : flatzinc::ListPosters()) {
    EXPECT_TRUE(names.insert(poster->name).second) << poster->name;
  }
}

TEST(Builtins, EachHasAMeaningAndEachRelationItsTiedForms) {
  const auto names = BuiltinNames();
  for (const std::string_view name : names) {
    EXPECT_TRUE(BuiltinMeaning::Find(name)) << name;
    if (name.ends_with("_reif") || name.ends_with("_imp")) continue;
    for (const char* suffix : {"_reif", "_imp"}) {
      EXPECT_NE(flatzinc::FindPoster(std::string(name) + suffix), nullptr) << name << suffix;
    }
  }
}

class EachBuiltin : public testing::TestWithParam<std::string_view> {};

TEST_P(EachBuiltin, HasTheSolutionsOfItsMeaning) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(96); ++seed) {
    Generator random(seed);
    RandomText text(random);
    text.AddConstraint(GetParam());
    if (OneIn(random, 3)) text.AddConstraint(GetParam());
    CheckText(text, seed);
    if (HasFatalFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Builtins, EachBuiltin, testing::ValuesIn(BuiltinNames()),
                         [](const auto& name) { return std::string(name.param); });

TEST(Builtins, SeveralTogetherHaveTheSolutionsOfAll) {
  const auto names = BuiltinNames();
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(6000); ++seed) {
    Generator random(seed);
    RandomText text(random);
    for (int count = Pick(random, 2, 5); count > 0; --count) {
      text.AddConstraint(PickOf(random, names));
    }
    CheckText(text, seed);
    if (testing::Test::HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace kiv::test
