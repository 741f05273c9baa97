#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

// Narrows `hulls` by `narrow(hulls)`, which leaves the first one what the others do and then these
// what it does, over and over until that changes nothing.
template <std::size_t kCount, class Narrow>
void SettleHulls(std::array<Hull, kCount>& hulls, Narrow&& narrow) {
  for (;;) {
    const std::array<Hull, kCount> before = hulls;
    narrow(hulls);
    if (std::ranges::any_of(hulls, &Hull::IsEmpty)) return;
    if (std::equal(hulls.begin() + 1, hulls.end(), before.begin() + 1)) return;
  }
}

// Narrows the bounds of some arguments to what `settle(hulls)` leaves of their hulls, which a
// second call would not change. As most bounds need several rounds to settle, they do so as
// numbers; only then are the domains written, in the order of `arguments`. What it returns 0 for is
// at rest.
template <std::size_t kCount, class Settle>
KivOmbiFilterResult NarrowHulls(const KivOmbiObjectEnvironment& environment,
                                const std::array<unsigned, kCount>& arguments, Settle&& settle) {
  using Hulls = std::array<Hull, kCount>;
  const auto read = [&] {
    Hulls hulls;
    for (std::size_t k = 0; k < kCount; ++k) hulls[k] = HullOf(environment, arguments[k]);
    return hulls;
  };
  for (Hulls before = read();;) {
    Hulls settled = before;
    settle(settled);
    if (std::ranges::any_of(settled, &Hull::IsEmpty)) return Empty(environment, arguments[0]);
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
