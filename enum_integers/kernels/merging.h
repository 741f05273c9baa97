#pragma once

#include "enum_integers/kernels/block_merging.h"
#include "enum_integers/kernels/values.h"

// Merges of ascending values into an array apart from both. Of values that stand several times, an
// intersection keeps as many as the rarer side has, a union as many as the more frequent side.
// Linear; an intersection of very unequal sizes is logarithmic in the larger for each of the
// smaller.
namespace kiv::kernels {

// What merges may overwrite beyond the values that they report.
constexpr unsigned kSlack = kBlockSlack;

// The values in both. `out` has room for those of `a` and the slack. Returns how many they are.
unsigned Intersect(Values a, Values b, std::int32_t* out);

// The values in either. `out` has room for those of both and the slack.
unsigned Unite(Values a, Values b, std::int32_t* out);

}  // namespace kiv::kernels
