#include "tools/kiv/solve_options.h"

#include <charconv>
#include <utility>

#include "solver/search/default_search.h"
#include "tools/kiv/duration.h"
#include "tools/kiv/output.h"
#include "tools/kiv/search_text.h"

namespace kiv {
namespace {

std::optional<Objective> MakeObjective(const CompiledModel::Goal& goal) {
  if (goal.objective == KivOmbNetwork::kNone) return std::nullopt;
  const bool least = goal.kind == GoalKind::kMinimize;
  return Objective{goal.objective,
                   least ? Objective::Sense::kMinimize : Objective::Sense::kMaximize};
}

// The blocks that the model names, and behind them what else it declares.
Strategy ModelStrategy(const CompiledModel& model) {
  Strategy strategy = model.GetStrategy();
  strategy.push_back(BisectionStrategy(model.GetDeclared()).front());
  return strategy;
}

// Refuses what is no integer from 0 to 2^64 - 1 and nothing else.
CLI::Validator WholeNumber() {
  return CLI::Validator(
      [](std::string& text) -> std::string {
        std::uint64_t number = 0;
        const char* const end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        if (error == std::errc{} && rest == end) return {};
        return "expected a whole number of at most 64 bits, not '" + text + '\'';
      },
      "");
}

}  // namespace

void SolveOptions::AddTo(CLI::App& command) {
  model.AddTo(command);
  CLI::Option* every = command.add_flag("-a,--all", all, "Finds all solutions");
  command.add_option("-n,--solutions", solutions, "Finds at most so many solutions")
      ->type_name("N")
      ->check(WholeNumber())
      ->check(CLI::PositiveNumber.description(""))
      ->excludes(every);
  command
      .add_option("--time-limit", time_limit,
                  "Searches no longer than so many seconds, or 500ms, 2m, 1h")
      ->type_name("TIME");
  command.add_option("--failure-limit", failure_limit, "Ends the search after so many failures")
      ->type_name("N")
      ->check(WholeNumber());
  command.add_option("--node-limit", node_limit, "Ends the search after so many nodes")
      ->type_name("N")
      ->check(WholeNumber());
  command.add_option("--seed", seed, "Where random choices start from (0)")
      ->type_name("N")
      ->check(WholeNumber());
  command
      .add_option("--strategy", strategy,
                  "How to search: default, or VARIABLES[,VALUES] as in first_fail,lower_half")
      ->type_name("STRATEGY");
  command.add_option("--restarts", restarts, "After how many failures the search starts again")
      ->type_name("none|constant:N|linear:N|geometric:N:F|luby:N");
  command.add_flag("--stats", statistics, "Writes statistics to standard error");
  command.add_flag("--json", json, "Writes each solution and the result as a line of JSON");
  command.add_flag("-q,--quiet", quiet, "Writes no counts and no progress");
  trace.AddTo(command);
}

std::optional<std::uint64_t> SolveOptions::CountWanted(GoalKind goal) const {
  if (solutions) return solutions;
  if (all || goal != GoalKind::kSatisfy) return std::nullopt;
  return 1;
}

SearchOptions SolveOptions::MakeSearch(const CompiledModel& compiled) const {
  const auto declared = compiled.GetDeclared();
  const auto objective = MakeObjective(compiled.GetGoal());
  const bool seeks_one = objective || CountWanted(compiled.GetGoal().kind) == 1;
  const bool is_free = strategy.empty() && compiled.GetStrategy().empty();
  SearchOptions search;
  if (strategy == "default" || (is_free && seeks_one)) {
    search = DefaultSearch(declared);
  } else if (is_free) {
    // Every solution is visited anyway: an order that can be told beforehand is worth more.
    search.strategy = BisectionStrategy(declared);
  } else if (strategy.empty()) {
    search.strategy = ModelStrategy(compiled);
  } else {
    const StrategyChoice choice = ParseStrategy(strategy);
    search.strategy = {{declared, choice.variables, choice.values}};
  }
  if (!restarts.empty()) search.restarts = ParseRestarts(restarts);
  search.objective = objective;
  search.seed = seed;
  search.limits.nodes = node_limit;
  search.limits.failures = failure_limit;
  if (!time_limit.empty()) {
    search.limits.time = ParseDuration(time_limit);
    if (!search.limits.time) {
      throw InputError("--time-limit " + time_limit +
                       ": expected a time such as 10, 1.5, 500ms, 2m or 1h");
    }
  }
  return search;
}

}  // namespace kiv
