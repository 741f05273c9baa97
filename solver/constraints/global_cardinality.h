#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"

namespace kiv {

// How often each of given values is taken by the arguments x: for each value an argument c says it,
// or fixed limits do. Closed, x takes none but these values; open, it may.
//
// Narrows by counting: a value is taken at least as often as it is fixed and at most as often as it
// is possible, and the counts add up to the number of x (open: to no more); where a value may not
// be taken again it leaves all open x, and where all that may take it must, they do. A run costs
// O(|x| * |values|) at most, and mostly the number of given values between the bounds of each x.
class KIV_EXPORT GlobalCardinality final : public KivOmbiConstraint {
 public:
  enum class Cover { kOpen, kClosed };
  struct Limits {
    std::int32_t least;
    std::int32_t most;
  };

  // The last arguments are the counts, in the order of the values. Throws std::invalid_argument
  // when a value is given twice, or is
  // none that a variable can hold.
  GlobalCardinality(const std::vector<std::int32_t>& values, Cover cover);
  // All arguments are x. Throws std::invalid_argument too when there are not as many limits as
  // values.
  GlobalCardinality(const std::vector<std::int32_t>& values, const std::vector<Limits>& limits,
                    Cover cover);

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  // What is known of how often a value is taken.
  struct Tally {
    unsigned position;  // of its count or limits among those given
    std::int64_t surely;
    std::int64_t possibly;
    std::int64_t least;  // at least `surely`
    std::int64_t most;   // at most `possibly`
  };

  unsigned CountTerms(unsigned arguments) const;
  void CountTaken(const KivOmbiObjectEnvironment& environment, unsigned terms);
  bool AddUp(const KivOmbiObjectEnvironment& environment, unsigned terms);
  KivOmbiFilterResult NarrowCounts(const KivOmbiObjectEnvironment& environment,
                                   unsigned terms) const;
  KivOmbiFilterResult NarrowTerms(const KivOmbiObjectEnvironment& environment,
                                  unsigned terms) const;

  std::vector<std::int32_t> values_;  // ascending
  std::vector<Tally> tallies_;        // for each of values_
  std::vector<Limits> limits_;        // by position
  bool counted_;                      // by arguments
  bool closed_;
};

}  // namespace kiv
