#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

// The shapes of sets over which kernels are compared.
namespace kiv::bench {

struct Density {
  const char* name;
  std::int32_t spread;  // hundredths of the window's size to the number of values drawn from it
};

// Consecutive values; a window with a third of its values missing; values far apart.
inline constexpr std::array<Density, 3> kDensities = {
    {{"interval", 100}, {"dense", 150}, {"sparse", 100000}}};

struct Shape {
  Density density;
  std::size_t size;  // the number of values
};

// `shape.size` values, ascending, from a window of the shape that begins at `from`.
std::vector<std::int32_t> RandomSet(const Shape& shape, std::int32_t from, std::mt19937& random);

// About one in `n` of `values`; in their order.
std::vector<std::int32_t> RandomPart(const std::vector<std::int32_t>& values, unsigned n,
                                     std::mt19937& random);

}  // namespace kiv::bench
