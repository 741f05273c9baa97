#pragma once

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/abstract_types/environment.h"

// The constraints of the solver that take truth values take any kind of boolean, and also integers
// that have no other values than 0 and 1: an interval of these is as good as a boolean, and counts
// in sums as well.
namespace kiv {

// Whether `value` is the only value left for a truth value.
inline bool IsKnown(const KivOmbiDomainSummary& truth, bool value) {
  return truth.IsFixed() && (truth.lower != 0) == value;
}

// Argument i, a truth value, is `value`.
inline KivOmbiFilterResult SetTruth(const KivOmbiObjectEnvironment& environment, unsigned i,
                                    bool value) {
  if (!environment.IsBoolean(i)) {
    return value ? TightenLower(environment, i, 1) : TightenUpper(environment, i, 0);
  }
  const bool possible = environment.NarrowAny(i, [&](KivOmbiAny& domain) {
    return static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value);
  });
  return possible ? 0 : kKivContradiction;
}

}  // namespace kiv
