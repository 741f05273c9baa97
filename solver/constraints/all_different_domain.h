#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/distinct_terms.h"
#include "solver/constraints/value_matching.h"

namespace kiv {

// The terms x[i] + c[i] are pairwise different, by matching: every value left is part of a
// solution, unless a variable stands in two terms; a kind that keeps inner values keeps them, but
// its bounds are part of solutions. A run costs O(e log e + v * e) in the worst case, with v terms
// of fewer values than there are terms and e values of theirs; the matching is kept between runs,
// and mostly e log e is what it costs.
class KIV_EXPORT AllDifferentDomain final : public KivOmbiConstraint {
 public:
  // `offsets` are the constants c, as many as there will be arguments, or none for zeros.
  explicit AllDifferentDomain(TermOffsets offsets = {});

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  void BuildGraph(const KivOmbiObjectEnvironment& environment);
  KivOmbiFilterResult RemoveTerms(const KivOmbiObjectEnvironment& environment, unsigned i);

  TermOffsets offsets_;
  bool prepared_ = false;
  bool repeats_ = false;        // a variable stands in two terms
  bool contradictory_ = false;  // two terms are one
  ValueMatching matching_;
  std::vector<unsigned> ample_;           // arguments that are not in the graph
  std::vector<std::int64_t> impossible_;  // terms that an argument cannot be
  std::vector<std::int32_t> lost_;        // values that it cannot have
};

}  // namespace kiv
