#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "framework/networks/network.h"

namespace kiv {

// How a search ended.
enum class SearchEnd {
  kExhausted,  // every possibility was tried
  kStopped,    // by on_solution or by the network's stop flag
  kOverflow,   // an unknown variable could only be beyond the range of integers; see `culprit`
  kViolated,   // internal error: a solution fails the ground truth of `culprit`
};

struct SearchResult {
  SearchEnd end = SearchEnd::kExhausted;
  std::uint64_t solutions = 0;
  // Ends of the tree where a variable stayed Any or without a bound, which no search can split:
  // what they hold is unknown, so without a solution the model is not known to have none.
  std::uint64_t unknowns = 0;
  std::uint64_t nodes = 0;
  std::uint64_t failures = 0;
  std::optional<KivOmbNetwork::ConstraintId> culprit;
};

// What was found at the end of a branch: every variable has one value, or, when `complete` is
// false, some is still Any or without a bound.
struct SearchLeaf {
  bool complete;
};

// Depth-first search. Propagates, splits the variable with the fewest values (the first of them) in
// two through its kind's own Bisect, lower half first, and goes on until each variable has one
// value. Only `decisions` are split while any of them is open, then the others. The network is left
// at the level at which it was found. Depth is limited by memory alone.
class KIV_EXPORT BisectionSearch {
 public:
  BisectionSearch(KivOmbNetwork& network, std::vector<KivOmbNetwork::VariableId> decisions);

  // Calls `on_leaf` while the network holds the leaf's domains; false stops the search.
  SearchResult Run(const std::function<bool(const SearchLeaf&)>& on_leaf);

 private:
  // The variable to split next; none at a leaf. The variables before `first_open` in the order are
  // known to be fixed; it is moved up to the first that is not.
  std::optional<KivOmbNetwork::VariableId> Choose(std::size_t& first_open) const;
  void Split(KivOmbNetwork::VariableId variable, KivOmbiAny::ValueSelection give_away);

  KivOmbNetwork& network_;
  std::vector<KivOmbNetwork::VariableId> order_;  // decisions first, then all others
  std::size_t decisions_;
};

}  // namespace kiv
