#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "tests/support/enumeration.h"

namespace kiv::test {

// How much a constraint promises to narrow once it is at its fixpoint.
enum class Strength {
  kDomain,  // every value left is part of a solution over the domains left
  kBounds,  // both bounds of every integer are part of a solution over the domains left
  kHull,    // both bounds of every integer are part of a solution over the hulls left
  kWeaker,  // contradiction is found once all arguments are fixed
};

// A constraint under test: the variables of a small network, and one constraint over some of them.
struct ConstraintCase {
  std::string name;  // what the trace of a failure calls it
  std::vector<Declared> variables;
  std::vector<KivOmbNetwork::VariableId> arguments;  // may name a variable twice
  std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post;
  std::function<bool(const Assignment& argument_values)> holds;
  Strength strength = Strength::kWeaker;
};

// Puts the constraint under brute force; `seed` drives the random choices, and a failure shows it
// with the command that replays it and with the smallest case found that still fails.
//
// - The solutions that search finds are those of enumeration, whether the constraint is posted
//   before or after its variables get their domains or between two steps of narrowing.
// - Along random descents that remove values and take levels back, at every node: no value of a
//   solution is lost, the declared strength is kept, the fixpoint is that of a newly posted copy
//   over the same domains, and a level that is taken back leaves no trace.
void CheckConstraint(const ConstraintCase& constraint, std::uint64_t seed);

}  // namespace kiv::test
