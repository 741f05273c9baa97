#pragma once

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

namespace kiv {

// Whether `value` is the only value left for a boolean.
inline bool IsKnown(const KivOmbiDomainSummary& truth, bool value) {
  return truth.IsFixed() && (truth.lower != 0) == value;
}

// Argument i, a boolean, is `value`.
inline KivOmbiFilterResult SetTruth(const KivOmbiObjectEnvironment& environment, unsigned i,
                                    bool value) {
  const bool possible = environment.NarrowAny(i, [&](KivOmbiAny& domain) {
    return static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value);
  });
  return possible ? 0 : kKivContradiction;
}

}  // namespace kiv
