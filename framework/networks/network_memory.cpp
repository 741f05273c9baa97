#include "framework/networks/network_memory.h"

#include <algorithm>
#include <memory>

void* KivOmbiNetworkMemory::Allocate(std::size_t size, std::size_t alignment) {
  constexpr std::size_t kBlock = std::size_t{64} * 1024;
  void* memory = next_;
  if (memory == nullptr || std::align(alignment, size, memory, left_) == nullptr) {
    left_ = std::max(kBlock, size + alignment);
    blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(left_));
    memory = blocks_.back().get();
    std::align(alignment, size, memory, left_);
  }
  next_ = static_cast<std::byte*>(memory) + size;
  left_ -= size;
  return memory;
}
