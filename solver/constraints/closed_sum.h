#pragma once

#include <cstdint>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/open_terms.h"

namespace kiv {

// A sum over the first arguments of a running constraint where all sums stay far within 64 bits and
// no argument has an open end: what LinearSum sees in almost all runs. It narrows by the room that
// the limits low <= sum <= high leave: by how much one share may exceed its least while all others
// are at their least, and stay below its greatest while all others are at their greatest. A share
// that spreads no wider than both is not narrowed, and one that does surely is, so that the spreads
// tell when all is at rest, and nothing is divided in vain.
class ClosedSum {
 public:
  ClosedSum(const KivOmbiObjectEnvironment& environment, OpenTerms& terms, std::int64_t low,
            std::int64_t high)
      : environment_(environment), terms_(terms), low_(low), high_(high) {
    Read();
  }

  // False when an argument has an open end: then nothing else may be asked.
  bool IsClosed() const { return is_closed_; }
  // Looks at the arguments again.
  void Read();

  // Whether no choice of values meets the limits, and whether all do.
  bool IsMissed() const { return room_above_ < 0 || room_below_ < 0; }
  bool Holds() const { return room_above_ <= high_ - low_ && room_below_ <= high_ - low_; }
  // Whether no bound can be narrowed any more.
  bool IsAtRest() const { return widest_ <= room_above_ && widest_ <= room_below_; }

  // Narrows each argument by the bounds of the others, as they are by then; `changed` tells whether
  // any was. False when the limits cannot be met.
  bool NarrowEach(bool& changed);

 private:
  bool NarrowOne(const OpenTerms::Term& term, bool& changed);

  const KivOmbiObjectEnvironment& environment_;
  OpenTerms& terms_;
  std::int64_t low_;
  std::int64_t high_;
  bool is_closed_ = true;
  std::int64_t room_above_ = 0;
  std::int64_t room_below_ = 0;
  std::int64_t widest_ = 0;  // no share spreads wider
};

}  // namespace kiv
