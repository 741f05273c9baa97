#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "framework/networks/network.h"

namespace kiv::test {

using Values = std::vector<std::int32_t>;
using Assignment = std::vector<std::int64_t>;

// A variable to be: its kind and the values that it starts with, ascending. No values at all: Any.
struct Declared {
  const KivOmbiObjectDescriptor* kind;
  Values values;
};

// A new variable of `network`, its domain built from Nil by insertion.
KivOmbNetwork::VariableId Declare(KivOmbNetwork& network, const Declared& declared);

// The values possible for a variable now; the network must not hold it as Any.
Values ValuesOf(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable);

// All assignments of the values of `domains` that satisfy `holds`, in lexicographic order.
std::vector<Assignment> EnumerateSolutions(const std::vector<Values>& domains,
                                           const std::function<bool(const Assignment&)>& holds);

// What the search finds over all variables of `network`, sorted; a leaf with a variable that is
// still unknown, or an end that is no normal one, throws std::runtime_error.
std::vector<Assignment> SearchSolutions(KivOmbNetwork& network);

std::string Print(const std::vector<Declared>& declared);

}  // namespace kiv::test
