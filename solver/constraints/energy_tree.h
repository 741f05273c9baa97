#pragma once

#include <cstddef>
#include <vector>

#include "solver/constraints/wide_integer.h"

namespace kiv {

// For a set of tasks, the latest point to which the resource can be kept busy by some of them: over
// all tasks i of the set, the greatest (capacity * earliest start of i + energy of the tasks of the
// set that start no earlier than i). The theta tree of Vilim 2009, "Max energy filtering algorithm
// for discrete cumulative resources". Energies are products of two 32-bit numbers and are summed up
// in 128 bits.
class EnergyTree {
 public:
  using Energy = Int128;

  // For as many tasks.
  explicit EnergyTree(std::size_t tasks);

  // The empty set.
  void Clear();
  // Adds the task at `rank` in the order of earliest starts: O(log n). `supply` is what the
  // resource offers up to its earliest start, its capacity times that.
  void Insert(std::size_t rank, Energy supply, Energy energy);
  // What was asked for above; less than any sum for the empty set.
  Energy Envelope() const { return nodes_[1].envelope; }

 private:
  struct Node {
    Energy energy;
    Energy envelope;
  };

  std::size_t leaves_;       // a power of two
  std::vector<Node> nodes_;  // the root at 1, the children of i at 2 * i and 2 * i + 1
};

}  // namespace kiv
