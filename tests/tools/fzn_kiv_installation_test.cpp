// The solver as MiniZinc finds it, in the build tree and installed.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

// Runs MiniZinc on a model with a global constraint, with the solver "kiv" that it finds in
// `solvers`.
void ExpectSolves(const std::filesystem::path& solvers) {
  CommandSettings settings;
  settings.program = "/bin/bash";
  const std::string script = "MZN_SOLVER_PATH='" + solvers.string() +
                             "' '" KIV_MINIZINC
                             "' --solver kiv -a -s --input-from-stdin <<< '"
                             "include \"globals.mzn\"; array[1..4] of var 1..4: x;"
                             "constraint all_different(x); constraint x[1] > 3; solve satisfy;'";
  const CommandResult result = RunKiv({"-c", script}, settings);
  EXPECT_EQ(result.exit_code, 0) << result.errors;
  EXPECT_NE(result.output.find("x = [4, 1, 2, 3];\n----------\n"), std::string::npos)
      << result.output << result.errors;
  EXPECT_NE(result.output.find("==========\n"), std::string::npos);
  EXPECT_NE(result.output.find("%%%mzn-stat: solutions=6\n"), std::string::npos);
  // One constraint, so that the definitions of Kiv's own library were taken.
  EXPECT_NE(result.output.find("%%%mzn-stat: propagators=1\n"), std::string::npos);
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
