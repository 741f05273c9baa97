#include "bench/set_shapes.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace kiv::bench {

std::vector<std::int32_t> RandomSet(const Shape& shape, std::int32_t from, std::mt19937& random) {
  const auto window =
      static_cast<std::int32_t>(shape.size * static_cast<std::size_t>(shape.density.spread) / 100);
  std::set<std::int32_t> values;
  std::uniform_int_distribution<std::int32_t> draw(from, from + window - 1);
  while (values.size() < shape.size) values.insert(draw(random));
  return {values.begin(), values.end()};
}

std::vector<std::int32_t> RandomPart(const std::vector<std::int32_t>& values, unsigned n,
                                     std::mt19937& random) {
  std::vector<std::int32_t> part;
  std::copy_if(values.begin(), values.end(), std::back_inserter(part),
               [&](std::int32_t) { return random() % n == 0; });
  return part;
}

}  // namespace kiv::bench
