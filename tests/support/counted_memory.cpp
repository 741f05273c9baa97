#include "tests/support/counted_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include "framework/base/export.h"

namespace {

std::atomic<std::size_t> allocations = 0;

void* Allocate(std::size_t size) noexcept {
  ++allocations;
  return std::malloc(size != 0 ? size : 1);
}

}  // namespace

namespace kiv::test {

std::size_t CountAllocations() { return allocations; }

}  // namespace kiv::test

// Replacements for the whole process, its libraries included.
KIV_EXPORT void* operator new(std::size_t size) {
  if (void* memory = Allocate(size)) return memory;
  throw std::bad_alloc();
}
KIV_EXPORT void* operator new[](std::size_t size) { return operator new(size); }
KIV_EXPORT void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
KIV_EXPORT void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
KIV_EXPORT void operator delete(void* memory) noexcept { std::free(memory); }
KIV_EXPORT void operator delete[](void* memory) noexcept { std::free(memory); }
KIV_EXPORT void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
KIV_EXPORT void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
