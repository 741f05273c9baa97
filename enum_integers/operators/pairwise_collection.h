#pragma once

#include <optional>

#include "enum_integers/domain/enum_integer.h"

namespace kiv {

// The set of combine(a, b) for every a of `outer` and b of `inner`, by insertion: Any once more
// candidates come than a domain takes, Nil when there are none. A full collection takes no further
// candidate, not even one that it holds. A pair without a candidate is combined to std::nullopt.
// Quadratic.
template <class Combine>
KivOmbEnumInteger CollectPairs(const KivOmbEnumInteger& outer, const KivOmbEnumInteger& inner,
                               Combine combine) {
  KivOmbEnumInteger collected;
  collected.Nil();
  for (unsigned i = 0; i < outer.Count(); ++i) {
    for (unsigned j = 0; j < inner.Count(); ++j) {
      const std::optional<SubIntBase> candidate = combine(outer.GetValue(i), inner.GetValue(j));
      // A collection that is Any stays so. The next outer value is still combined once: `combine`
      // may set the error indicator of the arithmetic.
      if (candidate && collected.Insert(candidate->GetValue()) == 0) break;
    }
  }
  return collected;
}

}  // namespace kiv
