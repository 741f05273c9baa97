#pragma once

#include <cstdint>
#include <span>

#include "enum_integers/storage/value_vector.h"

namespace kiv::kernels {

// The values of a domain as the kernels read them: plain integers in ascending order. No two are
// equal, except that plus infinity may stand twice at the end.
using Values = std::span<const std::int32_t>;

// SubIntBase is its 32-bit integer and nothing else.
inline Values ValuesOf(const KivSVectorImp_SubIntBase& vector) {
  if (vector.Count() == 0) return {};
  return {reinterpret_cast<const std::int32_t*>(&vector[0]), vector.Count()};
}

// For `values` that are not empty: whether every integer between the ends is there.
inline bool IsInterval(Values values) {
  return std::int64_t{values.back()} - values.front() + 1 ==
         static_cast<std::int64_t>(values.size());
}

// For `values` that are not empty: whether the arithmetic of the intervals library treats one of
// them as infinite. All operators on the others are those of plain integers.
inline bool HasInfinity(Values values) {
  return values.front() == SubIntBase::kMin || values.back() == SubIntBase::kMax;
}

// For `values` that are not empty.
inline bool EndsWithTwins(Values values) {
  return values.size() > 1 && values[values.size() - 2] == values.back();
}

// For `values` that are not empty: whether they are just those from the first to the last.
inline bool IsGapless(Values values) { return IsInterval(values) && !EndsWithTwins(values); }

}  // namespace kiv::kernels
