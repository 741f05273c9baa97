#include "tests/minizinc/solver_run.h"

#include <utility>

#include "tests/tools/run_command.h"

namespace kiv::test {
namespace {

// What a run takes at most, on a machine that is busy with other tests. MiniZinc ends the solver
// before it is ended itself.
constexpr unsigned kSeconds = 100;

std::string Describe(const SolverRun& run, const std::string& end) {
  if (end == "=====UNSATISFIABLE=====" && run.solutions.empty()) return "no solution";
  if (end != "==========" || run.solutions.empty()) {
    return std::to_string(run.solutions.size()) + " solutions, not to the end";
  }
  if (!run.objectives.empty()) return "optimum " + std::to_string(run.objectives.back());
  return run.solutions.size() == 1 ? "1 solution"
                                   : std::to_string(run.solutions.size()) + " solutions";
}

}  // namespace

SolverRun Solve(const Instance& instance, const std::string& configuration,
                const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {
      "--solver",           configuration,   "-a",
      "--non-unique",       "--output-mode", "dzn",
      "--output-objective", "--time-limit",  std::to_string(1000 * kSeconds)};
  arguments.insert(arguments.end(), options.begin(), options.end());
  arguments.insert(arguments.end(), instance.files.begin(), instance.files.end());
  CommandSettings settings;
  settings.program = KIV_MINIZINC;
  settings.seconds = kSeconds + 10;
  const CommandResult result = RunKiv(arguments, settings);

  SolverRun run;
  if (result.exit_code != 0) {
    run.answer = "exit code " + std::to_string(result.exit_code) + ": " + result.errors;
    return run;
  }
  const std::string objective = "_objective = ";
  std::string solution;
  for (const std::string& line : Lines(result.output)) {
    if (line == "----------") {
      run.solutions.push_back(std::exchange(solution, ""));
    } else if (line.starts_with(objective)) {
      run.objectives.push_back(std::stoll(line.substr(objective.size())));
    } else {
      solution += line + '\n';
    }
  }
  if (!solution.empty()) solution.pop_back();
  run.answer = Describe(run, solution);
  return run;
}

}  // namespace kiv::test
