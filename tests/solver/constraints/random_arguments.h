#pragma once

#include <vector>

#include "tests/support/constraint_case.h"
#include "tests/support/random_variables.h"

namespace kiv::test {

// Variables and a choice of them as arguments, for random cases of n-ary constraints.
struct RandomArguments {
  explicit RandomArguments(Generator& generator) : random(generator) {}

  Generator& random;
  std::vector<Declared> variables;
  std::vector<KivOmbNetwork::VariableId> arguments;
  bool repeats = false;  // some variable is named twice

  // Adds an argument: a new variable of any kind of integer with at most `most` values of `pool`,
  // now and then unknown at the start, or, once in `repeated` times (0: never), one that is an
  // argument already.
  void Add(const Values& pool, int most, int repeated);
  // Whether all variables are of kinds that can lose inner values.
  bool AreSets() const;

  ConstraintCase Case(
      std::string name,
      std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post,
      std::function<bool(const Assignment&)> holds, Strength strength) const;
};

}  // namespace kiv::test
