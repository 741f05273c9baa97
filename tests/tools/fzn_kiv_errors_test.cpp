// Command lines and texts that fzn-kiv refuses.

#include <gtest/gtest.h>

#include "tests/tools/fzn_kiv.h"

namespace kiv::test {
namespace {

// The message for a text that is refused before any solution.
std::string Refusal(const std::string& text, const std::vector<std::string>& arguments = {}) {
  const CommandResult result = RunFznKiv(text, arguments);
  EXPECT_EQ(result.exit_code, 1) << text;
  EXPECT_EQ(result.output, "") << text;
  return result.errors;
}

TEST(FznKivErrors, NameThePlaceInTheText) {
  EXPECT_TRUE(
      Refusal("var 1..3: x;\n  var 1..: y;\nsolve satisfy;\n").starts_with("<stdin>:2:10: "));
  EXPECT_EQ(Refusal("var 1..3: x;\nconstraint kiv_magic(x);\nsolve satisfy;\n"),
            "<stdin>:2:12: Kiv does not have the constraint 'kiv_magic'\n");
  EXPECT_EQ(Refusal("var 1..3: x;\n\nsolve minimize 1.5;\n"),
            "<stdin>:3:1: the objective is no integer\n");
}

TEST(FznKivErrors, AreToldBeforeAnySolution) {
  // The search would find solutions at once; the array comes behind.
  EXPECT_TRUE(Refusal("var 1..3: x :: output_var;\n"
                      "array [1..1] of var int: a :: output_array = [x]; solve satisfy;\n",
                      {"-a"})
                  .starts_with("<stdin>:2:"));
}

TEST(FznKivErrors, NameTheFile) {
  const CommandResult result = RunScript("$fzn_kiv text1.fzn", {"solve for ever;"});
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_TRUE(result.errors.starts_with("text1.fzn:1:7: ")) << result.errors;
}

TEST(FznKivErrors, AFileMustBeThere) {
  const CommandResult result = RunScript("$fzn_kiv missing.fzn", {});
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.errors, "missing.fzn: No such file or directory\n");
  EXPECT_EQ(RunScript("$fzn_kiv .", {}).exit_code, 1);
}

TEST(FznKivErrors, OptionsMustBeKnownAndTakeNumbers) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--magic"},
                                                    {"-n", "0"},
                                                    {"-n", "x"},
                                                    {"-n", "-1"},
                                                    {"-t", "-5"},
                                                    {"-t", "soon"},
                                                    {"-r", "dice"},
                                                    {"-p", "0"},
                                                    {"second.fzn"}}) {
    const CommandResult result = RunFznKiv("solve satisfy;", arguments);
    EXPECT_EQ(result.exit_code, 1) << arguments[0];
    EXPECT_EQ(result.output, "") << arguments[0];
    EXPECT_NE(result.errors, "") << arguments[0];
  }
}

}  // namespace
}  // namespace kiv::test
