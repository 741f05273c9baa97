#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace kiv::kernels {

// Room for a result of `size` values that is built beside a domain: on the stack as long as two
// full domains would fit in. Get() is null when there is no memory for more.
class Scratch {
 public:
  explicit Scratch(std::size_t size) {
    if (size > kInlineSize) large_.reset(new (std::nothrow) std::int32_t[size]);
    values_ = size > kInlineSize ? large_.get() : inline_;
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  std::int32_t* Get() const { return values_; }

 private:
  static constexpr std::size_t kInlineSize = 2 * 1024 + 16;

  std::int32_t* values_;
  std::unique_ptr<std::int32_t[]> large_;
  std::int32_t inline_[kInlineSize];
};

}  // namespace kiv::kernels
