#include "solver/search/tree_search.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "solver/search/brancher.h"
#include "solver/search/branching.h"
#include "solver/search/nogoods.h"

namespace kiv {

namespace {

using Outcome = KivOmbNetwork::Outcome;

// A search whose nogoods grow beyond it goes on without further restarts.
constexpr std::size_t kMostNogoodLiterals = std::size_t{1} << 24;

// Among solutions that one completion stands for there must be no better ones, so that the
// objective is fixed before anything is completed.
Strategy StrategyOf(const SearchOptions& options) {
  Strategy strategy = options.strategy;
  if (!options.complete_once || !options.objective) return strategy;
  const bool minimize = options.objective->sense == Objective::Sense::kMinimize;
  strategy.push_back({{options.objective->variable},
                      VariableChoice::kInputOrder,
                      minimize ? ValueChoice::kSmallest : ValueChoice::kGreatest});
  return strategy;
}

// One run of a search. Each decision of the path has a level of the network; below them the root of
// the search has one for what objective and nogoods conclude there. The negation of a decision
// holds as long as those before it do, so that it needs no level of its own.
class SearchRun {
 public:
  SearchRun(KivOmbNetwork& network, const SearchOptions& options, const LeafReceiver& on_leaf)
      : network_(network),
        options_(options),
        on_leaf_(on_leaf),
        brancher_(network, StrategyOf(options), options.seed),
        nogoods_(network),
        limits_(options.limits),
        restarts_(options.restarts),
        restart_at_(restarts_.Next()),
        constraint_runs_before_(network.GetStatistics().runs) {
    if (options.objective) bound_.emplace(*options.objective);
  }

  SearchResult Run() {
    const std::size_t level = network_.GetLevel();
    network_.SetDeadline(limits_.GetDeadline());
    const Outcome outcome = network_.Propagate();
    if (outcome == Outcome::kFixpoint) network_.PushLevel();
    root_level_ = network_.GetLevel();
    result_.end = outcome == Outcome::kStopped ? GetReasonOfStop() : Explore();
    network_.SetDeadline(std::nullopt);
    TakeBackTo(level);
    UpdateStatistics();
    if (bound_) result_.best = bound_->GetBest();
    return result_;
  }

 private:
  SearchEnd Explore() {
    while (true) {
      const Outcome outcome = Propagate();
      brancher_.Learn(network_, outcome);
      switch (outcome) {
        case Outcome::kFixpoint:
          if (const auto decision = brancher_.Decide(network_, first_open_)) {
            path_.push_back({.decision = *decision, .first_open = first_open_});
          } else {
            if (const auto end = TellLeaf()) return *end;
            if (options_.complete_once && brancher_.IsEnd(first_open_)) LeaveCompletion();
            if (!Backtrack()) return SearchEnd::kExhausted;
            if (options_.restarts.on_solution && MayRestart()) {
              Restart();
              continue;
            }
          }
          break;
        case Outcome::kContradiction:
          ++Statistics().failures;
          if (!Backtrack()) return SearchEnd::kExhausted;
          if (RestartIsDue()) {
            Restart();
            continue;
          }
          break;
        case Outcome::kOverflow:
          result_.culprit = network_.GetCulprit();
          return SearchEnd::kOverflow;
        case Outcome::kStopped:
          return GetReasonOfStop();
      }
      if (const auto limit = limits_.FindReached(Statistics())) return *limit;
      Enter();
    }
  }

  // Why the network stopped: the flag, unless the time is over.
  SearchEnd GetReasonOfStop() const {
    const auto deadline = limits_.GetDeadline();
    const bool is_over = deadline && KivOmbNetwork::Clock::now() >= *deadline;
    return is_over ? SearchEnd::kTimeLimit : SearchEnd::kStopped;
  }

  // To the common fixpoint of the constraints, the objective's bound and the nogoods.
  Outcome Propagate() {
    while (true) {
      const Outcome outcome = network_.Propagate();
      if (outcome != Outcome::kFixpoint) return outcome;
      const bool bounded = bound_ && bound_->Impose(network_);
      if (!bounded && !nogoods_.Propagate(network_)) return outcome;
    }
  }

  std::optional<SearchEnd> TellLeaf() {
    const SearchLeaf leaf{brancher_.IsEnd(first_open_)};
    result_.culprit = network_.FindViolated();
    if (result_.culprit) return SearchEnd::kViolated;
    ++(leaf.complete ? Statistics().solutions : Statistics().unknowns);
    if (bound_ && leaf.complete) bound_->Record(network_);
    if (!on_leaf_(leaf)) return SearchEnd::kStopped;
    return std::nullopt;
  }

  // Goes back to the last branching on what the strategy names. Where all of that is fixed only the
  // other variables were left to complete.
  void LeaveCompletion() {
    while (!path_.empty() && brancher_.IsBehindStrategy(path_.back().first_open)) {
      if (path_.back().has_level) network_.PopLevel();
      path_.pop_back();
    }
  }

  // Goes back to the last decision that is not refuted yet and above which the objective can still
  // be better, and refutes it. False when there is none.
  bool Backtrack() {
    for (; !path_.empty(); path_.pop_back()) {
      if (path_.back().has_level) network_.PopLevel();
      if (path_.back().refuted || (bound_ && bound_->Excludes(network_))) continue;
      path_.back().refuted = true;
      path_.back().has_level = brancher_.FollowsChanges();
      return true;
    }
    return false;
  }

  // Enters the last branching of the path.
  void Enter() {
    const Branching& branching = path_.back();
    if (branching.has_level) network_.PushLevel();
    Impose(network_, branching.refuted ? Negated(branching.decision) : branching.decision);
    if (bound_) bound_->Impose(network_);
    first_open_ = branching.first_open;
    Statistics().peak_depth = std::max(Statistics().peak_depth, path_.size());
    ++Statistics().nodes;
    const std::uint64_t interval = std::max<std::uint64_t>(options_.progress_interval, 1);
    if (options_.on_progress && Statistics().nodes % interval == 0) {
      UpdateStatistics();
      options_.on_progress(
          {Statistics(), bound_ ? bound_->GetBest() : std::optional<std::int32_t>(), path_.size()});
    }
  }

  bool RestartIsDue() const {
    return restart_at_ && result_.statistics.failures >= *restart_at_ && MayRestart();
  }

  bool MayRestart() const {
    return nogoods_.CountLiterals() + Nogoods::CountLiterals(path_) <= kMostNogoodLiterals;
  }

  void Restart() {
    TakeBackTo(root_level_);
    nogoods_.Learn(network_, path_);
    path_.clear();
    first_open_ = 0;
    ++Statistics().restarts;
    const std::uint64_t failures = Statistics().failures;
    if (const auto next = restarts_.Next()) restart_at_ = failures + std::min(*next, ~failures);
  }

  void TakeBackTo(std::size_t level) {
    while (network_.GetLevel() > level) network_.PopLevel();
  }

  SearchStatistics& Statistics() noexcept { return result_.statistics; }

  void UpdateStatistics() {
    Statistics().nogoods = nogoods_.CountClauses();
    Statistics().propagations = network_.GetStatistics().runs - constraint_runs_before_;
  }

  KivOmbNetwork& network_;
  const SearchOptions& options_;
  const LeafReceiver& on_leaf_;
  Brancher brancher_;
  Nogoods nogoods_;
  std::optional<ObjectiveBound> bound_;
  LimitWatch limits_;
  RestartSequence restarts_;
  std::optional<std::uint64_t> restart_at_;  // so many failures in all
  std::uint64_t constraint_runs_before_;
  std::vector<Branching> path_;
  std::size_t first_open_ = 0;  // as the brancher left it at the node where the search is
  std::size_t root_level_ = 0;
  SearchResult result_;
};

}  // namespace

TreeSearch::TreeSearch(KivOmbNetwork& network, SearchOptions options)
    : network_(network), options_(std::move(options)) {}

SearchResult TreeSearch::Run(const LeafReceiver& on_leaf) {
  return SearchRun(network_, options_, on_leaf).Run();
}

}  // namespace kiv
