// The solver as MiniZinc finds it, in the build tree and installed.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

// What MiniZinc prints for a model with a global constraint, with the solver "kiv" that it finds in
// `solvers`.
std::string RunMiniZinc(const std::filesystem::path& solvers, const std::string& options) {
  CommandSettings settings;
  settings.program = "/bin/bash";
  settings.input =
      "include \"globals.mzn\"; array[1..4] of var 1..4: x;\n"
      "constraint all_different(x); constraint x[1] > 3;\n"
      "solve :: int_search(x, input_order, indomain_min) satisfy;\n";
  const std::string script = "MZN_SOLVER_PATH='" + solvers.string() +
                             "' '" KIV_MINIZINC "' --solver kiv --input-from-stdin " + options;
  const CommandResult result = RunKiv({"-c", script}, settings);
  EXPECT_EQ(result.exit_code, 0) << result.errors;
  return result.output;
}

void ExpectSolves(const std::filesystem::path& solvers) {
  const std::string output = RunMiniZinc(solvers, "-a -s");
  EXPECT_TRUE(output.find("x = [4, 1, 2, 3];\n----------\n") != std::string::npos) << output;
  EXPECT_TRUE(output.find("==========\n") != std::string::npos) << output;
  EXPECT_TRUE(output.find("%%%mzn-stat: solutions=6\n") != std::string::npos) << output;
  // The definitions of Kiv's own library are found as well.
  const std::string text = RunMiniZinc(solvers, "-c --output-fzn-to-stdout");
  EXPECT_TRUE(text.find("constraint kiv_all_different(x)") != std::string::npos) << text;
}

TEST(FznKivInstallation, MiniZincFindsTheBuildTree) {
  ExpectSolves(std::filesystem::path(KIV_BUILD_DIR) / "share/minizinc/solvers");
}

TEST(FznKivInstallation, MiniZincFindsAnInstallation) {
  std::string folder = (std::filesystem::temp_directory_path() / "kiv_installed_XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  CommandSettings settings;
  settings.program = KIV_CMAKE;
  for (const char* component : {"libraries", "minizinc"}) {
    const CommandResult result = RunKiv(
        {"--install", KIV_BUILD_DIR, "--component", component, "--prefix", folder}, settings);
    EXPECT_EQ(result.exit_code, 0) << result.errors;
  }
  ExpectSolves(std::filesystem::path(folder) / "share/minizinc/solvers");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace kiv::test
