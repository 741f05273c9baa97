#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "framework/networks/network.h"

namespace kiv::test {

using Values = std::vector<std::int32_t>;
using Assignment = std::vector<std::int64_t>;

// The integers from `lower` to `upper`.
Values Range(std::int32_t lower, std::int32_t upper);

// A variable to be: its kind and the values that it starts with, ascending. No values at all: Any.
struct Declared {
  const KivOmbiObjectDescriptor* kind;
  Values values;
  // Starts Any whatever `values` says; they are what enumeration tries for it.
  bool unknown = false;
  // An integer that stands for a truth value: at no time has it others than 0 and 1.
  bool is_truth = false;
};

// A new variable of `network`, its domain built from Nil by insertion.
KivOmbNetwork::VariableId Declare(KivOmbNetwork& network, const Declared& declared);

// Narrows a variable to the given values, out of those that it has.
void Restrict(KivOmbNetwork& network, KivOmbNetwork::VariableId variable, const Values& values);

// The values possible for a variable now; the network must not hold it as Any.
Values ValuesOf(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable);
bool IsPossible(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable,
                std::int64_t value);

// All assignments of the values of `domains` that satisfy `holds`, in lexicographic order.
std::vector<Assignment> EnumerateSolutions(const std::vector<Values>& domains,
                                           const std::function<bool(const Assignment&)>& holds);

// What the search finds over all variables of a network.
struct FoundSolutions {
  std::vector<Assignment> solutions;  // sorted
  bool open = false;                  // some variable stayed unknown in some branch
  bool overflow = false;              // the search ended with an overflow
};

// Throws std::runtime_error when the search finds what violates a constraint.
FoundSolutions Search(KivOmbNetwork& network);
// For a network that is solved: throws std::runtime_error also when the search leaves anything open
// or ends with an overflow.
std::vector<Assignment> SearchSolutions(KivOmbNetwork& network);

// The texts of a variable's domain and of all domains of a network.
std::string Text(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable);
std::string Text(const KivOmbNetwork& network);
std::string Print(const Declared& declared);
std::string Print(const std::vector<Declared>& declared);

}  // namespace kiv::test
