#pragma once

#include <algorithm>
#include <cstdint>

#include "enum_integers/kernels/byte_map.h"
#include "enum_integers/kernels/candidate_table.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/distinct_candidates.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// The products of two sets. Hands the collection to `take` and returns what that returns. Products
// within a small window are marked in a map, which is counted afterwards; a wide window is left to
// the table, which gives up at the first candidate too many.
template <class Take>
auto CollectProducts(Values x, Values y, std::uint32_t cap, Take take) {
  if (x.empty() || y.empty()) return take(NilCollection());
  const std::uint64_t candidates = std::uint64_t{x.size()} * y.size();
  // The extremes of a bilinear function are at the corners.
  const std::int64_t x_low = x.front();
  const std::int64_t x_high = x.back();
  const auto [lowest, highest] =
      std::minmax({x_low * y.front(), x_low * y.back(), x_high * y.front(), x_high * y.back()});
  const auto in_order = [&](auto multiply) { return CollectInOrder(x, y, cap, multiply, take); };
  if (HasInfinity(x) || HasInfinity(y)) {
    return in_order([](std::int32_t a, std::int32_t b) { return base_mult(a, b).GetValue(); });
  }
  const auto multiply = [](std::int64_t a, std::int64_t b) {
    return SubIntBase::Clamp(a * b).GetValue();
  };
  const bool is_clamped = lowest < SubIntBase::kMin || highest > SubIntBase::kMax;
  if (is_clamped || !ByteMap::Suits(lowest, highest, candidates)) {
    return ProveTooMany(x, y, cap, multiply) ? take(AnyCollection()) : in_order(multiply);
  }
  ByteMap products(lowest, highest);
  for (const std::int64_t a : x) {
    for (const std::int32_t b : y) products.Add(a * b);
  }
  return TakeUnlessFull(products, candidates, cap, take, [&] { return in_order(multiply); });
}

}  // namespace kiv::kernels
