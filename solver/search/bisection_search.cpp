#include "solver/search/bisection_search.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

using Outcome = KivOmbNetwork::Outcome;

// Only a domain between finite bounds has halves.
bool IsSplittable(const KivOmbiDomainSummary& summary) {
  return summary.state == KivOmbiDomainSummary::kValues && summary.cardinality > 1 &&
         summary.lower > SubIntBase::kMin && summary.upper < SubIntBase::kMax;
}

}  // namespace

BisectionSearch::BisectionSearch(KivOmbNetwork& network,
                                 std::vector<KivOmbNetwork::VariableId> decisions)
    : network_(network), order_(std::move(decisions)), decisions_(order_.size()) {
  std::vector<bool> is_decision(network.CountVariables(), false);
  for (const auto variable : order_) is_decision[variable] = true;
  for (KivOmbNetwork::VariableId variable = 0; variable < network.CountVariables(); ++variable) {
    if (!is_decision[variable]) order_.push_back(variable);
  }
}

SearchResult BisectionSearch::Run(const std::function<bool(const SearchLeaf&)>& on_leaf) {
  struct Branching {
    KivOmbNetwork::VariableId variable;
    bool upper_half;         // whether the second branch is the one under way
    std::size_t first_open;  // as Choose left it: below, the variables before it stay fixed
  };
  std::vector<Branching> path;
  SearchResult result;
  const auto branch = [&](const Branching& branching) {
    network_.PushLevel();
    ++result.nodes;
    Split(branching.variable,
          branching.upper_half ? KivOmbiAny::kLowerHalf : KivOmbiAny::kUpperHalf);
  };
  const auto end = [&](SearchEnd how) {
    for (; !path.empty(); path.pop_back()) network_.PopLevel();
    result.end = how;
    return result;
  };

  while (true) {
    switch (network_.Propagate()) {
      case Outcome::kFixpoint: {
        std::size_t first_open = path.empty() ? 0 : path.back().first_open;
        if (const auto variable = Choose(first_open)) {
          path.push_back({*variable, false, first_open});
          branch(path.back());
          continue;
        }
        const SearchLeaf leaf{first_open == order_.size()};
        result.culprit = network_.FindViolated();
        if (result.culprit) return end(SearchEnd::kViolated);
        ++(leaf.complete ? result.solutions : result.unknowns);
        if (!on_leaf(leaf)) return end(SearchEnd::kStopped);
        break;
      }
      case Outcome::kContradiction:
        ++result.failures;
        break;
      case Outcome::kOverflow:
        result.culprit = network_.GetCulprit();
        return end(SearchEnd::kOverflow);
      case Outcome::kStopped:
        return end(SearchEnd::kStopped);
    }
    // Back to the last branching whose second half is still to be tried.
    for (; !path.empty() && path.back().upper_half; path.pop_back()) network_.PopLevel();
    if (path.empty()) return end(SearchEnd::kExhausted);
    network_.PopLevel();
    path.back().upper_half = true;
    branch(path.back());
  }
}

std::optional<KivOmbNetwork::VariableId> BisectionSearch::Choose(std::size_t& first_open) const {
  while (first_open < order_.size() && network_.GetSummary(order_[first_open]).IsFixed()) {
    ++first_open;
  }
  const auto smallest_of = [&](std::size_t begin, std::size_t end) {
    std::optional<KivOmbNetwork::VariableId> smallest;
    std::uint32_t fewest = std::numeric_limits<std::uint32_t>::max();
    // Nothing that is open has fewer than two values.
    for (std::size_t i = begin; i < end && fewest > 2; ++i) {
      const KivOmbiDomainSummary& summary = network_.GetSummary(order_[i]);
      if (!IsSplittable(summary) || (smallest && summary.cardinality >= fewest)) continue;
      smallest = order_[i];
      fewest = summary.cardinality;
    }
    return smallest;
  };
  const auto decision = smallest_of(first_open, decisions_);
  return decision ? decision : smallest_of(std::max(first_open, decisions_), order_.size());
}

void BisectionSearch::Split(KivOmbNetwork::VariableId variable,
                            KivOmbiAny::ValueSelection give_away) {
  KivOmbiObject& given = network_.Scratch(network_.GetKind(variable), 0);
  network_.Update(variable, [&](KivOmbiAny& domain) { domain.Bisect(given, give_away); });
}

}  // namespace kiv
