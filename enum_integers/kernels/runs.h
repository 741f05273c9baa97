#pragma once

#include <array>
#include <cstdint>

#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// A collection as runs of consecutive integers: the sums of an interval and a set. Every value of
// the set starts a run as long as the interval, and runs that meet become one, so that one scan
// over the gaps of the set gives all of them.
class Runs {
 public:
  static constexpr std::size_t kMaxValues = 1024;

  // v + first .. v + last for every v of `values`: kMaxValues at most, but one at least.
  Runs(Values values, std::int64_t first, std::int64_t last) {
    runs_[0] = {values.front() + first, values.front() + last};
    for (const std::int32_t v : values.subspan(1)) {
      if (v + first > runs_[count_ - 1].last + 1) runs_[count_++].first = v + first;
      runs_[count_ - 1].last = v + last;
    }
  }

  unsigned Count() const {
    std::int64_t count = 0;
    for (unsigned i = 0; i < count_; ++i) count += runs_[i].last - runs_[i].first + 1;
    return static_cast<unsigned>(count);
  }
  std::uint64_t GetWidth() const {
    return static_cast<std::uint64_t>(runs_[count_ - 1].last - runs_[0].first + 1);
  }

  void List(std::int32_t* out) const {
    for (unsigned i = 0; i < count_; ++i) {
      for (std::int64_t v = runs_[i].first; v <= runs_[i].last; ++v) {
        *out++ = static_cast<std::int32_t>(v);
      }
    }
  }

  auto Membership() const {
    return [this, i = 0u](std::int32_t v) mutable {
      while (i < count_ && runs_[i].last < v) ++i;
      return i < count_ && runs_[i].first <= v;
    };
  }

 private:
  struct Run {
    std::int64_t first;
    std::int64_t last;
  };

  unsigned count_ = 1;
  std::array<Run, kMaxValues> runs_;
};

}  // namespace kiv::kernels
