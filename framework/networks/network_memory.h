#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "framework/base/export.h"

// Memory that is handed out piece by piece and freed as a whole. Throws std::bad_alloc.
class KIV_EXPORT KivOmbiNetworkMemory {
 public:
  void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t));

 private:
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  std::byte* next_ = nullptr;
  std::size_t left_ = 0;
};
