#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "framework/base/export.h"
#include "solver/constraints/value_bits.h"

namespace kiv {

// What ValueMatching does, for values in a window of a few words: each term has a row of bits, and
// a step takes all values of a term at once. Components are found as by H. N. Gabow, "Path-based
// depth-first search for strong and biconnected components" (2000), which needs sets only.
class KIV_EXPORT BitMatching {
 public:
  static constexpr unsigned kNone = ~0u;

  // Forgets all; there will be so many terms over so many words of values. The rows are to be
  // filled before Match.
  void Start(unsigned terms, std::size_t words);
  std::span<BitWord> Row(unsigned term) { return std::span(rows_).subspan(term * words_, words_); }
  // Lets the term have this place if nobody else wants it; any number may be named.
  void Prefer(unsigned term, unsigned place) { place_of_[term] = place; }

  // Gives each term a value of its own; false when there are too few.
  bool Match();
  unsigned PlaceOf(unsigned term) const { return place_of_[term]; }
  // After Match: leaves in the rows only the values that are part of no matching.
  void Classify();
  // The values that are taken by every matching, after Classify.
  std::span<const BitWord> AlwaysTaken() const { return always_taken_; }

 private:
  unsigned FirstOf(unsigned term, std::span<const BitWord> wanted) const;
  unsigned FirstFree(unsigned term) const;
  void Take(unsigned term, unsigned place);
  bool Augment(unsigned root);
  void FindAlwaysTaken();
  void FindComponents();
  BitWord* LastComponent();
  void Open(unsigned term);
  void Join(unsigned term);
  void CloseComponent();

  std::size_t words_ = 0;
  BitWords rows_;
  std::vector<unsigned> place_of_;  // by term
  std::vector<unsigned> owner_;     // by place, where it is taken
  BitWords taken_;

  BitWords seen_;                   // of the search for a free value
  std::vector<unsigned> asked_by_;  // by place
  std::vector<unsigned> waiting_;   // terms

  BitWords can_be_free_;  // values that some matching leaves
  BitWords always_taken_;

  // Of the search for components among the always taken values: those that were not reached, those
  // of no closed component, and the terms on the way. A component that is not closed has its first
  // term and its values.
  BitWords unreached_;
  BitWords open_;
  std::vector<unsigned> path_;
  std::size_t path_length_ = 0;
  std::vector<unsigned> components_;
  BitWords component_values_;
  std::size_t component_count_ = 0;
};

}  // namespace kiv
