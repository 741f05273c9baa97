#include "bench/set_shapes.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace kiv::bench {

std::vector<std::int32_t> RandomSet(const Shape& shape, std::int32_t from, std::mt19937& random) {
  std::vector<std::int32_t> window(shape.size * static_cast<std::size_t>(shape.density.spread) /
                                   100);
  std::iota(window.begin(), window.end(), from);
  std::vector<std::int32_t> values;
  values.reserve(shape.size);
  std::sample(window.begin(), window.end(), std::back_inserter(values), shape.size, random);
  return values;
}

std::vector<std::int32_t> RandomPart(const std::vector<std::int32_t>& values, unsigned n,
                                     std::mt19937& random) {
  std::vector<std::int32_t> part;
  std::copy_if(values.begin(), values.end(), std::back_inserter(part),
               [&](std::int32_t) { return random() % n == 0; });
  return part;
}

}  // namespace kiv::bench
