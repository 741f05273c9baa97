#pragma once

#include <random>

#include "framework/networks/network.h"
#include "solver/search/literal.h"

namespace kiv {

// How the domain of a chosen variable is split in two: the part that is tried first, and the rest.
enum class ValueChoice {
  kSmallest,      // the smallest value
  kGreatest,      // the greatest value
  kButSmallest,   // all values but the smallest
  kButGreatest,   // all values but the greatest
  kLowerHalf,     // the lower half of the values, as the kind itself bisects
  kUpperHalf,     // the upper half
  kUpToMiddle,    // the values up to the middle between the bounds, rounded down
  kBeyondMiddle,  // the values above it
  kUpToFirstGap,  // the values before the first gap between values; without gaps as kUpToMiddle
  kMiddle,        // the value nearest to the middle between the bounds, the smaller one of two
  kMedian,        // as many values below as above it; of an even number of values one less below
  kRandom,        // some value
  kFromBelow,     // the smallest value, but the lower half of more than 64 values
};

// The part to try first, as a literal that neither holds nor fails for all values of the variable,
// which must be open between finite bounds.
KIV_EXPORT Literal ChooseValue(KivOmbNetwork& network, KivOmbNetwork::VariableId variable,
                               ValueChoice choice, std::mt19937_64& random);

}  // namespace kiv
