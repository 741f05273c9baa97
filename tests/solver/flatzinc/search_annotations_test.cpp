#include "solver/flatzinc/search_annotations.h"

#include <gtest/gtest.h>

#include "tests/solver/flatzinc/posted_text.h"

namespace kiv::test {
namespace {

using flatzinc::AnnotatedSearch;
using Remarks = std::vector<std::string>;
using Variables = std::vector<KivOmbNetwork::VariableId>;

// Three integers and two booleans, and an array that has a constant as well.
const std::string kVariables =
    "array [1..4] of var int: xs = [x, 5, y, z];\n"
    "var bool: b; var bool: c;\n";
const std::string kIntegers = "var 1..9: x; var 1..9: y; var 1..9: z;\n";

PostedText Annotated(const std::string& annotations) {
  return PostedText(kIntegers + kVariables + "solve " + annotations + " satisfy;");
}

AnnotatedSearch Read(const std::string& annotations) {
  return flatzinc::ReadSearchAnnotations(Annotated(annotations).builder);
}

TEST(SearchAnnotations, ABlockHasItsVariablesWithoutConstants) {
  const PostedText text = Annotated(":: int_search(xs, first_fail, indomain_max, complete)");
  const AnnotatedSearch search = flatzinc::ReadSearchAnnotations(text.builder);
  ASSERT_EQ(search.strategy.size(), 1u);
  EXPECT_EQ(search.strategy[0].variables,
            (Variables{text.Find("x"), text.Find("y"), text.Find("z")}));
  EXPECT_EQ(search.strategy[0].variable_choice, VariableChoice::kFirstFail);
  EXPECT_EQ(search.strategy[0].value_choice, ValueChoice::kGreatest);
  EXPECT_EQ(search.warnings, Remarks());
  EXPECT_EQ(search.remarks, Remarks());
  EXPECT_EQ(search.restarts, std::nullopt);
}

TEST(SearchAnnotations, ABooleanSearchMayListItsVariables) {
  const PostedText text =
      Annotated(":: bool_search([c, true, b], largest, indomain_min, complete)");
  const AnnotatedSearch search = flatzinc::ReadSearchAnnotations(text.builder);
  ASSERT_EQ(search.strategy.size(), 1u);
  EXPECT_EQ(search.strategy[0].variables, (Variables{text.Find("c"), text.Find("b")}));
  EXPECT_EQ(search.strategy[0].variable_choice, VariableChoice::kLargest);
}

TEST(SearchAnnotations, SequencesAreReadInOrderToAnyDepth) {
  const PostedText text = Annotated(
      ":: seq_search([int_search([x], input_order, indomain_min, complete),"
      " seq_search([seq_search([]), bool_search([b], input_order, indomain_max, complete)]),"
      " int_search([z], smallest, indomain_split, complete)])"
      " :: int_search([y], input_order, indomain_min)");
  const AnnotatedSearch search = flatzinc::ReadSearchAnnotations(text.builder);
  Variables firsts;
  for (const StrategyBlock& block : search.strategy) firsts.push_back(block.variables.at(0));
  EXPECT_EQ(firsts, (Variables{text.Find("x"), text.Find("b"), text.Find("z"), text.Find("y")}));
}

TEST(SearchAnnotations, KnowEveryChoiceOfVariables) {
  const std::pair<const char*, VariableChoice> kChoices[] = {
      {"input_order", VariableChoice::kInputOrder},
      {"first_fail", VariableChoice::kFirstFail},
      {"anti_first_fail", VariableChoice::kAntiFirstFail},
      {"smallest", VariableChoice::kSmallest},
      {"largest", VariableChoice::kLargest},
      {"occurrence", VariableChoice::kOccurrence},
      {"most_constrained", VariableChoice::kMostConstrained},
      {"max_regret", VariableChoice::kMaxRegret},
      {"dom_w_deg", VariableChoice::kDomWDeg}};
  for (const auto& [name, choice] : kChoices) {
    const auto search = Read(std::string(":: int_search(xs, ") + name + ", indomain, complete)");
    ASSERT_EQ(search.strategy.size(), 1u);
    EXPECT_EQ(search.strategy[0].variable_choice, choice) << name;
    EXPECT_EQ(search.warnings, Remarks());
  }
}

TEST(SearchAnnotations, KnowEveryChoiceOfValues) {
  const std::pair<const char*, ValueChoice> kChoices[] = {
      {"indomain", ValueChoice::kSmallest},
      {"indomain_min", ValueChoice::kSmallest},
      {"indomain_max", ValueChoice::kGreatest},
      {"indomain_median", ValueChoice::kMedian},
      {"indomain_middle", ValueChoice::kMiddle},
      {"indomain_random", ValueChoice::kRandom},
      {"indomain_split", ValueChoice::kUpToMiddle},
      {"indomain_reverse_split", ValueChoice::kBeyondMiddle},
      {"indomain_interval", ValueChoice::kUpToFirstGap},
      {"outdomain_min", ValueChoice::kButSmallest},
      {"outdomain_max", ValueChoice::kButGreatest}};
  for (const auto& [name, choice] : kChoices) {
    const auto search = Read(std::string(":: int_search(xs, input_order, ") + name + ", complete)");
    ASSERT_EQ(search.strategy.size(), 1u);
    EXPECT_EQ(search.strategy[0].value_choice, choice) << name;
    EXPECT_EQ(search.warnings, Remarks());
  }
}

TEST(SearchAnnotations, UnknownChoicesAreReplacedWithAWarning) {
  const auto search = Read(":: int_search(xs, by_magic, indomain_magic, complete)");
  ASSERT_EQ(search.strategy.size(), 1u);
  EXPECT_EQ(search.strategy[0].variable_choice, VariableChoice::kInputOrder);
  EXPECT_EQ(search.strategy[0].value_choice, ValueChoice::kSmallest);
  EXPECT_EQ(search.warnings,
            (Remarks{"the annotation 'by_magic' is not known; input_order stands for it",
                     "the annotation 'indomain_magic' is not known; indomain_min stands for it"}));
}

TEST(SearchAnnotations, WarmStartsAreIgnoredWithAWarningAndOthersWithARemark) {
  const auto search = Read(":: warm_start(xs, [1, 5, 2, 3]) :: lucky :: relax_and_hope(xs, 3)");
  EXPECT_TRUE(search.strategy.empty());
  EXPECT_EQ(search.warnings, Remarks{"the annotation 'warm_start' is ignored"});
  EXPECT_EQ(search.remarks, (Remarks{"the annotation 'lucky' is ignored",
                                     "the annotation 'relax_and_hope' is ignored"}));
}

TEST(SearchAnnotations, ASearchOfAnotherFormIsIgnoredWithAWarning) {
  const auto search = Read(":: int_search(xs, first_fail) :: int_search(x, first_fail, indomain)");
  EXPECT_TRUE(search.strategy.empty());
  EXPECT_EQ(search.warnings.size(), 2u);
}

RestartPolicy ReadRestarts(const std::string& annotation) {
  const AnnotatedSearch search = Read(":: " + annotation);
  EXPECT_EQ(search.warnings, Remarks()) << annotation;
  return search.restarts.value();
}

TEST(SearchAnnotations, KnowEveryKindOfRestarts) {
  using Kind = RestartPolicy::Kind;
  EXPECT_EQ(ReadRestarts("restart_none").kind, Kind::kNone);
  const RestartPolicy constant = ReadRestarts("restart_constant(70)");
  EXPECT_EQ(constant.kind, Kind::kConstant);
  EXPECT_EQ(constant.scale, 70u);
  const RestartPolicy linear = ReadRestarts("restart_linear(5)");
  EXPECT_EQ(linear.kind, Kind::kLinear);
  EXPECT_EQ(linear.scale, 5u);
  const RestartPolicy luby = ReadRestarts("restart_luby(250)");
  EXPECT_EQ(luby.kind, Kind::kLuby);
  EXPECT_EQ(luby.scale, 250u);
  const RestartPolicy geometric = ReadRestarts("restart_geometric(1.25, 40)");
  EXPECT_EQ(geometric.kind, Kind::kGeometric);
  EXPECT_EQ(geometric.scale, 40u);
  EXPECT_EQ(geometric.factor, 1.25);
  EXPECT_EQ(ReadRestarts("restart_geometric(2, 40)").factor, 2);
}

TEST(SearchAnnotations, RestartsOnSolutionsComeWithOthersOrAlone) {
  const auto alone = Read(":: restart_on_solution");
  EXPECT_TRUE(alone.restarts_on_solution);
  EXPECT_EQ(alone.restarts, std::nullopt);
  EXPECT_TRUE(Read(":: restart_luby(9) :: restart_on_solution").restarts_on_solution);
  EXPECT_FALSE(Read(":: restart_luby(9)").restarts_on_solution);
}

TEST(SearchAnnotations, WrongArgumentsOfRestartsAreIgnoredWithAWarning) {
  for (const char* annotation :
       {"restart_luby", "restart_luby(0)", "restart_luby(x)", "restart_constant(1, 2)",
        "restart_geometric(0.5, 10)", "restart_geometric(1.5)", "restart_none(1)"}) {
    const auto search = Read(std::string(":: ") + annotation);
    EXPECT_EQ(search.restarts, std::nullopt) << annotation;
    EXPECT_EQ(search.warnings.size(), 1u) << annotation;
  }
}

}  // namespace
}  // namespace kiv::test
