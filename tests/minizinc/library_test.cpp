// Global constraints reach Kiv as its own where it has them, and mean what MiniZinc's
// decompositions mean.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

#include "tests/minizinc/solver_run.h"
#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

struct Usage {
  const char* name;
  const char* constraint;  // what becomes of the model's
  const char* model;       // over the variables below
};

struct Declaration {
  const char* name;
  const char* text;
};

constexpr Declaration kDeclarations[] = {
    {"x", "array[0..3] of var 0..3: x;\n"},
    {"y", "array[3..5] of var 0..2: y;\n"},
    {"p", "array[0..2] of var bool: p;\n"},
    {"q", "array[1..3] of var bool: q;\n"},
    {"n", "var -1..5: n;\n"},
    {"m", "var -2..4: m;\n"},
    {"b", "var bool: b;\n"},
};

// With the variables that the constraint names, and no others, which would multiply its solutions.
std::string WriteModel(const std::string& constraint) {
  std::string model = "include \"globals.mzn\";\n";
  for (const Declaration& variable : kDeclarations) {
    const std::regex word(std::string("\\b") + variable.name + "\\b");
    if (std::regex_search(constraint, word)) model += variable.text;
  }
  return model + "constraint " + constraint + ";\nsolve satisfy;\n";
}

const Usage kUsages[] = {
    {"AllDifferent", "kiv_all_different", "all_different(x) /\\ all_different(y)"},
    {"AllDifferentExcept0", "kiv_global_cardinality_low_up", "alldifferent_except_0(x)"},
    {"SymmetricAllDifferent", "kiv_inverse", "symmetric_all_different(x)"},
    {"NumberOfValues", "kiv_nvalue", "nvalue(n, x)"},
    {"Count", "kiv_count", "count(x, m, n)"},
    {"CountOfAConstant", "kiv_count", "count(x, 2) = n"},
    {"CountAtMost", "kiv_count", "count_geq(x, m, n)"},
    {"CountLess", "kiv_count", "count_gt(x, m, n)"},
    {"CountAtLeast", "kiv_count", "count_leq(x, m, n)"},
    {"CountMore", "kiv_count", "count_lt(x, m, n)"},
    {"CountOther", "kiv_count", "count_neq(x, m, n)"},
    {"Exactly", "kiv_count", "exactly(2, x, 3)"},
    {"Among", "kiv_among", "among(n, x, {-1, 0, 2, 7})"},
    {"Member", "kiv_count", "member(x, n)"},
    {"GlobalCardinality", "kiv_global_cardinality", "global_cardinality(x, [1, 3, 9], [n, m, 0])"},
    {"ClosedGlobalCardinality", "kiv_global_cardinality_closed",
     "global_cardinality_closed(x, [1, 3], [n, m])"},
    {"LimitedGlobalCardinality", "kiv_global_cardinality_low_up",
     "global_cardinality_low_up(x, [1, 3], [0, 1], [1, 9])"},
    {"ClosedLimitedGlobalCardinality", "kiv_global_cardinality_low_up_closed",
     "global_cardinality_low_up_closed(x, [1, 3], [0, 1], [1, 9])"},
    {"Circuit", "kiv_circuit", "circuit(x)"},
    {"Subcircuit", "kiv_subcircuit", "subcircuit(x)"},
    {"Inverse", "kiv_inverse",
     "inverse(array1d(-1..2, [x[i] | i in 0..3]), array1d(0..3, [y[3], y[4], y[5], n]))"},
    {"LexLess", "kiv_lex_less_int", "lex_less(x, y)"},
    {"LexLessEq", "kiv_lex_lesseq_int", "lex_lesseq(y, x)"},
    {"BooleanLexLess", "kiv_lex_less_bool", "lex_greater(p, q)"},
    {"BooleanLexLessEq", "kiv_lex_lesseq_bool", "lex_lesseq(p, q)"},
    {"LexChain", "kiv_lex_less_int", "lex_chain_less([|x[0], x[1], n|x[2], x[3], m|])"},
    {"Cumulative", "kiv_cumulative",
     "cumulative(x, array1d(0..3, [2, 0, 3, n + 1]), array1d(0..3, [1, 5, 2, 1]), m)"},
    {"Disjunctive", "kiv_disjunctive", "disjunctive(x, array1d(0..3, [1, 0, 2, n + 1]))"},
    {"StrictDisjunctive", "kiv_disjunctive",
     "disjunctive_strict(x, array1d(0..3, [1, 0, 2, n + 1]))"},
    {"Table", "kiv_table_int", "table(array1d(1..3, y), [|0, 1, 2|2, 2, 2|-1, 0, 9|])"},
    {"ReifiedTable", "kiv_table_int_reif", "b <-> table(array1d(1..3, y), [|0, 1, 2|2, 2, 2|])"},
    {"BooleanTable", "kiv_table_bool", "table(q, [|true, false, true|false, false, true|])"},
    {"Regular", "kiv_regular", "regular(x, 2, 3, [|1, 2, 0|2, 2, 1|], 1, {2})"},
    {"RegularOverASet", "kiv_regular",
     "regular(x, 2, 0..2, array2d(1..2, 0..2, [1, 2, 0, 2, 2, 1]), 1, {2})"},
    {"RegularExpression", "kiv_regular", "regular(x, \"1* (2 | 3) 1*\")"},
    {"BinPackingLoad", "kiv_bin_packing_load",
     "bin_packing_load([n, m, 1], x, array1d(0..3, [1, 2, 1, 0]))"},
    {"BinPackingCapacities", "kiv_bin_packing_load",
     "bin_packing_capa([4, 1, 2], x, array1d(0..3, [1, 2, 1, 3]))"},
    {"BinPacking", "kiv_bin_packing_load", "bin_packing(3, x, array1d(0..3, [1, 2, 1, 3]))"},
    {"ValuePrecedes", "kiv_regular", "value_precede(1, 2, x)"},
    {"ValuesPrecede", "kiv_regular", "value_precede_chain([2, 0, 3], x)"},
    {"Maximum", "array_int_maximum", "n = max(x)"},
    {"Minimum", "array_int_minimum", "n = min(y)"},
    {"Element", "kiv_element_int", "x[n] = y[m]"},
    {"BooleanElement", "kiv_element_bool", "p[n]"},
    {"FirstGreatest", "kiv_element_int", "n = arg_max(x)"},
    {"FirstLeast", "kiv_element_int", "n = arg_min(y)"},
    {"NonOverlapping", "kiv_cumulative",
     "diffn(array1d(3..5, [1, 0, n]), y, array1d(3..5, [2, 0, 1]), array1d(3..5, [1, m + 2, 3]))"},
    {"FixedPower", "int_pow_fixed", "pow(m, 3) = n"},
};

class Globals : public testing::TestWithParam<Usage> {};

TEST_P(Globals, AreKivsOwnAndMeanTheSame) {
  const std::filesystem::path file =
      std::filesystem::path(testing::TempDir()) / (std::string("kiv_") + GetParam().name + ".mzn");
  std::ofstream(file) << WriteModel(GetParam().model);

  CommandSettings settings;
  settings.program = KIV_MINIZINC;
  const CommandResult flat = RunKiv({"-c", "--solver", KIV_CONFIGURATION, "--no-output-ozn",
                                     "--output-fzn-to-stdout", file.string()},
                                    settings);
  EXPECT_NE(flat.output.find(std::string("constraint ") + GetParam().constraint + '('),
            std::string::npos)
      << flat.output << flat.errors;

  Instance instance;
  instance.files = {file.string()};
  const SolverRun kiv = Solve(instance, KIV_CONFIGURATION);
  const SolverRun decomposed = Solve(instance, GECODE_STD_CONFIGURATION);
  std::filesystem::remove(file);
  EXPECT_EQ(kiv.answer, decomposed.answer);
  EXPECT_EQ(std::set(kiv.solutions.begin(), kiv.solutions.end()),
            std::set(decomposed.solutions.begin(), decomposed.solutions.end()));
  EXPECT_FALSE(kiv.solutions.empty());
}

INSTANTIATE_TEST_SUITE_P(Library, Globals, testing::ValuesIn(kUsages),
                         [](const auto& usage) { return std::string(usage.param.name); });

}  // namespace
}  // namespace kiv::test
