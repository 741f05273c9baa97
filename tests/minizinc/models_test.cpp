// Models written in MiniZinc have the same answers from Kiv as from Gecode, however their global
// constraints reach Kiv.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

#include "tests/minizinc/instances.h"
#include "tests/minizinc/solver_run.h"

namespace kiv::test {
namespace {

using Solutions = std::set<std::string>;

Solutions SolutionsOf(const SolverRun& run) { return {run.solutions.begin(), run.solutions.end()}; }

// Whether each objective is better than the one before, in either sense.
bool Improve(const std::vector<std::int64_t>& objectives) {
  const auto end = objectives.end();
  return std::adjacent_find(objectives.begin(), end, std::less_equal<>()) == end ||
         std::adjacent_find(objectives.begin(), end, std::greater_equal<>()) == end;
}

// Configurations with options. Builds that check themselves take the plainest alone: the others
// hardly differ in what is checked.
std::vector<std::pair<std::string, std::vector<std::string>>> WaysToRunKiv() {
#ifdef NDEBUG
  return {{KIV_CONFIGURATION, {}}, {KIV_CONFIGURATION, {"-f"}}, {KIV_STD_CONFIGURATION, {}}};
#else
  return {{KIV_CONFIGURATION, {}}};
#endif
}

class MiniZincModels : public testing::TestWithParam<Instance> {
 protected:
  // Whether Gecode, too, takes this assignment for a solution with this objective.
  void CheckWithGecode(const std::string& solution, std::int64_t objective) const {
    const SolverRun check = Solve(GetParam(), GECODE_STD_CONFIGURATION, {"-D", solution});
    EXPECT_EQ(check.answer, "optimum " + std::to_string(objective)) << solution;
  }
};

TEST_P(MiniZincModels, HaveOneAnswer) {
  const SolverRun gecode = Solve(GetParam(), GECODE_STD_CONFIGURATION);
  ASSERT_EQ(gecode.answer, GetParam().answer) << "by Gecode";
  for (const auto& [configuration, options] : WaysToRunKiv()) {
    SCOPED_TRACE(configuration + (options.empty() ? "" : ' ' + options.front()));
    const SolverRun kiv = Solve(GetParam(), configuration, options);
    EXPECT_EQ(kiv.answer, GetParam().answer);
    if (kiv.objectives.empty()) {
      EXPECT_EQ(SolutionsOf(kiv), SolutionsOf(gecode));
      EXPECT_EQ(SolutionsOf(kiv).size(), kiv.solutions.size()) << "a solution occurs twice";
    } else {
      EXPECT_TRUE(Improve(kiv.objectives)) << testing::PrintToString(kiv.objectives);
      CheckWithGecode(kiv.solutions.back(), kiv.objectives.back());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Examples, MiniZincModels, testing::ValuesIn(ReadInstances()),
                         [](const testing::TestParamInfo<Instance>& instance) {
                           return instance.param.name;
                         });

}  // namespace
}  // namespace kiv::test
