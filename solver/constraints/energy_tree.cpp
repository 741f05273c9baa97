#include "solver/constraints/energy_tree.h"

#include <algorithm>
#include <bit>

namespace kiv {

namespace {

// Below every sum, and far enough from the end that energies can be added to it.
constexpr EnergyTree::Energy kNone = -(EnergyTree::Energy{1} << 120);

}  // namespace

EnergyTree::EnergyTree(std::size_t tasks)
    : leaves_(std::bit_ceil(std::max<std::size_t>(tasks, 1))), nodes_(2 * leaves_) {
  Clear();
}

void EnergyTree::Clear() { std::ranges::fill(nodes_, Node{0, kNone}); }

void EnergyTree::Insert(std::size_t rank, Energy supply, Energy energy) {
  std::size_t node = leaves_ + rank;
  nodes_[node] = {energy, supply + energy};
  for (node /= 2; node > 0; node /= 2) {
    const Node& left = nodes_[2 * node];
    const Node& right = nodes_[2 * node + 1];
    nodes_[node] = {left.energy + right.energy,
                    std::max(left.envelope + right.energy, right.envelope)};
  }
}

}  // namespace kiv
