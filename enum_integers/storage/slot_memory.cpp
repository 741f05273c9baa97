#include "enum_integers/storage/slot_memory.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <memory>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define KIV_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KIV_ADDRESS_SANITIZER 1
#endif
#endif
#ifdef KIV_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace kiv {
namespace {

// A size class holds the arrays of up to 2^(kSmallestLog2 + class) slots. The largest takes the
// union of two full domains; what is larger goes to the heap directly.
constexpr unsigned kSmallestLog2 = 5;
constexpr unsigned kClasses = 8;
constexpr std::uint32_t kLargest = std::uint32_t{1} << (kSmallestLog2 + kClasses - 1);

// How many free arrays of a class a thread keeps: at most 2 MB in all classes together.
constexpr std::uint32_t kKept = 32;

struct FreeArray {
  FreeArray* next;
};

struct FreeLists {
  FreeArray* first[kClasses];
  std::uint32_t length[kClasses];
  bool closed;  // the thread is ending: keep nothing more
};

// Has no destructor, so that it can be used until the very end of the thread.
constinit thread_local FreeLists free_lists = {};
constinit thread_local SlotMemoryLimit* innermost_limit = nullptr;

unsigned ClassOf(std::uint32_t count) noexcept {
  const unsigned log2 = count <= 1 ? 0u : static_cast<unsigned>(std::bit_width(count - 1));
  return std::max(log2, kSmallestLog2) - kSmallestLog2;
}

std::size_t BytesOf(std::uint32_t count) noexcept {
  const std::size_t slots =
      count <= kLargest ? std::size_t{1} << (kSmallestLog2 + ClassOf(count)) : std::size_t{count};
  return slots * sizeof(SubIntBase);
}

// A sanitizer sees of an array only the slots that were asked for, and nothing of a free one.
void Hide([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#ifdef KIV_ADDRESS_SANITIZER
  ASAN_POISON_MEMORY_REGION(memory, bytes);
#endif
}
void Show([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#ifdef KIV_ADDRESS_SANITIZER
  ASAN_UNPOISON_MEMORY_REGION(memory, bytes);
#endif
}

void* PopFree(unsigned size_class) noexcept {
  FreeArray* const array = free_lists.first[size_class];
  if (array == nullptr) return nullptr;
  Show(array, sizeof(FreeArray));
  free_lists.first[size_class] = array->next;
  --free_lists.length[size_class];
  return array;
}

// Gives the free arrays back when the thread ends.
struct FreeListsCloser {
  ~FreeListsCloser() {
    free_lists.closed = true;
    for (unsigned size_class = 0; size_class < kClasses; ++size_class) {
      while (void* const array = PopFree(size_class)) {
        Show(array, sizeof(SubIntBase) << (kSmallestLog2 + size_class));
        ::operator delete(array);
      }
    }
  }
  // Using the object at all is what makes the thread run its destructor.
  void Arm() noexcept {}
};
thread_local FreeListsCloser free_lists_closer;

bool PushFree(void* memory, unsigned size_class) noexcept {
  if (free_lists.closed || free_lists.length[size_class] == kKept) return false;
  free_lists_closer.Arm();
  free_lists.first[size_class] = ::new (memory) FreeArray{free_lists.first[size_class]};
  ++free_lists.length[size_class];
  return true;
}

}  // namespace

SlotMemoryLimit::SlotMemoryLimit(std::uint32_t successes) noexcept
    : successes_(successes), outer_(innermost_limit) {
  innermost_limit = this;
}

SlotMemoryLimit::~SlotMemoryLimit() { innermost_limit = outer_; }

SubIntBase* TakeSlots(std::uint32_t count) noexcept {
  if (innermost_limit != nullptr) {
    if (innermost_limit->successes_ == 0) return nullptr;
    --innermost_limit->successes_;
  }
  void* memory = count <= kLargest ? PopFree(ClassOf(count)) : nullptr;
  if (memory == nullptr) memory = ::operator new(BytesOf(count), std::nothrow);
  if (memory == nullptr) return nullptr;
  Hide(memory, BytesOf(count));
  Show(memory, count * sizeof(SubIntBase));
  auto* const slots = static_cast<SubIntBase*>(memory);
  std::uninitialized_value_construct_n(slots, count);
  return slots;
}

void ReturnSlots(SubIntBase* slots, std::uint32_t count) noexcept {
  if (slots == nullptr) return;
  Show(slots, BytesOf(count));
  if (count <= kLargest && PushFree(slots, ClassOf(count))) {
    Hide(slots, BytesOf(count));
  } else {
    ::operator delete(slots);
  }
}

}  // namespace kiv
