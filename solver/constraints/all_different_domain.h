#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/bit_matching.h"
#include "solver/constraints/distinct_terms.h"
#include "solver/constraints/value_bits.h"
#include "solver/constraints/value_matching.h"

namespace kiv {

// The terms x[i] + c[i] are pairwise different, by matching. It takes AllDifferent beside it, which
// is cheaper and removes the values of fixed terms; together they leave only values that are part
// of a solution, unless a variable stands in two terms; a kind that keeps inner values keeps them,
// but its bounds are part of solutions.
//
// Only terms that crowd together are looked at (FindCrowd). With v of them, which have e values, a
// run costs O(v * e) in the worst case; the matching is kept between runs, and mostly e is what it
// costs, or e / 64 words where the values lie close together.
class KIV_EXPORT AllDifferentDomain final : public KivOmbiConstraint {
 public:
  // `offsets` are the constants c, as many as there will be arguments, or none for zeros.
  explicit AllDifferentDomain(TermOffsets offsets = {});

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void Prepare(const KivOmbiObjectEnvironment& environment);
  void FindCrowd(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult NarrowByBits(const KivOmbiObjectEnvironment& environment, std::int64_t base,
                                   std::size_t words);
  KivOmbiFilterResult NarrowByGraph(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult RemoveBits(const KivOmbiObjectEnvironment& environment, unsigned i,
                                 std::int64_t base, std::span<const BitWord> bits);
  KivOmbiFilterResult RemoveTerms(const KivOmbiObjectEnvironment& environment, unsigned i);

  TermOffsets offsets_;
  bool prepared_ = false;
  bool repeats_ = false;          // a variable stands in two terms
  bool contradictory_ = false;    // two terms are one
  std::vector<char> holds_gaps_;  // by argument

  std::vector<unsigned> open_;   // arguments that may lose values by others
  std::vector<unsigned> sizes_;  // how many of them have so many values
  std::vector<unsigned> crowd_;  // those that can be short of values
  std::vector<unsigned> ample_;  // those that cannot

  BitMatching bits_;
  std::vector<std::int64_t> last_term_;  // by argument: what it had in the last matching
  BitWords row_;
  ValueMatching graph_;
  std::vector<std::int64_t> impossible_;  // terms that an argument cannot be
  std::vector<std::int32_t> lost_;        // values that it cannot have
};

}  // namespace kiv
