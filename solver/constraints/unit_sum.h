#pragma once

#include <cstdint>
#include <optional>

#include "framework/abstract_types/constraint.h"
#include "framework/intervals/hull.h"
#include "solver/constraints/linear_sum.h"

namespace kiv {

// sum = constant, for a sum of two or three terms with coefficients 1 and -1: in most models most
// sums are, and in most runs their domains are small.
class UnitSum {
 public:
  // Of other sums it tells nothing.
  UnitSum(const LinearSum& sum, Int128 constant);

  // Leaves the arguments the values that are part of a solution over the domains, as far as their
  // kinds can lose the others, in one pass. None, with nothing done, where a variable stands in two
  // terms, or where that takes more than bounds, domains that fit a word of bits each or, of two
  // terms, lists of values.
  std::optional<KivOmbiFilterResult> Narrow(const KivOmbiObjectEnvironment& environment) const;

 private:
  // The numbers that stand in first + second = last.
  struct Hulls {
    Hull first;
    Hull second;
    Hull last;
  };

  bool Repeats(const KivOmbiObjectEnvironment& environment) const;
  static Hulls Cut(const Hulls& hulls);
  KivOmbiFilterResult KeepHulls(const KivOmbiObjectEnvironment& environment, const Hulls& hulls,
                                const Hulls& cut) const;
  KivOmbiFilterResult KeepSupported(const KivOmbiObjectEnvironment& environment, const Hulls& hulls,
                                    const Hulls& cut) const;
  std::optional<KivOmbiFilterResult> KeepCommon(const KivOmbiObjectEnvironment& environment) const;
  Hull LastOf(const Hull& values) const;
  Hull ValuesOfLast(const Hull& last) const;

  // The arguments; the second may be missing, which is the number 0. The last stands for
  // constant + its value, or for constant - its value.
  static constexpr unsigned kNobody = ~0u;
  unsigned first_ = kNobody;
  unsigned second_ = kNobody;
  unsigned last_ = kNobody;
  bool is_last_negated_ = false;
  std::int64_t constant_ = 0;
};

}  // namespace kiv
