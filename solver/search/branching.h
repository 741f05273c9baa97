#pragma once

#include <cstddef>

#include "solver/search/literal.h"

namespace kiv {

// A step on the path from the root of a search to where it is.
struct Branching {
  Literal decision;
  // Whether what follows the decision was searched, and the path goes on with its negation.
  bool refuted = false;
  // Whether it has a level of the network. A decision has one; its negation may share that of the
  // last decision before it, with which it is taken back.
  bool has_level = true;
  // The variables before this place in the order of the search are fixed.
  std::size_t first_open = 0;
};

}  // namespace kiv
