#include "solver/language/model_compiler.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "tests/solver/language/read_model.h"

namespace kiv::test {
namespace {

using Solutions = std::vector<std::string>;

TEST(Models, RelationsChainAsInMathematics) {
  EXPECT_EQ(SolutionsOf("x, y : enum int = [0, 9]; 7 <= x < y <= 9; solve;"),
            (Solutions{"x = 7\ny = 8\n", "x = 7\ny = 9\n", "x = 8\ny = 9\n"}));
  EXPECT_EQ(SolutionsOf("x, y : enum int = [0, 2]; 2 >= x > y <> 0; solve;"),
            (Solutions{"x = 2\ny = 1\n"}));
}

TEST(Models, TheValueOfARelationIsItsRightOperand) {
  EXPECT_EQ(SolutionsOf("x, y, z : enum int = [1, 3]; z = (x < y) + 1; solve;"),
            (Solutions{"x = 1\ny = 2\nz = 3\n"}));
}

TEST(Models, TruthValuesAreEquivalences) {
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 3]; t : bool; t = (x >== 2); solve;"),
            (Solutions{"x = 1\nt = false\n", "x = 2\nt = true\n", "x = 3\nt = true\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 3]; (x == 2) = false; solve;"),
            (Solutions{"x = 1\n", "x = 3\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 3]; true = (x << 2); solve;"), (Solutions{"x = 1\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 3]; t : bool = true; t = (x <== 1); solve;"),
            (Solutions{"x = 1\nt = true\n"}));
}

TEST(Models, AStatementAssertsItsTruthValue) {
  const std::string variables = "x, y : enum int = [1, 2]; t : bool; ";
  EXPECT_EQ(SolutionsOf(variables + "x == 1 and y == 2; t; solve;"),
            (Solutions{"x = 1\ny = 2\nt = true\n"}));
  EXPECT_EQ(SolutionsOf(variables + "not (x == 1 or y == 2 or t); solve;"),
            (Solutions{"x = 2\ny = 1\nt = false\n"}));
  EXPECT_EQ(SolutionsOf(variables + "x == 1 => y == 2 => t; x < 2; solve;").size(), 3u);
  EXPECT_EQ(SolutionsOf("a[2] : bool; for i in 1..2 { a[i]; } solve;"),
            (Solutions{"a = [true, true]\n"}));
  EXPECT_EQ(SolutionsOf("t : bool; true; t; solve;"), (Solutions{"t = true\n"}));
  EXPECT_EQ(SolutionsOf("t : bool; false; solve;"), Solutions{});
  EXPECT_EQ(SolutionsOf("t : bool; t; not t; solve;"), Solutions{});
}

TEST(Models, ImplicationsApplyFromTheRight) {
  // From the left, false => a => false would not hold, whatever a.
  EXPECT_EQ(SolutionsOf("a, b : bool; b => a => b; not b; solve;"),
            (Solutions{"a = false\nb = false\n", "a = true\nb = false\n"}));
}

TEST(Models, BooleansAreComparedAndAssertedLikeIntegers) {
  EXPECT_EQ(SolutionsOf("a, b, t : bool; t = a == b; a <> b; solve;"),
            (Solutions{"a = false\nb = true\nt = false\n", "a = true\nb = false\nt = false\n"}));
  EXPECT_EQ(SolutionsOf("a, b : bool; a = b = true; solve;"), (Solutions{"a = true\nb = true\n"}));
}

// How many constraints a model has.
std::size_t CountConstraints(const std::string& text) {
  const SourceText source("m.kiv", text);
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  return model != nullptr ? model->GetNetwork().CountConstraints() : 1000;
}

TEST(Models, ConstantTruthsAreComputedAtOnce) {
  for (const char* same : {"t and true", "false or t", "t xor false", "true => t", "t == true",
                           "not t => 1 == 2", "t and 1 << 2", "true == t"}) {
    const std::string model = std::string("t : bool; (") + same + ") = true; solve;";
    EXPECT_EQ(SolutionsOf(model), (Solutions{"t = true\n"})) << same;
    EXPECT_LE(CountConstraints(model), 3u) << same;
  }
  EXPECT_EQ(CountConstraints("t : bool; (t and true) = true; solve;"), 1u);
  EXPECT_EQ(CountConstraints("t : bool; t xor true; solve;"), 1u);
  EXPECT_EQ(CountConstraints("t : bool; t or true; false and t => t; not false; solve;"), 0u);
  EXPECT_EQ(CountConstraints("param n : int = 3; t : bool; n >== 2 or t; solve;"), 0u);
}

TEST(Models, KindsMix) {
  EXPECT_EQ(SolutionsOf("x : enum int = { 1, 4 }; y : interval int = [0, 10]; z : int;"
                        "x + y = 5; z = y - x; solve;"),
            (Solutions{"x = 1\ny = 4\nz = 3\n", "x = 4\ny = 1\nz = -3\n"}));
  EXPECT_EQ(SolutionsOf("x : interval int = [0, 3]; y : enum int = { 2, 9 };"
                        "(interval int) x = y; solve;"),
            (Solutions{"x = 2\ny = 2\n"}));
}

TEST(Models, DivisionTruncatesOrIsExact) {
  EXPECT_EQ(
      SolutionsOf("x : enum int = { -7, 0, 7 }; y : int = 2; q : enum int = [-9, 9];"
                  "q = x div y; solve;"),
      (Solutions{"x = -7\ny = 2\nq = -3\n", "x = 0\ny = 2\nq = 0\n", "x = 7\ny = 2\nq = 3\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = [-7, 7]; x div 3 = -2; solve;"),
            (Solutions{"x = -7\n", "x = -6\n"}));
  EXPECT_EQ(SolutionsOf("x : int = 7; y : enum int = [-1, 1]; q : int; q = x div y; solve;"),
            (Solutions{"x = 7\ny = -1\nq = -7\n", "x = 7\ny = 1\nq = 7\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 3]; x div 0 = x; solve;"), Solutions{});
  EXPECT_EQ(SolutionsOf("x : int = -7 div 2 - 100 div 7 div 2; solve;"), (Solutions{"x = -10\n"}));
}

TEST(Models, ProductsWithAConstantScale) {
  EXPECT_EQ(SolutionsOf("x : enum int = [0, 9]; y : interval int = [0, 99]; 3*x = y*2; 7 < y;"
                        "x*0 = 0; solve;"),
            (Solutions{"x = 6\ny = 9\n", "x = 8\ny = 12\n"}));
  EXPECT_EQ(SolutionsOf("param n : int = 2; x : enum int = [-3, 3]; (n - 4)*x = 2^n; solve;"),
            (Solutions{"x = -2\n"}));
}

TEST(Models, ConstantsAreComputedAtOnce) {
  EXPECT_EQ(SolutionsOf("param n : int = 3; param m : int = n^2 - 1;"
                        "x : int = -7 mod 3 + m / 2 + abs(-2) + sign -5 + (4 /\\ 3 \\/ 1); solve;"),
            (Solutions{"x = 7\n"}));
  EXPECT_EQ(SolutionsOf("x : int = -2^2; y : int = 2^3^2; z : int = 7 - 2 - 1; solve;"),
            (Solutions{"x = -4\ny = 512\nz = 4\n"}));
  EXPECT_EQ(SolutionsOf("x : int; x = 1 + 2 + 3; solve;"), (Solutions{"x = 6\n"}));
  EXPECT_EQ(SolutionsOf("1 + 1 = 2; 1 < 2 <= 2; solve;"), (Solutions{""}));
  EXPECT_EQ(SolutionsOf("1 + 1 = 3; solve;"), Solutions{});
}

TEST(Models, LoopsPostForEachCombination) {
  EXPECT_EQ(SolutionsOf("param n : int = 3; q[n] : enum int = [1, n];"
                        "for i in 1..n, j in i+1..n { q[i] < q[j]; } solve;"),
            (Solutions{"q = [1, 2, 3]\n"}));
  EXPECT_EQ(SolutionsOf("q[4] : enum int = [0, 1];"
                        "for i in 1..2 { for j in 1..2 { q[2*(i - 1) + j] = (i + j) mod 2; } }"
                        "for i in 3..2 { q[100] = 1; } solve;"),
            (Solutions{"q = [0, 1, 1, 0]\n"}));
}

TEST(Models, LoopsEndAtTheGreatestInteger) {
  EXPECT_EQ(SolutionsOf("x : int = 1;"
                        "for i in 9223372036854775806..9223372036854775807 { x < 2; } solve;"),
            (Solutions{"x = 1\n"}));
}

TEST(Models, AllDifferentSpreadsArrays) {
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 3]; c[2] : enum int = [1, 2];"
                        "all_different(x, c, 4, c[1] + 4); c[1] < c[2]; solve;"),
            (Solutions{"x = 3\nc = [1, 2]\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = [1, 2]; all_different(x, x); solve;"), Solutions{});
  EXPECT_EQ(SolutionsOf("x : int = 1; e[0] : int; all_different(); all_different(e); "
                        "all_different(x); solve;"),
            (Solutions{"x = 1\ne = []\n"}));
}

TEST(Models, DomainsAreWhatIsDeclared) {
  EXPECT_EQ(SolutionsOf("x : interval int = { 5, -1, 5, 3 }; solve;"),
            (Solutions{"x = -1\n", "x = 3\n", "x = 5\n"}));
  EXPECT_EQ(SolutionsOf("x : enum int = { -2147483646, 2147483646 }; solve;"),
            (Solutions{"x = -2147483646\n", "x = 2147483646\n"}));
  EXPECT_EQ(PropagationOf("x : interval int = [-2147483646, 2147483646]; y : enum int = Any;"
                          "z : int; t : bool; u : bool = false; solve;"),
            "x = [-2147483646, 2147483646]\ny = Any\nz = Any\nt = Any\nu = false\n");
}

TEST(Models, ParametersCanBeGiven) {
  CompileOptions options;
  options.parameters = {{"n", 5}};
  EXPECT_EQ(SolutionsOf("param n : int = 3; param m : int = 2*n; x : int = m; solve;", options),
            (Solutions{"x = 10\n"}));
  options.parameters = {{"k", 5}};
  EXPECT_EQ(ErrorsOf("param n : int = 3; solve;", options),
            "m.kiv: error: the model has no parameter 'k'\n  parameters: 'n'\n");
  options.parameters = {{"n", 1}};
  EXPECT_EQ(ErrorsOf("n : int = 3; solve;", options),
            "m.kiv: error: the model has no parameter 'n'\n  parameters: none\n");
}

TEST(Models, ArraysHaveRowsAndColumns) {
  EXPECT_EQ(SolutionsOf("g[1..2, 0..2] : enum int = 1..6; all_different(g);"
                        "for i in 1..2 { g[i, 0] < g[i, 1] < g[i, 2]; }"
                        "for j in 0..2 { g[1, j] < g[2, j]; } g[2, 0] = 4; solve;"),
            (Solutions{"g = [[1, 2, 3],\n     [4, 5, 6]]\n"}));
  // A column crosses the rows.
  EXPECT_EQ(SolutionsOf("g[2, 2] : enum int = 1..2; all_different(g[1, *]); all_different(g[*, 2]);"
                        "g[1, 1] = 1; g[2, 1] = 1; solve;"),
            (Solutions{"g = [[1, 2],\n     [1, 1]]\n"}));
  EXPECT_EQ(SolutionsOf("e[3, 0] : int; f[0, 3] : int; all_different(f[*, 2], e[2, *]); solve;"),
            (Solutions{"e = [[],\n     [],\n     []]\nf = []\n"}));
}

TEST(Models, ListsSpreadTheirElements) {
  EXPECT_EQ(SolutionsOf("x, y : enum int = 1..2; all_different([x, 3, [y]]); x < y; solve;"),
            (Solutions{"x = 1\ny = 2\n"}));
  EXPECT_EQ(SolutionsOf("q[3] : enum int = 1..3; q[1] > q[2] > q[3];"
                        "all_different([q[i] + i | i in 1..3 where i <> 2], 9); solve;"),
            Solutions{});
}

TEST(Models, GeneratorsRunThroughSetsAndArrays) {
  EXPECT_EQ(
      SolutionsOf("param s : set = { 4, 1 }; param w[3] : int = [5, 2, 5];"
                  "x : int = sum(i in s)(10*i); y : int = sum(i in w)(i);"
                  "z : int = sum(i in { k*k | k in 1..3 }, j in i..5 where j > 3)(j); solve;"),
      (Solutions{"x = 50\ny = 12\nz = 18\n"}));
  EXPECT_EQ(SolutionsOf("x : int = sum(i in 1..0)(i); y : int = product(i in 1..0)(i); solve;"),
            (Solutions{"x = 0\ny = 1\n"}));
  EXPECT_EQ(SolutionsOf("x : int = max(i in 1..4)(i * (5 - i)) - min(i in 1..4)(i - 3); solve;"),
            (Solutions{"x = 8\n"}));
}

TEST(Models, AggregatesOfVariablesConstrain) {
  EXPECT_EQ(SolutionsOf("q[3] : enum int = 0..2; sum(i in 1..3)(q[i]) = 1;"
                        "forall(i in 1..2)(q[i] <= q[i + 1]); solve;"),
            (Solutions{"q = [0, 0, 1]\n"}));
  EXPECT_EQ(SolutionsOf("q[2] : enum int = 0..1; exists(i in 1..2)(q[i] == 1);"
                        "t : bool; t = forall(i in 1..2)(q[i] == 1); t = false; q[1] = 0; solve;"),
            (Solutions{"q = [0, 1]\nt = false\n"}));
}

TEST(Models, ConditionsChoose) {
  const std::string model =
      "param n : int = 3; param b : bool = false; param s : set = { 1, 3 };"
      "x, y : enum int = 0..9;"
      "if n in s and not (n = 1) { x = 1; } else if b { x = 2; } else { x = 3; }"
      "y = if b or n > 5 then 7 else 8; solve;";
  EXPECT_EQ(SolutionsOf(model), (Solutions{"x = 1\ny = 8\n"}));
  CompileOptions options;
  options.parameters = {{"n", 1}, {"b", true}};
  EXPECT_EQ(SolutionsOf(model, options), (Solutions{"x = 2\ny = 7\n"}));
  options.parameters = {{"n", 1}};
  EXPECT_EQ(SolutionsOf(model, options), (Solutions{"x = 3\ny = 8\n"}));
}

TEST(Models, ConditionsOfGeneratorsLeaveOut) {
  EXPECT_EQ(
      SolutionsOf("q[4] : enum int = 0..1;"
                  "for i in 1..4, j in 1..4 where i < j and i + j = 5 { q[i] < q[j]; } solve;"),
      (Solutions{"q = [0, 0, 1, 1]\n"}));
}

TEST(Models, ParametersHaveAllShapes) {
  const std::string model =
      "param w[] : int; param a[2, ] : int = [[1, 2, 3], [4, 5, 6]]; param t[2] : bool;"
      "param s : set; c[size(w)] : enum int = s; x : int = a[2, 3] + size(a) + size(a, 2);"
      "b : bool = t[2]; forall(i in 1..size(w))(c[i] = w[i]); solve;";
  CompileOptions options;
  options.parameters = {{"w", ParameterList{std::int64_t{3}, std::int64_t{1}}},
                        {"t", ParameterList{true, false}},
                        {"s", ParameterList{std::int64_t{3}, std::int64_t{1}}}};
  EXPECT_EQ(SolutionsOf(model, options), (Solutions{"c = [3, 1]\nx = 15\nb = false\n"}));
  options.parameters.insert_or_assign("w", ParameterValue(true));
  EXPECT_EQ(
      ErrorsOf(model, options).substr(0, 84),
      "m.kiv:1:7: error: the value given for 'w' is true; expected a list\n  param w[] : int");
}

TEST(Models, SetsAreDomains) {
  EXPECT_EQ(SolutionsOf("param s : set = { 5, 1 }; param w[2] : int = [2, 2]; x : enum int = s;"
                        "y : enum int = w; z : interval int = { 2*i | i in 1..2 }; x > z; solve;"),
            (Solutions{"x = 5\ny = 2\nz = 2\n", "x = 5\ny = 2\nz = 4\n"}));
}

TEST(Models, TellTheirGoalAndStrategy) {
  const SourceText source("m.kiv",
                          "x, y : enum int = 1..3; q[2] : enum int = 1..3;"
                          "branch on y, q by max_regret, upper_half; branch on x by smallest;"
                          "maximize x;");
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  ASSERT_NE(model, nullptr);
  EXPECT_EQ(model->GetGoal().kind, GoalKind::kMaximize);
  EXPECT_EQ(model->GetGoal().objective, 0u);
  ASSERT_EQ(model->GetStrategy().size(), 2u);
  EXPECT_EQ(model->GetStrategy()[0].variables, (std::vector<KivOmbNetwork::VariableId>{1, 2, 3}));
  EXPECT_EQ(model->GetStrategy()[0].variable_choice, VariableChoice::kMaxRegret);
  EXPECT_EQ(model->GetStrategy()[0].value_choice, ValueChoice::kUpperHalf);
  EXPECT_EQ(model->GetStrategy()[1].variable_choice, VariableChoice::kSmallest);
  EXPECT_EQ(model->GetStrategy()[1].value_choice, ValueChoice::kSmallest);
}

TEST(Models, ShowWhatTheySay) {
  const auto shown = [](const std::string& show) {
    const SourceText source("m.kiv",
                            "param n : int = 2; param b : bool = true; x : int = 3;"
                            "g[2, 2] : enum int = 7; q[2] : int = 1; solve; " +
                                show);
    Diagnostics diagnostics(source);
    const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
    if (model == nullptr || model->GetNetwork().Propagate() != KivOmbNetwork::Outcome::kFixpoint) {
      return std::string("wrong");
    }
    std::ostringstream out;
    model->PrintSolutionOn(out);
    return out.str();
  };
  EXPECT_EQ(shown(""), "x = 3\ng = [[7, 7],\n     [7, 7]]\nq = [1, 1]\n");
  EXPECT_EQ(shown("show \"x is \", x, \"\\n\";"), "x is 3\n");
  EXPECT_EQ(shown("show g; show \"\\n\", q, g[1, *];"), "7 7\n7 7\n[1, 1][7, 7]\n");
  EXPECT_EQ(shown("show n + 1, \" \", b, \" \", x * 2, \" \", x < 2, \" \", [x, i | i in 1..2];"),
            "wrong");
  EXPECT_EQ(shown("show n + 1, \" \", b, \" \", x * 2, \" \", x < 2, \" \", [i | i in 1..n];"),
            "3 true 6 false [1, 2]\n");
}

TEST(Models, EachConstraintKnowsWhereItComesFrom) {
  const SourceText source("m.kiv",
                          "x : interval int = { 1, 5 };\n"
                          "y : enum int = [0, 9];\n"
                          "x * y\n  = 2*(y - 1);\n"
                          "all_different(x, y);\n"
                          "solve;\n");
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  ASSERT_NE(model, nullptr);
  std::multiset<std::string> origins;
  const KivOmbNetwork& network = model->GetNetwork();
  for (KivOmbNetwork::ConstraintId id = 0; id < network.CountConstraints(); ++id) {
    origins.insert(model->Describe(id));
  }
  EXPECT_EQ(origins, (std::multiset<std::string>{"m.kiv:1:20: { 1, 5 }", "m.kiv:3:1: x * y",
                                                 "m.kiv:3:1: x * y = 2*(y - 1)",
                                                 "m.kiv:5:1: all_different(x, y)"}));
  EXPECT_EQ(model->NameOf(0), "x");
  EXPECT_EQ(model->GetDeclared(), (std::vector<KivOmbNetwork::VariableId>{0, 1}));
}

TEST(Models, NamesElementsOfArrays) {
  const SourceText source("m.kiv", "x : int; q[2] : int; y : int; q[1] + x = 2; solve;");
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  ASSERT_NE(model, nullptr);
  std::vector<std::string> names;
  for (const KivOmbNetwork::VariableId variable : model->GetDeclared()) {
    names.push_back(model->NameOf(variable));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"x", "q[1]", "q[2]", "y"}));
  EXPECT_EQ(model->NameOf(4), "");  // a value of an expression
}

TEST(Models, CompileToTheDepthThatParses) {
  std::string open, close;
  for (int i = 0; i < 99; ++i) {
    open += "1 + (";
    close += ")";
  }
  EXPECT_EQ(
      SolutionsOf("x, y : interval int = [0, 100]; x = " + open + "y" + close + "; y = 1; solve;"),
      (Solutions{"x = 100\ny = 1\n"}));
}

TEST(Models, EqualConstantsShareAVariable) {
  const SourceText source("m.kiv", "x, y : enum int = [1, 9]; x <> 5; y <> 5; x <> 2 + 3; solve;");
  Diagnostics diagnostics(source);
  const auto model = ReadModel(source, StandardVocabulary(), {}, diagnostics);
  ASSERT_NE(model, nullptr);
  EXPECT_EQ(model->GetNetwork().CountVariables(), 3u);
}

}  // namespace
}  // namespace kiv::test
