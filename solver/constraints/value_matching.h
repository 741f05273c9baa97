#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/base/export.h"

namespace kiv {

// A bipartite graph between terms and the values possible for them, a matching that gives each term
// a value of its own, and which edges can be part of such a matching.
//
// After J.-C. Regin, "A filtering algorithm for constraints of difference in CSPs" (AAAI 1994): an
// edge between a term and a value that another one has is part of some matching when the other can
// make way to a value that nobody has, or when each of the two terms can make way for the other,
// that is, when they are in one strongly connected component. Components are those of R. Tarjan,
// "Depth-first search and linear graph algorithms" (1972), without recursion.
//
// Built anew for each question, it keeps its memory and starts from the last matching.
class KIV_EXPORT ValueMatching {
 public:
  struct Edge {
    std::int64_t value;
    bool possible;  // told by Classify
  };

  // Forgets the graph. Terms will have labels below `labels`.
  void Start(unsigned labels);
  // Adds a term, and then its values, ascending. What is remembered of the last matching is kept by
  // the label.
  void AddTerm(unsigned label);
  void AddValue(std::int64_t value);

  // Gives each term a value of its own; false when there are too few. Cost O(terms * edges), what
  // is left of the last matching apart.
  bool Match();
  // Tells the edges that are part of some matching from the others, after Match. Cost O(edges).
  void Classify();

  unsigned CountTerms() const { return static_cast<unsigned>(terms_.size()); }
  unsigned Label(unsigned term) const { return terms_[term].label; }
  std::span<const Edge> Edges(unsigned term) const {
    return std::span(edges_).subspan(terms_[term].first_edge,
                                     EndOf(term) - terms_[term].first_edge);
  }
  // The values that are taken by every matching, ascending, after Classify.
  std::span<const std::int64_t> AlwaysTaken() const { return always_taken_; }

 private:
  static constexpr unsigned kNone = ~0u;

  struct Term {
    unsigned label;
    std::size_t first_edge;
    unsigned value = kNone;  // its place in values_
    // Of the search for components: when it was found, the earliest found term that it leads to on
    // the way, and its component once that is known.
    unsigned found = 0;
    unsigned earliest = 0;
    unsigned component = kNone;
  };
  struct Value {
    unsigned owner;     // the term that has it
    unsigned asked_by;  // the term that the search for a free value came from
    unsigned round;     // of that search
  };
  struct Visit {
    unsigned term;
    std::size_t next_edge;
  };

  std::size_t EndOf(unsigned term) const {
    return term + 1 < terms_.size() ? terms_[term + 1].first_edge : edges_.size();
  }
  unsigned PlaceOf(std::int64_t value) const;
  bool FindPlaces();
  void IndexUniverse();
  void PlaceValues();
  void TakeLastMatching();
  bool Augment(unsigned root);
  void PassOn(unsigned value);
  void FindComponents();
  void Open(unsigned term);
  void Close(unsigned term);

  std::vector<Term> terms_;
  std::vector<Edge> edges_;
  std::vector<unsigned> places_;  // of the values of edges_ in values_
  // All values ever seen, ascending, so that a graph seldom has new ones; and what is told of them.
  std::vector<std::int64_t> universe_;
  std::vector<unsigned>
      place_of_;  // by the distance from the least of them, unless they lie far apart
  std::vector<Value> values_;
  std::vector<std::int64_t> last_value_;  // by label
  std::vector<char> has_last_value_;
  std::vector<std::int64_t> always_taken_;

  std::vector<unsigned> waiting_;  // terms whose search for a value goes on
  unsigned round_ = 0;
  std::vector<Visit> path_;
  std::vector<unsigned> open_;      // terms without a component
  std::vector<char> can_make_way_;  // by component: to a value that nobody has
  unsigned found_ = 0;
};

}  // namespace kiv
