#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "solver/search/tree_search.h"
#include "tools/kiv/commands.h"
#include "tools/kiv/json_output.h"
#include "tools/kiv/progress_line.h"
#include "tools/kiv/solution_output.h"
#include "tools/kiv/solve_options.h"
#include "tools/kiv/statistics_output.h"
#include "tools/kiv/stop_signal.h"

namespace kiv {
namespace {

using Clock = std::chrono::steady_clock;

// One run of the command on its model.
class SolveRun {
 public:
  SolveRun(const SolveOptions& options, CompiledModel& model)
      : options_(options), model_(model), wanted_(options.CountWanted(model.GetGoal().kind)) {}

  ExitCode Run() {
    SearchOptions search = options_.MakeSearch(model_);
    if (ProgressLine::IsPossible() && !options_.quiet && !options_.trace.UsesStandardError()) {
      search.on_progress = [this](const SearchProgress& progress) { progress_.Show(progress); };
      search.progress_interval = 10;  // it looks at the clock itself
    }
    Trace trace(options_.trace, model_);
    model_.GetNetwork().SetStopFlag(&CatchStopSignals());

    const Clock::time_point start = Clock::now();
    const SearchResult result =
        TreeSearch(model_.GetNetwork(), std::move(search)).Run([this](const SearchLeaf& leaf) {
          return Tell(leaf);
        });
    SolveOutcome outcome = JudgeOutcome(result, model_.GetGoal(), IsEnough());
    outcome.time = Clock::now() - start;
    for (const auto variable : unknowns_) outcome.unknowns.push_back(model_.NameOf(variable));
    progress_.Clear();
    trace.Finish();
    Conclude(outcome);
    return outcome.exit_code;
  }

 private:
  // Whether as much was found as was asked for.
  bool IsEnough() const { return wanted_ && solutions_ + possibilities_ >= *wanted_; }

  bool Tell(const SearchLeaf& leaf) {
    progress_.Clear();
    const std::uint64_t number = ++(leaf.complete ? solutions_ : possibilities_);
    options_.json ? PrintLeafJson(model_, leaf, number) : PrintLeaf(model_, leaf);
    if (!leaf.complete) NoteUnknowns();
    return !IsEnough();
  }

  void NoteUnknowns() {
    for (const KivOmbNetwork::VariableId variable : model_.GetDeclared()) {
      if (!model_.GetNetwork().GetSummary(variable).IsFixed()) unknowns_.insert(variable);
    }
  }

  void Conclude(const SolveOutcome& outcome) const {
    if (options_.json) {
      PrintOutcomeJson(model_, outcome);
    } else {
      PrintEnd(outcome);
    }
    PrintMishap(model_, outcome);
    if (!options_.json && !options_.quiet) PrintCounts(outcome);
    if (options_.statistics) PrintStatistics(model_, outcome);
  }

  const SolveOptions& options_;
  CompiledModel& model_;
  std::optional<std::uint64_t> wanted_;
  std::uint64_t solutions_ = 0;
  std::uint64_t possibilities_ = 0;
  std::set<KivOmbNetwork::VariableId> unknowns_;  // declared variables that stayed Any
  ProgressLine progress_;
};

ExitCode Solve(const SolveOptions& options, const ModuleOptions& modules) {
  const LoadedModel loaded = LoadModel(options.model, modules);
  if (loaded.model == nullptr) return kBadInput;
  return SolveRun(options, *loaded.model).Run();
}

}  // namespace

void AddSolveCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<SolveOptions>();
  CLI::App* command = app.add_subcommand("solve", "Finds solutions of a model");
  options->AddTo(*command);
  command->footer(
      "Prints each solution as lines 'name = value', or as the model shows it, followed by a line\n"
      "'----------', and how many there were on standard error. Where the model minimizes or\n"
      "maximizes, each solution is better than the one before, and '==========' follows the last\n"
      "when it is proved optimal. A possibility in which some variable stays unknown ends with\n"
      "'~~~~~~~~~~' instead and is no solution. Ctrl-C ends the search with what was found.\n"
      "Examples:\n"
      "  kiv solve examples/magic_square.kiv\n"
      "  kiv solve --all examples/queens.kiv -D n=6\n"
      "  kiv solve model.kiv --data data.json -D 'w=[3, 1, 2]'\n"
      "  kiv solve --time-limit 2m --stats model.kiv\n"
      "  kiv solve --strategy dom_w_deg,lower_half --restarts luby:100 model.kiv\n"
      "  kiv solve --json examples/queens.kiv\n"
      "  kiv solve -n 3 - < examples/queens.kiv");
  command->callback([options, &modules, &result] { result = Solve(*options, modules); });
}

}  // namespace kiv
