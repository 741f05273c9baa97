#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "framework/networks/network.h"
#include "solver/search/branching.h"
#include "solver/search/literal.h"

namespace kiv {

// What a search that restarts must not search again. Where its path refuted a decision, the
// decisions taken before it and the refuted one do not hold together in anything that is still
// wanted; this is kept as a clause of their negations. After C. Lecoutre, L. Sais, S. Tabary and
// V. Vidal (2007), "Recording and minimizing nogoods from restarts" (reduced nld-nogoods).
//
// Two literals of a clause are watched, and the clause is looked at only when one of their
// variables changes. As long as both can hold there is nothing to do. A watch stays right when
// levels are taken back.
class KIV_EXPORT Nogoods {
 public:
  explicit Nogoods(const KivOmbNetwork& network) : watches_(network.CountVariables()) {}

  // How many literals the clauses of a path would have, and how many are kept already.
  static std::size_t CountLiterals(std::span<const Branching> path);
  std::size_t CountLiterals() const noexcept { return literals_.size(); }
  std::size_t CountClauses() const noexcept { return clauses_.size(); }

  // Adds the clauses of a path, all of whose levels are taken back. What they conclude at once
  // stays: the network must be where the search restarts.
  void Learn(KivOmbNetwork& network, std::span<const Branching> path);

  // Narrows by the clauses that the domains written at the current level concern; a clause that
  // fails empties a domain. Returns whether anything changed. To be called at the fixpoint of the
  // constraints, again and again until nothing changes.
  bool Propagate(KivOmbNetwork& network);

 private:
  using VariableId = KivOmbNetwork::VariableId;
  using ClauseId = std::uint32_t;
  struct Clause {
    std::size_t first;  // of its literals
    std::size_t count;
  };
  enum class Verdict { kUnchanged, kNarrowed, kEmptied, kMoved };

  std::span<Literal> LiteralsOf(ClauseId clause);
  // Adds the clause of the literals from `first` on.
  void Add(KivOmbNetwork& network, std::size_t first);
  // Looks at the clauses that watch `variable`, up to one that fails: kUnchanged, kNarrowed or
  // kEmptied.
  Verdict PropagateVariable(KivOmbNetwork& network, VariableId variable);
  // Looks at a clause that watches `variable`; kMoved when it is now watched by another instead.
  Verdict Examine(KivOmbNetwork& network, ClauseId clause, VariableId variable);

  std::vector<Literal> literals_;  // of all clauses; the first two of a clause are watched
  std::vector<Clause> clauses_;
  std::vector<std::vector<ClauseId>> watches_;  // by variable, an entry for each literal watched
  std::vector<VariableId> changed_;             // while Propagate runs
};

}  // namespace kiv
