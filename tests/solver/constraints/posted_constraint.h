#pragma once

#include <functional>
#include <random>

#include "tests/support/enumeration.h"
#include "tests/support/modules.h"

namespace kiv::test {

inline constexpr const char* kIntegerKinds[] = {"int", "interval int", "enum int"};

// A constraint under test over variables 0, 1, ... of a network.
struct Posted {
  std::vector<Declared> variables;
  std::vector<KivOmbNetwork::VariableId> arguments;
  std::function<void(KivOmbNetwork&, std::span<const KivOmbNetwork::VariableId>)> post;
  std::function<bool(const Assignment& argument_values)> holds;
};

// Compares the solutions that search finds with those of enumeration, where the constraint is
// posted after its variables got their domains, before that, and between two steps of narrowing.
void ExpectSolutionsOfEnumeration(const Posted& posted);

// Narrows a variable to the given values, out of those that it has.
void Restrict(KivOmbNetwork& network, KivOmbNetwork::VariableId variable, const Values& values);

std::string Text(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable);

inline int Pick(std::mt19937_64& random, int lower, int upper) {
  return std::uniform_int_distribution<int>(lower, upper)(random);
}

// A variable of the kind of this name, its domain one of at most `most` values among `values`
// (ascending), or between two of them.
Declared RandomVariable(std::mt19937_64& random, const char* kind, const Values& values,
                        std::size_t most);

// The integers from `lower` to `upper`.
Values Range(std::int32_t lower, std::int32_t upper);

}  // namespace kiv::test
