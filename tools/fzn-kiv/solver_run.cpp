#include "tools/fzn-kiv/solver_run.h"

#include <algorithm>
#include <iostream>
#include <ranges>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "framework/calculator/module_manager.h"
#include "solver/flatzinc/annotations.h"
#include "solver/flatzinc/assumed_bounds.h"
#include "solver/flatzinc/builder.h"
#include "solver/flatzinc/error.h"
#include "solver/flatzinc/poster_table.h"
#include "solver/flatzinc/reader.h"
#include "solver/flatzinc/search_plan.h"
#include "solver/flatzinc/solution_text.h"
#include "solver/flatzinc/unbounded_objective.h"
#include "solver/language/source_text.h"
#include "solver/search/tree_search.h"
#include "tools/kiv/output.h"
#include "tools/kiv/text_input.h"

namespace kiv::fzn {
namespace {

using VariableId = KivOmbNetwork::VariableId;

void Say(const std::string& text) { std::cerr << "fzn-kiv: " << text << '\n'; }
void Warn(const std::string& text) { Say("warning: " + text); }

Vocabulary OpenVocabulary() {
  KivOmbiModuleManager manager;
  if (manager.OpenModule("KivOmbEnumIntegers") == nullptr) {
    throw std::runtime_error(manager.GetError());
  }
  return Vocabulary(manager.GetModules());
}

// A text on its way from variables to an answer. What is wrong with it shows as flatzinc::Error.
class SolverRun {
 public:
  SolverRun(const Options& options, const SourceText& source, const std::atomic<bool>& stop,
            Report& report)
      : options_(options),
        source_(source),
        stop_(stop),
        report_(report),
        vocabulary_(OpenVocabulary()),
        model_(flatzinc::ReadModel(source.GetText())),
        builder_(model_, vocabulary_, network_),
        solution_text_(builder_) {}

  ExitCode Run() {
    flatzinc::PostConstraints(builder_);
    flatzinc::SearchPlan plan = PlanSearch(builder_, {options_.free, options_.all});
    TellPlan(plan);
    report_.BeginSearch(MeasureModel());
    network_.SetStopFlag(&stop_);
    network_.Propagate();
    const auto& objective = plan.options.objective;
    is_unbounded_ = objective && IsUnbounded(*objective, builder_, network_);
    AssumeBounds(plan.options.strategy);
    return Search(std::move(plan.options));
  }

 private:
  void TellPlan(const flatzinc::SearchPlan& plan) const {
    for (const std::string& warning : plan.warnings) Warn(warning);
    if (!options_.verbose) return;
    for (const std::string& remark : plan.remarks) Warn(remark);
    if (options_.threads > 1) Warn("-p is accepted, but there is one thread");
    Say("the network has " + Count(network_.CountVariables(), "variable") + " and " +
        Count(network_.CountConstraints(), "constraint"));
  }

  ModelSize MeasureModel() const {
    const auto is_boolean = [](const flatzinc::Variable& variable) {
      return variable.type == flatzinc::BaseType::kBool;
    };
    const auto booleans = std::ranges::count_if(model_.variables, is_boolean);
    return {model_.variables.size(), static_cast<std::size_t>(booleans),
            network_.CountConstraints()};
  }

  void AssumeBounds(const Strategy& strategy) {
    std::vector<VariableId> in_order;
    for (const StrategyBlock& block : strategy) {
      in_order.insert(in_order.end(), block.variables.begin(), block.variables.end());
    }
    const auto assumptions = flatzinc::AssumeBounds(network_, in_order);
    has_assumptions_ = !assumptions.empty();
    constexpr std::size_t kMostShown = 10;
    for (const flatzinc::AssumedBounds& assumed : assumptions | std::views::take(kMostShown)) {
      Warn("no bounds are known for " + NameOf(assumed.variable) + "; assumed " +
           (assumed.below ? std::to_string(assumed.lower) : "") + ".." +
           (assumed.above ? std::to_string(assumed.upper) : ""));
    }
    if (assumptions.size() > kMostShown) {
      Warn("so for " + Count(assumptions.size() - kMostShown, "further variable"));
    }
  }

  // As the text calls it, rather by a name of the user's than by one of the compiler's.
  std::string NameOf(VariableId variable) const {
    std::string name = "an auxiliary variable";
    for (std::uint32_t i = 0; i < model_.variables.size(); ++i) {
      if (builder_.GetVariable(i) != variable) continue;
      name = model_.names[model_.variables[i].name];
      if (!flatzinc::IsIntroduced(model_, model_.variables[i])) break;
    }
    return name;
  }

  ExitCode Search(SearchOptions search) {
    search.seed = static_cast<std::uint64_t>(options_.seed);
    search.on_progress = [this](const SearchProgress& progress) { NoteProgress(progress); };
    const auto objective = search.objective;
    const SearchResult result =
        TreeSearch(network_, std::move(search)).Run([&](const SearchLeaf& leaf) {
          if (leaf.complete && is_unbounded_) return false;
          if (leaf.complete) TellSolution(objective);
          return !IsEnough() && !stop_;
        });
    NoteStatistics(result.statistics);
    TellMishap(result);
    report_.Conclude(Judge(result));
    return result.end == SearchEnd::kViolated ? kFailure : kNormal;
  }

  void TellSolution(const std::optional<Objective>& objective) {
    solution_.clear();
    solution_text_.AppendTo(solution_, network_);
    std::optional<std::int32_t> value;
    if (objective) value = network_.GetSummary(objective->variable).lower;
    report_.Tell(solution_, value);
  }

  Verdict Judge(const SearchResult& result) const {
    const SearchStatistics& statistics = result.statistics;
    if (is_unbounded_ && statistics.solutions > 0) return Verdict::kUnbounded;
    const bool is_complete =
        result.end == SearchEnd::kExhausted && !has_assumptions_ && statistics.unknowns == 0;
    return is_complete ? Verdict::kComplete : Verdict::kOpen;
  }

  // -n goes before -a.
  bool IsEnough() const {
    if (options_.wanted) return std::cmp_greater_equal(report_.CountSolutions(), *options_.wanted);
    return model_.solve.goal == flatzinc::Solve::Goal::kSatisfy && !options_.all &&
           report_.CountSolutions() > 0;
  }

  // What was propagated before the search counts as well.
  void NoteStatistics(SearchStatistics statistics) {
    statistics.propagations = network_.GetStatistics().runs;
    report_.Note(statistics);
  }

  void NoteProgress(const SearchProgress& progress) {
    NoteStatistics(progress.statistics);
    if (!options_.verbose || Report::Clock::now() < next_progress_) return;
    next_progress_ = Report::Clock::now() + std::chrono::seconds(1);
    Say(Count(progress.statistics.nodes, "node") + ", " +
        Count(progress.statistics.failures, "failure") + ", " +
        Count(progress.statistics.restarts, "restart") + ", depth " +
        std::to_string(progress.depth) +
        (progress.best ? ", best " + std::to_string(*progress.best) : ""));
  }

  void TellMishap(const SearchResult& result) const {
    if (!result.culprit) return;
    const std::string place = source_.DescribePosition(builder_.GetOrigin(*result.culprit));
    if (result.end == SearchEnd::kViolated) {
      std::cerr << place << ": internal error: a solution violates this constraint\n";
    } else {
      std::cerr << place << ": a value is beyond the integers that Kiv computes with\n";
    }
  }

  const Options& options_;
  const SourceText& source_;
  const std::atomic<bool>& stop_;
  Report& report_;
  const Vocabulary vocabulary_;
  const flatzinc::Model model_;
  KivOmbNetwork network_;
  flatzinc::Builder builder_;
  const flatzinc::SolutionText solution_text_;
  bool is_unbounded_ = false;  // the objective, should there be a solution
  bool has_assumptions_ = false;
  std::string solution_;  // the text of the last one
  Report::Clock::time_point next_progress_{};
};

}  // namespace

ExitCode Solve(const Options& options, const std::atomic<bool>& stop, Report& report) {
  std::string text = ReadText(options.file);
  if (text.size() > SourceText::kMaxSize) throw InputError(options.file + ": is too long");
  const SourceText source(options.file == "-" ? "<stdin>" : options.file, std::move(text));
  try {
    return SolverRun(options, source, stop, report).Run();
  } catch (const flatzinc::Error& error) {
    throw InputError(source.DescribePosition(error.GetOffset()) + ": " + error.what());
  }
}
}  // namespace kiv::fzn
