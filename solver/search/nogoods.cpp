#include "solver/search/nogoods.h"

#include <algorithm>
#include <utility>

namespace kiv {

std::size_t Nogoods::CountLiterals(std::span<const Branching> path) {
  std::size_t literals = 0;
  std::size_t decisions = 0;
  for (const Branching& branching : path) {
    if (branching.refuted) {
      literals += decisions + 1;
    } else {
      ++decisions;
    }
  }
  return literals;
}

std::span<Literal> Nogoods::LiteralsOf(ClauseId clause) {
  return std::span(literals_).subspan(clauses_[clause].first, clauses_[clause].count);
}

void Nogoods::Learn(KivOmbNetwork& network, std::span<const Branching> path) {
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (!path[i].refuted) continue;
    const std::size_t first = literals_.size();
    for (const Branching& before : path.first(i)) {
      if (!before.refuted) literals_.push_back(Negated(before.decision));
    }
    literals_.push_back(Negated(path[i].decision));
    Add(network, first);
  }
}

void Nogoods::Add(KivOmbNetwork& network, std::size_t first) {
  const auto id = static_cast<ClauseId>(clauses_.size());
  clauses_.push_back({first, literals_.size() - first});
  const auto literals = LiteralsOf(id);
  std::partition(literals.begin(), literals.end(),
                 [&](const Literal& literal) { return !IsImpossible(network, literal); });
  for (const Literal& watched : literals.first(std::min<std::size_t>(2, literals.size()))) {
    watches_[watched.variable].push_back(id);
  }
  Examine(network, id, literals.front().variable);
}

bool Nogoods::Propagate(KivOmbNetwork& network) {
  if (clauses_.empty()) return false;
  changed_.clear();
  network.VisitChanged([&](VariableId variable) { changed_.push_back(variable); });
  bool narrowed = false;
  for (const VariableId variable : changed_) {
    const Verdict verdict = PropagateVariable(network, variable);
    if (verdict == Verdict::kEmptied) return true;
    narrowed |= verdict == Verdict::kNarrowed;
  }
  return narrowed;
}

// Nothing more is looked at once a domain is empty: what cannot be told from it would move watches
// to literals that fail where the levels are taken back to.
Nogoods::Verdict Nogoods::PropagateVariable(KivOmbNetwork& network, VariableId variable) {
  std::vector<ClauseId>& watching = watches_[variable];
  Verdict result = Verdict::kUnchanged;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < watching.size(); ++i) {
    const ClauseId clause = watching[i];
    if (result != Verdict::kEmptied) {
      const Verdict verdict = Examine(network, clause, variable);
      if (verdict == Verdict::kMoved) continue;
      if (verdict != Verdict::kUnchanged) result = verdict;
    }
    watching[kept++] = clause;
  }
  watching.resize(kept);
  return result;
}

Nogoods::Verdict Nogoods::Examine(KivOmbNetwork& network, ClauseId clause, VariableId variable) {
  const auto literals = LiteralsOf(clause);
  const auto watched = literals.first(std::min<std::size_t>(2, literals.size()));
  const auto others = literals.subspan(watched.size());
  const auto may_hold = [&](const Literal& literal) { return !IsImpossible(network, literal); };
  const auto holds = [&](const Literal& literal) { return IsEntailed(network, literal); };
  if (std::ranges::any_of(watched, holds)) return Verdict::kUnchanged;
  if (watched.size() == 2 && std::ranges::all_of(watched, may_hold)) return Verdict::kUnchanged;

  const auto spare = std::ranges::find_if(others, may_hold);
  if (spare == others.end()) {
    // The last literal that may hold has to; where there is none, any will find its domain emptied.
    const Literal& last = may_hold(watched.front()) ? watched.front() : watched.back();
    if (!Impose(network, last)) return Verdict::kUnchanged;
    return network.GetSummary(last.variable).IsNil() ? Verdict::kEmptied : Verdict::kNarrowed;
  }
  // Only the watch of `variable` is moved: another that fails too is looked at in its own turn.
  const auto failing = std::ranges::find_if(watched, [&](const Literal& literal) {
    return literal.variable == variable && !may_hold(literal);
  });
  if (failing == watched.end()) return Verdict::kUnchanged;
  std::swap(*failing, *spare);
  if (failing->variable == variable) return Verdict::kUnchanged;
  watches_[failing->variable].push_back(clause);
  return Verdict::kMoved;
}

}  // namespace kiv
