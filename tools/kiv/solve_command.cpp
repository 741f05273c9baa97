#include <atomic>
#include <cstdint>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "solver/search/bisection_search.h"
#include "tools/kiv/commands.h"
#include "tools/kiv/output.h"
#include "tools/kiv/stop_signal.h"

namespace kiv {
namespace {

constexpr std::uint64_t kNoLimit = std::numeric_limits<std::uint64_t>::max();

struct SolveOptions {
  ModelOptions model;
  bool all = false;
  std::optional<std::uint64_t> limit;

  // How many solutions are asked for; without a word on the command line the model decides.
  std::uint64_t GetLimit(GoalKind goal) const {
    if (limit) return *limit;
    return all || goal != GoalKind::kSatisfy ? kNoLimit : 1;
  }
};

// Prints what a search finds and keeps count.
class SolutionPrinter {
 public:
  SolutionPrinter(const CompiledModel& model, std::uint64_t limit) : model_(model), limit_(limit) {}

  // False when enough was printed.
  bool Print(const SearchLeaf& leaf) {
    if (!Improves(leaf)) return true;
    model_.PrintSolutionOn(std::cout);
    std::cout << (leaf.complete ? "----------\n" : "~~~~~~~~~~\n");
    FlushOutput();
    if (leaf.complete) {
      ++solutions_;
    } else {
      ++possibilities_;
      NoteUnknowns();
    }
    return !IsComplete();
  }

  // Whether as much was printed as was asked for.
  bool IsComplete() const { return solutions_ + possibilities_ >= limit_; }

  // Tells on standard error what was found, and how to end.
  ExitCode Summarize(const SearchResult& result) const {
    if (result.end == SearchEnd::kViolated) {
      std::cerr << "internal error: a solution violates " << DescribeCulprit(result) << '\n';
      return kFailure;
    }
    const bool overflow = result.end == SearchEnd::kOverflow;
    if (overflow) {
      std::cerr << "overflow: beyond the range of integers at " << DescribeCulprit(result) << '\n';
    }
    if (solutions_ > 0) {
      const bool is_optimal = best_ && !overflow && result.end == SearchEnd::kExhausted;
      std::cerr << Count(solutions_, "solution") << (is_optimal ? ", the last is optimal\n" : "\n");
    }
    if (possibilities_ > 0) {
      std::cerr << possibilities_ << (possibilities_ == 1 ? " possibility" : " possibilities")
                << " left unknown: " << DescribeUnknowns() << '\n';
    }
    if (overflow) return kUnknown;
    if (solutions_ > 0) return kSolved;
    if (possibilities_ > 0) return kUnknown;
    std::cerr << "no solution\n";
    return kNoSolution;
  }

  ExitCode SummarizeInterruption() const {
    std::cerr << "interrupted; " << Count(solutions_, "solution") << " so far\n";
    return kInterrupted;
  }

 private:
  // Whether a leaf is to be printed: of solutions with an objective only one that is better than
  // those before.
  bool Improves(const SearchLeaf& leaf) {
    const CompiledModel::Goal& goal = model_.GetGoal();
    if (goal.objective == KivOmbNetwork::kNone || !leaf.complete) return true;
    const std::int64_t value = model_.GetNetwork().GetSummary(goal.objective).lower;
    const bool least = goal.kind == GoalKind::kMinimize;
    if (best_ && (least ? value >= *best_ : value <= *best_)) return false;
    best_ = value;
    return true;
  }

  void NoteUnknowns() {
    const KivOmbNetwork& network = model_.GetNetwork();
    for (const KivOmbNetwork::VariableId variable : model_.GetDeclared()) {
      if (!network.GetSummary(variable).IsFixed()) unknowns_.insert(variable);
    }
  }

  std::string DescribeUnknowns() const {
    if (unknowns_.empty()) return "the value of an expression stays Any";
    std::string names;
    for (const KivOmbNetwork::VariableId variable : unknowns_) {
      if (!names.empty()) names += ", ";
      names += model_.NameOf(variable);
    }
    return names + (unknowns_.size() == 1 ? " stays Any" : " stay Any");
  }

  std::string DescribeCulprit(const SearchResult& result) const {
    return result.culprit ? model_.Describe(*result.culprit) : "an unknown place";
  }

  const CompiledModel& model_;
  std::uint64_t limit_;
  std::uint64_t solutions_ = 0;
  std::uint64_t possibilities_ = 0;
  std::optional<std::int64_t> best_;              // the objective of the last solution printed
  std::set<KivOmbNetwork::VariableId> unknowns_;  // declared variables that stayed Any
};

ExitCode Solve(const SolveOptions& options, const ModuleOptions& modules) {
  const LoadedModel loaded = LoadModel(options.model, modules);
  if (loaded.model == nullptr) return kBadInput;
  CompiledModel& model = *loaded.model;

  model.GetNetwork().SetStopFlag(&CatchStopSignals());
  SolutionPrinter printer(model, options.GetLimit(model.GetGoal().kind));
  BisectionSearch search(model.GetNetwork(), model.GetDeclared());
  const SearchResult result =
      search.Run([&printer](const SearchLeaf& leaf) { return printer.Print(leaf); });
  if (result.end == SearchEnd::kStopped && !printer.IsComplete()) {
    return printer.SummarizeInterruption();
  }
  return printer.Summarize(result);
}

}  // namespace

void AddSolveCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<SolveOptions>();
  CLI::App* command = app.add_subcommand("solve", "Finds solutions of a model");
  options->model.AddTo(*command);
  CLI::Option* all = command->add_flag("-a,--all", options->all, "Finds all solutions");
  command->add_option("-n,--solutions", options->limit, "Finds at most so many solutions")
      ->type_name("N")
      ->check(CLI::PositiveNumber)
      ->excludes(all);
  command->footer(
      "Prints each solution as lines 'name = value', or as the model shows it, followed by a line\n"
      "'----------', and how many there were on standard error. Where the model minimizes or\n"
      "maximizes, each solution is better than the one before. A possibility in which some\n"
      "variable stays unknown ends with '~~~~~~~~~~' instead and is no solution.\n"
      "Examples:\n"
      "  kiv solve examples/magic_square.kiv\n"
      "  kiv solve --all examples/queens.kiv -D n=6\n"
      "  kiv solve model.kiv --data data.json -D 'w=[3, 1, 2]'\n"
      "  kiv solve -n 3 - < examples/queens.kiv");
  command->callback([options, &modules, &result] { result = Solve(*options, modules); });
}

}  // namespace kiv
