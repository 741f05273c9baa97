#pragma once

#include <iterator>
#include <random>

namespace kiv::test {

using Generator = std::mt19937_64;

// A number of [lower, upper], all equally likely.
inline int Pick(Generator& random, int lower, int upper) {
  return std::uniform_int_distribution<int>(lower, upper)(random);
}

// True once in `times`.
inline bool OneIn(Generator& random, int times) { return Pick(random, 1, times) == 1; }

// An element of `elements`, which are not none.
template <class Elements>
const auto& PickOf(Generator& random, const Elements& elements) {
  return std::data(elements)[static_cast<std::size_t>(
      Pick(random, 0, static_cast<int>(std::size(elements)) - 1))];
}

}  // namespace kiv::test
