#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tests/support/enumeration.h"

namespace kiv::test {

// How much a constraint promises to narrow once it is at its fixpoint. An argument that is named
// twice counts as two of the same domain. Where a kind cannot hold holes, kDomain asks for its
// bounds alone.
enum class Strength {
  kDomain,  // every value left is part of a solution over the domains left
  kBounds,  // both bounds of every integer are part of a solution over the domains left
  kHull,    // both bounds of every integer are part of a solution over the hulls left
  kWeaker,  // contradiction is found once all arguments are fixed
};

// A constraint under test: the variables of a small network, and one constraint over some of them.
// Several constraints that are posted together count as one.
struct ConstraintCase {
  std::string name;  // what the trace of a failure calls it
  // Enumeration tries -200 to 200 for one that is declared without values.
  std::vector<Declared> variables;
  std::vector<KivOmbNetwork::VariableId> arguments;  // may name a variable twice
  std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post;
  std::function<bool(const Assignment& argument_values)> holds;
  Strength strength = Strength::kWeaker;
  // Whether the variables that start unknown are always found out, and lie among what enumeration
  // tries for them: search must neither leave one open nor end with an overflow. Otherwise it may,
  // and values beyond those that enumeration tries are judged by `holds` alone.
  bool determines = false;
  // Whether to propagate while nothing is known of any variable. Several constraints can go on for
  // all integers then, from one bound to the next.
  bool propagates_unknown = true;
};

// Puts the constraint under brute force; `seed` drives the random choices, and a failure shows it
// with the command that replays it and with the smallest case found that still fails.
//
// - The solutions that search finds are those of enumeration, whether the constraint is posted
//   before or after its variables get their domains, between two steps of narrowing or at a level
//   that is taken back.
// - Along random descents that remove values and take levels back, at every node: no value of a
//   solution is lost, the declared strength is kept, the fixpoint is that of a newly posted copy
//   over the same domains, which a further copy does not narrow, and a level that is taken back
//   leaves no trace.
void CheckConstraint(const ConstraintCase& constraint, std::uint64_t seed);

// What the check finds wrong; nothing for a sound constraint. Reports nothing to GoogleTest.
std::optional<std::string> FindFailure(const ConstraintCase& constraint, std::uint64_t seed);

// Cases that are a little smaller: with fewer values, with one variable for two of a kind, or
// without a variable that is not used.
std::vector<ConstraintCase> SmallerCases(const ConstraintCase& constraint);

std::string Print(const ConstraintCase& constraint);

}  // namespace kiv::test
