#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/environment.h"

namespace kiv {

// The chains that fixed successors form: place i leads to place x[i] - first, argument by argument,
// where x[i] is fixed. A place that leads to itself is in no chain.
class SuccessorChains {
 public:
  struct Chain {
    unsigned start;   // which no place leads to
    unsigned end;     // the first that leads nowhere yet, or `start` where the chain closes
    unsigned length;  // places, both ends included once
  };

  // Of the first arguments as they are now, all of which lie among the places. False when two lead
  // to one place.
  bool Build(const KivOmbiObjectEnvironment& environment, std::int32_t first);

  // The chain of more than one place that starts there; false when none does.
  bool FindChain(unsigned start, Chain& chain);
  // A closed chain of places that no chain told so far passes; false when there is none. Only after
  // all chains that start anywhere were told.
  bool FindCircle(Chain& chain);

  bool LeadsOn(unsigned place) const { return next_[place] != kNone && next_[place] != place; }

 private:
  static constexpr unsigned kNone = ~0u;

  Chain Follow(unsigned start);

  std::vector<unsigned> next_;
  std::vector<char> is_led_to_;
  std::vector<char> is_told_;
};

}  // namespace kiv
