#pragma once

#include <cstdint>
#include <span>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"

// Steps by which constraints relate an argument, an integer of any kind, to a set of values. A set
// is ascending and without duplicates. What narrows returns KivOmbiFilterResult bits, 0 to go on.
namespace kiv {

using ValueSet = std::span<const std::int32_t>;

// Whether `value` is one that a variable can hold: no infinity, and nothing beyond.
bool IsValue(std::int64_t value);

// The values of `set` between the bounds of a domain.
ValueSet Between(ValueSet set, const KivOmbiDomainSummary& summary);

// Whether argument i may be `value`. Mostly the bounds tell.
bool MayBe(const KivOmbiObjectEnvironment& environment, unsigned i, std::int32_t value);

// Whether some value of argument i is in `set`, and whether all of them are known to be. Cost
// O(|set|) at most.
bool MayBeIn(const KivOmbiObjectEnvironment& environment, unsigned i, ValueSet set);
bool LiesIn(const KivOmbiObjectEnvironment& environment, unsigned i, ValueSet set);

// Whether some value of argument i lies in [lower, upper].
bool MayBeBetween(const KivOmbiObjectEnvironment& environment, unsigned i, std::int64_t lower,
                  std::int64_t upper);

// Leaves argument i only values of `set`; a kind that cannot lose inner values keeps their hull.
KivOmbiFilterResult KeepValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                               ValueSet set);
// Leaves argument i only values between the bounds, which are values themselves.
KivOmbiFilterResult KeepRange(const KivOmbiObjectEnvironment& environment, unsigned i,
                              std::int32_t lower, std::int32_t upper);
// Leaves argument i only `value`, even where nothing was known of it.
KivOmbiFilterResult FixTo(const KivOmbiObjectEnvironment& environment, unsigned i,
                          std::int32_t value);
// Argument i <> value, as far as its kind can lose it; kKivEntailed when that can no longer fail,
// else kKivAtFixpoint.
KivOmbiFilterResult Exclude(const KivOmbiObjectEnvironment& environment, unsigned i,
                            std::int64_t value);
// Removes the values of `set` from argument i, as far as its kind can lose them.
KivOmbiFilterResult RemoveValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                                 ValueSet set);

}  // namespace kiv
