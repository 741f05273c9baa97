#include <CLI/CLI.hpp>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "tools/fzn-kiv/options.h"
#include "tools/fzn-kiv/report.h"
#include "tools/fzn-kiv/solver_run.h"
#include "tools/fzn-kiv/watchdog.h"
#include "tools/kiv/output.h"

namespace kiv::fzn {
namespace {

using Clock = Watchdog::Clock;

// The end of the time; none for a limit that the clock cannot count to.
std::optional<Clock::time_point> DeadlineOf(const Options& options, Clock::time_point start) {
  using std::chrono::milliseconds;
  if (!options.time_limit) return std::nullopt;
  const auto most = std::chrono::floor<milliseconds>(Clock::time_point::max() - start).count();
  if (*options.time_limit >= most) return std::nullopt;
  return start + milliseconds(*options.time_limit);
}

ExitCode Fail(const char* what, ExitCode code) {
  std::cerr << "fzn-kiv: " << what << '\n';
  return code;
}

ExitCode Run(const Options& options, Clock::time_point start) {
  const bool any_solution = options.all || options.intermediate || options.wanted;
  Report report({start, options.statistics, !any_solution});
  const Watchdog watchdog(DeadlineOf(options, start), [&report] {
    try {
      report.Abandon();
    } catch (const OutputError&) {
      // Nobody is left to be told.
    }
    std::_Exit(kNormal);
  });
  try {
    return Solve(options, watchdog.GetStopFlag(), report);
  } catch (const std::bad_alloc&) {
    report.Conclude(Verdict::kOpen);
    return Fail("out of memory", kFailure);
  }
}

ExitCode Main(int argc, char** argv) {
  const Clock::time_point start = Clock::now();
  CLI::App app("Solves models in FlatZinc, the language of solvers behind MiniZinc.", "fzn-kiv");
  app.set_version_flag("--version", "fzn-kiv " KIV_VERSION);
  Options options;
  options.AddTo(app);
  app.footer(
      "Prints solutions as the model annotates them, each followed by a line '----------', and\n"
      "'==========' when there are no others, or no better ones. Without a solution it prints\n"
      "'=====UNSATISFIABLE=====' or '=====UNKNOWN=====', and '=====UNBOUNDED=====' where there is\n"
      "always a better one.\n"
      "Examples:\n"
      "  fzn-kiv model.fzn\n"
      "  fzn-kiv -a -s model.fzn\n"
      "  fzn-kiv -i -t 60000 model.fzn\n"
      "  minizinc --solver kiv -a model.mzn\n"
      "Exit codes: 0 for every answer, 1 bad input, 2 failure.");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    // Asking for help or the version arrives here, too, as a success.
    const bool success = app.exit(error) == 0;
    FlushOutput();
    return success ? kNormal : kBadInput;
  }
  return Run(options, start);
}

}  // namespace
}  // namespace kiv::fzn

int main(int argc, char** argv) {
  // Whoever reads the solutions may have enough of them, which is no error.
  std::signal(SIGPIPE, SIG_DFL);
  try {
    return kiv::fzn::Main(argc, argv);
  } catch (const kiv::InputError& error) {
    std::cerr << error.what() << '\n';
    return kiv::fzn::kBadInput;
  } catch (const kiv::OutputError& error) {
    return kiv::fzn::Fail(error.what(), kiv::fzn::kFailure);
  } catch (const std::exception& error) {
    return kiv::fzn::Fail(error.what(), kiv::fzn::kFailure);
  }
}
