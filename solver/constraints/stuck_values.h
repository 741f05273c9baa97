#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

namespace kiv {

// Which arguments of a constraint hold a value that they should lose but cannot yet: a kind that
// loses no inner value keeps it until a bound comes to it. A constraint that removes the values of
// fixed arguments need not look at others when their bounds move, but it must look at these. An
// argument stays marked when levels are taken back, which costs runs but no solutions.
class StuckValues {
 public:
  void Resize(unsigned arguments) { stuck_.resize(arguments, 0); }
  bool Has(unsigned i) const { return stuck_[i] != 0; }

  // Argument i <> value. Marks the argument when it still may be. Mostly the bounds tell that it is
  // not.
  KivOmbiFilterResult Remove(const KivOmbiObjectEnvironment& environment, unsigned i,
                             std::int64_t value) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (value < summary.lower || value > summary.upper) return 0;
    return RemoveWithin(environment, i, value);
  }

  // The events that may wake a constraint, and whether those of argument i must. Before its first
  // run the constraint waits for it anyway.
  static constexpr std::int64_t kWakingEvents = kKivFixed | kKivBoundsOfGapless;
  bool MustWake(unsigned i, std::int64_t events) const {
    return (events & kKivFixed) != 0 || stuck_.empty() || Has(i);
  }

 private:
  KivOmbiFilterResult RemoveWithin(const KivOmbiObjectEnvironment& environment, unsigned i,
                                   std::int64_t value);

  std::vector<char> stuck_;
};

}  // namespace kiv
