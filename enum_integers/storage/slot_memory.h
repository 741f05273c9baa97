#pragma once

#include <cstdint>

#include "framework/base/export.h"
#include "framework/intervals/sub_int_base.h"

// Memory for the arrays of value vectors.
//
// A propagation step makes and drops several short-lived domains, so arrays are recycled: a freed
// array goes to a list of its size class that belongs to the freeing thread, and the next array of
// that class on the same thread is taken from there. Once every class in use has its arrays, a
// search asks the heap for nothing. The lists are bounded and given back when the thread ends. An
// array may be freed on another thread than the one that took it, and at any time, also after the
// thread-local objects of the freeing thread are gone.
namespace kiv {

// An array of `count` zeros (room for one when `count` is 0); null when there is no memory.
SubIntBase* TakeSlots(std::uint32_t count) noexcept;

// Ends an array that TakeSlots(count) gave, with the same count; null is ignored.
void ReturnSlots(SubIntBase* slots, std::uint32_t count) noexcept;

// The way for tests to run out of memory: while it lives, the calling thread gets `successes` more
// arrays and then none, recycled ones included. Limits nest; the innermost alone counts.
class KIV_EXPORT SlotMemoryLimit {
 public:
  explicit SlotMemoryLimit(std::uint32_t successes) noexcept;
  ~SlotMemoryLimit();
  SlotMemoryLimit(const SlotMemoryLimit&) = delete;
  SlotMemoryLimit& operator=(const SlotMemoryLimit&) = delete;

 private:
  friend SubIntBase* TakeSlots(std::uint32_t count) noexcept;

  std::uint32_t successes_;
  SlotMemoryLimit* outer_;
};

}  // namespace kiv
