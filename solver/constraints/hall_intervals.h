#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "framework/base/export.h"

namespace kiv {

// Bounds consistency of pairwise different integers, each in an interval of its own.
//
// A Hall interval contains as many of the intervals as it has integers: those take all of it, and
// every other interval that starts or ends in it is cut at its end. The cuts are found as in
// A. Lopez-Ortiz, C.-G. Quimper, J. Tromp, P. van Beek, "A fast and simple algorithm for bounds
// consistency of the alldifferent constraint" (IJCAI 2003), in O(n log n); mostly in O(n), since
// the orders of the ends are kept, and change little from one run to the next.
class KIV_EXPORT HallIntervals {
 public:
  // Bounds within [-2^62, 2^62].
  struct Interval {
    std::int64_t lower;
    std::int64_t upper;
    friend bool operator==(const Interval&, const Interval&) = default;
  };

  // How many intervals there are. Memory once made is kept.
  void Resize(unsigned count);
  std::span<Interval> Intervals() { return intervals_; }

  // Narrows every interval to the least one between whose ends the same choices of different
  // integers lie, so that both its ends are part of one. False when there is no choice.
  bool Narrow();

  // Whether no two intervals meet, after Narrow.
  bool AreDisjoint() const;

 private:
  bool RaiseLowerEnds();
  void Mirror();
  void SortEnds();
  void PlaceEnds();

  std::vector<Interval> intervals_;
  std::vector<unsigned> by_lower_;
  std::vector<unsigned> by_upper_;
  // Where intervals begin and where they have just ended, ascending, between two sentinels; and the
  // places of each interval's two ends among them.
  std::vector<std::int64_t> ends_;
  struct Places {
    unsigned begin;
    unsigned end;
  };
  std::vector<Places> places_;
  // For each place: the next one below which integers are left, or a step on the way there; how
  // many integers are left between the two; and a step on the way out of a Hall interval.
  std::vector<unsigned> room_;
  std::vector<std::int64_t> left_;
  std::vector<unsigned> hall_;
};

}  // namespace kiv
