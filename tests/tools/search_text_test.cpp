#include "tools/kiv/search_text.h"

#include <gtest/gtest.h>

#include <string>

#include "solver/search/strategy_names.h"
#include "tools/kiv/output.h"

namespace kiv::test {
namespace {

// What the error says about a text that cannot be read; empty when it can.
template <class Parse>
std::string ErrorOf(Parse&& parse, const std::string& text) {
  try {
    parse(text);
  } catch (const InputError& error) {
    return error.what();
  }
  return {};
}

TEST(StrategyText, NamesEveryChoice) {
  for (const std::string& variables : GetVariableChoiceNames()) {
    EXPECT_EQ(ParseStrategy(variables).values, ValueChoice::kSmallest);
    for (const std::string& values : GetValueChoiceNames()) {
      const StrategyChoice choice = ParseStrategy(variables + ',' + values);
      EXPECT_EQ(choice.variables, FindVariableChoice(variables));
      EXPECT_EQ(choice.values, FindValueChoice(values));
    }
  }
  EXPECT_EQ(ParseStrategy("dom_w_deg,upper_half").variables, VariableChoice::kDomWDeg);
  EXPECT_EQ(ParseStrategy("dom_w_deg,upper_half").values, ValueChoice::kUpperHalf);
}

TEST(StrategyText, SuggestsANearName) {
  EXPECT_EQ(ErrorOf(ParseStrategy, "frst_fail"),
            "--strategy frst_fail: unknown choice of variables 'frst_fail'; did you mean "
            "'first_fail'?\n  choices of variables: 'default', 'input_order', 'first_fail', "
            "'anti_first_fail', 'smallest', 'largest', 'most_constrained', 'max_regret', "
            "'dom_w_deg', 'activity'");
  EXPECT_EQ(ErrorOf(ParseStrategy, "activity,smalest"),
            "--strategy activity,smalest: unknown choice of values 'smalest'; did you mean "
            "'smallest'?\n  choices of values: 'smallest', 'greatest', 'lower_half', 'upper_half', "
            "'middle', 'random', 'from_below'");
}

TEST(StrategyText, RefusesOtherForms) {
  for (const char* text : {"", ",", "first_fail,", ",smallest", "first_fail,smallest,middle",
                           "first_fail smallest", "default,smallest"}) {
    EXPECT_NE(ErrorOf(ParseStrategy, text), "") << text;
  }
}

TEST(RestartText, NamesEveryPolicy) {
  EXPECT_EQ(ParseRestarts("none").kind, RestartPolicy::Kind::kNone);
  EXPECT_EQ(ParseRestarts("constant:7").kind, RestartPolicy::Kind::kConstant);
  EXPECT_EQ(ParseRestarts("constant:7").scale, 7u);
  EXPECT_EQ(ParseRestarts("linear:8").kind, RestartPolicy::Kind::kLinear);
  EXPECT_EQ(ParseRestarts("luby:9").kind, RestartPolicy::Kind::kLuby);
  const RestartPolicy geometric = ParseRestarts("geometric:50:1.2");
  EXPECT_EQ(geometric.kind, RestartPolicy::Kind::kGeometric);
  EXPECT_EQ(geometric.scale, 50u);
  EXPECT_EQ(geometric.factor, 1.2);
}

TEST(RestartText, RefusesOtherForms) {
  for (const char* text :
       {"", "none:1", "luby", "luby:", "luby:0", "luby:-1", "luby:x", "luby:1.5", "luby:1:2",
        "luby:99999999999999999999", "geometric:5", "geometric:5:0.5", "geometric:5:nan",
        "geometric:5:inf", "geometric:5:2x", "geometric:5:2:2", "lubi:5"}) {
    EXPECT_EQ(ErrorOf(ParseRestarts, text).rfind("--restarts " + std::string(text) + ": ", 0), 0u)
        << text;
  }
  EXPECT_NE(ErrorOf(ParseRestarts, "lubi:5").find("did you mean 'luby'?"), std::string::npos);
  EXPECT_NE(ErrorOf(ParseRestarts, "geometric:5").find("expected geometric:N:F"),
            std::string::npos);
}

}  // namespace
}  // namespace kiv::test
