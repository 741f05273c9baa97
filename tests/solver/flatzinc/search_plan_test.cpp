#include "solver/flatzinc/search_plan.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "solver/flatzinc/error.h"
#include "solver/search/tree_search.h"
#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

using flatzinc::PlanSearch;
using flatzinc::SearchPlan;
using Variables = std::vector<KivOmbNetwork::VariableId>;

// Runs the plan and counts what it finds.
SearchStatistics Search(PostedText& text, const SearchPlan& plan) {
  const SearchResult result =
      TreeSearch(text.network, plan.options).Run([](const SearchLeaf&) { return true; });
  EXPECT_EQ(result.end, SearchEnd::kExhausted);
  return result.statistics;
}

TEST(SearchPlan, WithoutAnnotationsItIsTheDefaultSearchOfWhatIsDeclared) {
  PostedText text(
      "var 1..3: x; var 1..3: i :: var_is_introduced; var bool: b;\n"
      "solve satisfy;");
  const SearchPlan plan = PlanSearch(text.builder, {});
  ASSERT_EQ(plan.options.strategy.size(), 1u);
  EXPECT_EQ(plan.options.strategy[0].variables, (Variables{text.Find("x"), text.Find("b")}));
  EXPECT_EQ(plan.options.strategy[0].variable_choice, VariableChoice::kDomWDeg);
  EXPECT_NE(plan.options.restarts.kind, RestartPolicy::Kind::kNone);
  EXPECT_TRUE(plan.options.complete_once);
}

TEST(SearchPlan, AllSolutionsNeedNoRestarts) {
  PostedText text("var 1..3: x; solve satisfy;");
  EXPECT_EQ(PlanSearch(text.builder, {.free = false, .all = true}).options.restarts.kind,
            RestartPolicy::Kind::kNone);
  PostedText optimisation("var 1..3: x; solve maximize x;");
  EXPECT_NE(PlanSearch(optimisation.builder, {.free = false, .all = true}).options.restarts.kind,
            RestartPolicy::Kind::kNone);
}

TEST(SearchPlan, AnnotatedVariablesGoFirstThenTheOthersThatAreDeclared) {
  PostedText text(
      "var 1..3: x; var 1..3: i :: var_is_introduced; var 1..3: y;\n"
      "solve :: int_search([y, i], input_order, indomain_max, complete) satisfy;");
  const SearchPlan plan = PlanSearch(text.builder, {});
  ASSERT_EQ(plan.options.strategy.size(), 2u);
  EXPECT_EQ(plan.options.strategy[0].variables, (Variables{text.Find("y"), text.Find("i")}));
  EXPECT_EQ(plan.options.restarts.kind, RestartPolicy::Kind::kNone);
  EXPECT_EQ(Search(text, plan).solutions, 27u);
}

TEST(SearchPlan, AFreeSearchKeepsWhichVariablesDecideAndInWhichDirection) {
  PostedText text(
      "var 1..3: x; var 1..3: y;\n"
      "solve :: int_search([y], input_order, indomain_max, complete) :: restart_none satisfy;");
  const SearchPlan plan = PlanSearch(text.builder, {.free = true, .all = false});
  ASSERT_EQ(plan.options.strategy.size(), 2u);
  EXPECT_EQ(plan.options.strategy[0].variables, Variables{text.Find("y")});
  EXPECT_EQ(plan.options.strategy[0].variable_choice, VariableChoice::kDomWDeg);
  EXPECT_EQ(plan.options.strategy[0].value_choice, ValueChoice::kGreatest);
  EXPECT_NE(plan.options.restarts.kind, RestartPolicy::Kind::kNone);
}

TEST(SearchPlan, AnnotatedRestartsAreFollowedUnlessTheSearchIsFree) {
  PostedText annotated(
      "var 1..3: x;\n"
      "solve :: int_search([x], input_order, indomain, complete) :: restart_luby(7) satisfy;");
  EXPECT_EQ(PlanSearch(annotated.builder, {}).options.restarts.kind, RestartPolicy::Kind::kLuby);
  PostedText alone("var 1..3: x; solve :: restart_none satisfy;");
  EXPECT_EQ(PlanSearch(alone.builder, {}).options.restarts.kind, RestartPolicy::Kind::kNone);
}

TEST(SearchPlan, SolutionsRestartAnOptimisationOnly) {
  PostedText optimisation("var 1..3: x; solve :: restart_on_solution maximize x;");
  EXPECT_TRUE(PlanSearch(optimisation.builder, {}).options.restarts.on_solution);
  PostedText satisfaction("var 1..3: x; solve :: restart_on_solution satisfy;");
  EXPECT_FALSE(PlanSearch(satisfaction.builder, {}).options.restarts.on_solution);
}

TEST(SearchPlan, IntroducedVariablesDoNotMultiplySolutionsUnlessTheyArePrinted) {
  PostedText hidden("var 1..3: x; var 1..5: i :: var_is_introduced; solve satisfy;");
  EXPECT_EQ(Search(hidden, PlanSearch(hidden.builder, {})).solutions, 3u);
  PostedText printed("var 1..3: x; var 1..5: i :: var_is_introduced :: output_var; solve satisfy;");
  EXPECT_EQ(Search(printed, PlanSearch(printed.builder, {})).solutions, 15u);
  PostedText in_array(
      "var 1..3: x; var 1..5: i :: var_is_introduced;\n"
      "array [1..2] of var int: a :: output_array([1..2]) = [i, 7]; solve satisfy;");
  EXPECT_EQ(Search(in_array, PlanSearch(in_array.builder, {})).solutions, 15u);
}

TEST(SearchPlan, AnIntroducedObjectiveIsOptimised) {
  PostedText text(
      "var 1..3: x; var 0..9: i :: var_is_introduced; constraint int_le(i, x);\n"
      "solve :: int_search([x], input_order, indomain_min, complete) maximize i;");
  const SearchPlan plan = PlanSearch(text.builder, {});
  const SearchResult result =
      TreeSearch(text.network, plan.options).Run([](const SearchLeaf&) { return true; });
  EXPECT_EQ(result.best, 3);
}

TEST(SearchPlan, AConstantObjectiveIsOptimalAtOnce) {
  PostedText text("var 1..3: x; solve minimize 7;");
  const SearchPlan plan = PlanSearch(text.builder, {});
  EXPECT_EQ(Search(text, plan).solutions, 1u);
}

TEST(SearchPlan, AnObjectiveMustBeAnInteger) {
  PostedText text("var 1..3: x; solve minimize 1.5;");
  EXPECT_THROW(PlanSearch(text.builder, {}), flatzinc::Error);
}

}  // namespace
}  // namespace kiv::test
