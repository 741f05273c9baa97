#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "solver/flatzinc/error.h"
#include "tests/solver/flatzinc/solve_text.h"

namespace kiv::test {
namespace {

using Solutions = std::vector<Assignment>;

// The solutions of these statements.
Solutions Solve(const std::string& statements) { return SolveText(statements + " solve satisfy;"); }

// What is said of statements that are refused.
std::string Refusal(const std::string& statements) {
  try {
    Solve(statements);
  } catch (const flatzinc::Error& error) {
    return error.what();
  }
  return "";
}

TEST(BuiltinLimits, ConstantsBeyondAllVariablesAreComparedExactly) {
  EXPECT_EQ(Solve("var 1..2: x; constraint int_le(x, 1000000000000);"), (Solutions{{1}, {2}}));
  EXPECT_EQ(Solve("var 1..2: x; constraint int_le(1000000000000, x);"), Solutions{});
  EXPECT_EQ(Solve("var 1..2: x; constraint int_eq(x, 4294967297);"), Solutions{});
  EXPECT_EQ(Solve("var 1..2: x; constraint int_ne(x, 4294967297);"), (Solutions{{1}, {2}}));
  EXPECT_EQ(Solve("var 1..1: x; var bool: b; constraint int_eq_reif(4294967297, x, b);"),
            (Solutions{{1, 0}}));
  EXPECT_EQ(Solve("var 1..1: x; var bool: b; constraint set_in_reif(x, {-5000000000, 1}, b);"),
            (Solutions{{1, 1}}));
  EXPECT_EQ(Solve("var bool: b; constraint set_in_reif(5000000000, 4000000000..6000000000, b);"),
            (Solutions{{1}}));
}

TEST(BuiltinLimits, ProductsOfCoefficientsDoNotWrap) {
  EXPECT_EQ(Solve("var 0..3: x; constraint int_lin_le([6000000000], [x], 12000000000);"),
            (Solutions{{0}, {1}, {2}}));
  EXPECT_EQ(Solve("var 2000000000..2000000001: x; var 2000000000..2000000001: y;"
                  "constraint int_lin_eq([100000000, 100000000, -1], [x, y, 7], "
                  "399999999999999993);"),
            (Solutions{{2000000000, 2000000000}}));
}

TEST(BuiltinLimits, WhatCannotBeComputedExactlyIsRefused) {
  EXPECT_EQ(Refusal("var 0..3: x; constraint int_lin_le([500000000000000000, 500000000000000000], "
                    "[40, x], 0);"),
            "'int_lin_le' has numbers that do not fit 64 bits");
  EXPECT_EQ(
      Refusal("var 0..3: x; var 0..3: y; constraint int_times(x, 3000000000, y);"),
      "the value 3000000000 is outside the integers -2147483646..2147483646 that Kiv computes "
      "with");
  EXPECT_EQ(
      Refusal("var 1..3: x; var 0..3: y; constraint array_int_element(x, [1, 3000000000], y);"),
      "'array_int_element' has the constant 3000000000, which is outside the integers "
      "-2147483646..2147483646 that Kiv computes with");
}

TEST(BuiltinLimits, ArgumentsOfAnotherNumberOrTypeAreRefused) {
  EXPECT_EQ(Refusal("var bool: a; constraint bool_xor(a);"),
            "'bool_xor' takes 2 or 3 arguments, not 1");
  EXPECT_EQ(Refusal("var bool: a; constraint int_abs(a, 1);"),
            "'int_abs' takes an integer as argument 1");
  EXPECT_EQ(Refusal("var 1..2: x; constraint int_lin_eq([1, 2], [x], 1);"),
            "'int_lin_eq' takes as many coefficients as variables");
  EXPECT_EQ(Refusal("var 1..2: x; constraint int_cube(x, x);"),
            "Kiv does not have the constraint 'int_cube'");
}

TEST(BuiltinLimits, ExtremeOperandsDoNotTrap) {
  EXPECT_EQ(Solve("var int: z; constraint int_div(-2147483646, -1, z);"),
            (Solutions{{2147483646}}));
  EXPECT_EQ(Solve("var int: z; constraint int_mod(-2147483646, -1, z);"), (Solutions{{0}}));
  EXPECT_EQ(Solve("var int: z; constraint int_abs(-2147483646, z);"), (Solutions{{2147483646}}));
  EXPECT_EQ(Solve("var -9..9: z; constraint int_pow(-2, -2147483646, z);"), (Solutions{{0}}));
  EXPECT_EQ(Solve("var -9..9: z; constraint int_pow(-1, -2147483645, z);"), (Solutions{{-1}}));
  EXPECT_EQ(Solve("var -9..9: z; constraint int_pow(0, -1, z);"), Solutions{});
  EXPECT_EQ(Solve("var -9..9: z; constraint int_pow(0, 0, z);"), (Solutions{{1}}));
}

TEST(BuiltinLimits, UnboundedResultsOfFunctionsAreFound) {
  EXPECT_EQ(Solve("var 40000..40001: x; var int: z; constraint int_times(x, x, z);"),
            (Solutions{{40000, 1600000000}, {40001, 1600080001}}));
  EXPECT_EQ(Solve("var {1, 5000}: x; var int: y; var int: z; constraint int_plus(x, 7, y);"
                  "constraint int_max(x, y, z);"),
            (Solutions{{1, 8, 8}, {5000, 5007, 5007}}));
  EXPECT_EQ(Solve("var 1..2: i; var int: z; constraint array_int_element(i, [-70000, 70000], z);"),
            (Solutions{{1, -70000}, {2, 70000}}));
}

TEST(BuiltinLimits, WideDomainsKeepTheirSolutions) {
  EXPECT_EQ(Solve("var -1000000..1000000: x; var 0..2000000: y; constraint int_times(x, x, 49);"
                  "constraint int_abs(x, y);"),
            (Solutions{{-7, 7}, {7, 7}}));
  EXPECT_EQ(Solve("var 1..1000000: x; var bool: b; constraint int_ne_reif(x, 500000, b);"
                  "constraint set_in(x, 499999..500001);"),
            (Solutions{{499999, 1}, {500000, 0}, {500001, 1}}));
}

TEST(BuiltinLimits, EmptyArraysAndSetsMeanWhatTheyMean) {
  EXPECT_EQ(Solve("var bool: r; constraint array_bool_and([], r);"), (Solutions{{1}}));
  EXPECT_EQ(Solve("var bool: r; constraint array_bool_or([], r);"), (Solutions{{0}}));
  EXPECT_EQ(Solve("var bool: r; constraint array_bool_xor([]);"), Solutions{});
  EXPECT_EQ(Solve("var bool: r; constraint bool_clause([], []);"), Solutions{});
  EXPECT_EQ(Solve("var bool: r; constraint bool_clause_reif([], [], r);"), (Solutions{{0}}));
  EXPECT_EQ(Solve("var bool: r; constraint int_lin_eq_reif([], [], 0, r);"), (Solutions{{1}}));
  EXPECT_EQ(Solve("var 1..1: x; constraint set_in(x, {});"), Solutions{});
  EXPECT_EQ(Solve("var 1..1: x; var bool: r; constraint set_in_reif(x, 1..0, r);"),
            (Solutions{{1, 0}}));
  EXPECT_EQ(Solve("var 1..1: x; constraint array_int_element(x, [], 3);"), Solutions{});
  EXPECT_EQ(Solve("var 1..1: x; var bool: r; constraint array_int_maximum_reif(x, [], r);"),
            (Solutions{{1, 0}}));
}

// A solution beyond what variables hold must not be denied.
TEST(BuiltinLimits, AnUnboundedVariableThatMustBeBeyondAllIsNoContradiction) {
  for (const char* constraint : {"int_eq(x, 4294967297)", "int_le(1000000000000, x)",
                                 "int_lin_le([-1], [x], -1000000000000)"}) {
    EXPECT_THROW(Solve("var int: x; constraint " + std::string(constraint) + ';'),
                 std::runtime_error)
        << constraint;
  }
}

}  // namespace
}  // namespace kiv::test
