#pragma once

#include <functional>
#include <optional>

#include "framework/networks/network.h"
#include "solver/search/search_end.h"
#include "solver/search/search_options.h"
#include "solver/search/search_statistics.h"

namespace kiv {

struct SearchResult {
  SearchEnd end = SearchEnd::kExhausted;
  SearchStatistics statistics;
  // The objective of the best solution. It is optimal when the search is exhausted and no end of
  // its tree was unknown.
  std::optional<std::int32_t> best;
  std::optional<KivOmbNetwork::ConstraintId> culprit;  // of an overflow or a violation
};

// What was found at the end of a branch: every variable has one value, or, when `complete` is
// false, some is still Any or without a bound.
struct SearchLeaf {
  bool complete;
};

// Called while the network holds the domains of a leaf; false stops the search.
using LeafReceiver = std::function<bool(const SearchLeaf&)>;

// Depth-first search: propagates, splits a domain in two as the strategy says, and goes on until
// nothing can be split. It restarts as told and learns what not to search again, so that it is
// complete and finds no solution twice. With an objective each solution is better than the one
// before. What is found is checked against the ground truth of every constraint before it is told.
//
// The network is left at the level at which it was found, with what propagation alone concludes
// there. Depth is limited by memory alone; once the vectors have grown, the search itself allocates
// nothing but nogoods.
class KIV_EXPORT TreeSearch {
 public:
  // All variables of the network must be integers or booleans; else Run throws
  // std::invalid_argument.
  TreeSearch(KivOmbNetwork& network, SearchOptions options);

  // Each call is a search of its own, from the level at which the network stands.
  SearchResult Run(const LeafReceiver& on_leaf);

 private:
  KivOmbNetwork& network_;
  SearchOptions options_;
};

}  // namespace kiv
