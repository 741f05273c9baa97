#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

// Narrows the bounds of some arguments as far as `narrow(hulls)` can, which takes their hulls,
// leaves the first one what the others do, and then these what it does. As most bounds need several
// rounds to settle, they do so as numbers; only then are the domains written, in the order of
// `arguments`. Running again at once would change nothing.
template <std::size_t kCount, class Narrow>
KivOmbiFilterResult NarrowHulls(const KivOmbiObjectEnvironment& environment,
                                const std::array<unsigned, kCount>& arguments, Narrow&& narrow) {
  using Hulls = std::array<Hull, kCount>;
  const auto read = [&] {
    Hulls hulls;
    for (std::size_t k = 0; k < kCount; ++k) hulls[k] = HullOf(environment, arguments[k]);
    return hulls;
  };
  for (Hulls before = read();;) {
    Hulls settled = before;
    for (Hulls last = before;; last = settled) {
      narrow(settled);
      if (std::ranges::any_of(settled, &Hull::IsEmpty)) return Empty(environment, arguments[0]);
      if (std::equal(settled.begin() + 1, settled.end(), last.begin() + 1)) break;
    }
    if (settled == before) return 0;
    for (std::size_t k = 0; k < kCount; ++k) {
      if (settled[k] == before[k]) continue;
      if (const auto result = NarrowToHull(environment, arguments[k], settled[k])) return result;
    }
    // A domain with gaps leaps further, and one that is open does not hold every bound.
    const Hulls now = read();
    if (now == settled || now == before) return 0;
    before = now;
  }
}

// Whether a step ended its run.
constexpr bool IsEnd(KivOmbiFilterResult result) {
  return (result & (kKivContradiction | kKivOverflow)) != 0;
}

}  // namespace kiv
