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
  const std::span<const SubIntBase> values = vector.View();
  return {reinterpret_cast<const std::int32_t*>(values.data()), values.size()};
}

// For `values` that are not empty.
inline bool EndsWithTwins(Values values) {
  return values.size() > 1 && values[values.size() - 2] == values.back();
}

// For `values` that are not empty: whether they are all integers between the ends, each once.
inline bool IsInterval(Values values) {
  return std::int64_t{values.back()} - values.front() + 1 ==
             static_cast<std::int64_t>(values.size()) &&
         !EndsWithTwins(values);
}

// For `values` that are not empty: whether the arithmetic of the intervals library treats one of
// them as infinite. All operators on the others are those of plain integers.
inline bool HasInfinity(Values values) {
  return values.front() == SubIntBase::kMin || values.back() == SubIntBase::kMax;
}

}  // namespace kiv::kernels
