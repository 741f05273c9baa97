#pragma once

#include <cstdint>

#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// The dividends in a window with given remainders, without a division for each.
//
// A remainder has the sign of its dividend and is less than the modulus in magnitude. So by a
// modulus of magnitude m, the dividends of r > 0 are r, r + m, r + 2m and so on, those of r < 0 are
// r, r - m, r - 2m and so on, and those of 0 are all multiples of m, both ways. Few remainders and
// large moduli leave few of them in the window.
class Progressions {
 public:
  // Of `remainders`, in the window from `lowest` to `highest`, which is not empty.
  Progressions(Values remainders, std::int64_t lowest, std::int64_t highest)
      : remainders_(remainders), lowest_(lowest), highest_(highest) {}

  // At least as many as there are by `m`.
  std::uint64_t CountAtMost(std::int32_t m) const {
    const auto span = static_cast<std::uint32_t>(highest_ - lowest_);
    return RemaindersBy(m).size() * (std::uint64_t{span / static_cast<std::uint32_t>(m)} + 2);
  }

  // Whether `holds` holds for one of those by `m`; stops at the first.
  template <class Holds>
  bool AnyOf(std::int32_t m, Holds holds) const {
    for (const std::int64_t r : RemaindersBy(m)) {
      if (r >= 0) {
        for (std::int64_t v = r + UpTo(lowest_ - r, m); v <= highest_; v += m) {
          if (holds(static_cast<std::int32_t>(v))) return true;
        }
      }
      if (r <= 0) {
        for (std::int64_t v = r - UpTo(r - highest_, m); v >= lowest_; v -= m) {
          if (holds(static_cast<std::int32_t>(v))) return true;
        }
      }
    }
    return false;
  }

 private:
  Values RemaindersBy(std::int32_t m) const {
    const unsigned first = CountBelow(remainders_, 1 - m);
    return remainders_.subspan(first, CountBelow(remainders_, m) - first);
  }

  // The least multiple of `m` that is not negative and at least `distance`, a 32-bit integer.
  static std::int64_t UpTo(std::int64_t distance, std::int32_t m) {
    if (distance <= 0) return 0;
    const auto step = static_cast<std::uint32_t>(m);
    return std::int64_t{(static_cast<std::uint32_t>(distance) + step - 1) / step} * m;
  }

  Values remainders_;
  std::int64_t lowest_;
  std::int64_t highest_;
};

}  // namespace kiv::kernels
