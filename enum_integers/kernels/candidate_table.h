#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <new>

#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/values.h"

namespace kiv::kernels {

// A collection for candidates of any kind in any order: a hash table with linear probing. With
// Insert it does literally what a domain does. Its slots are at least three times as many as the
// values that it may hold, so it never fills up.
class CandidateTable {
 public:
  // For at most `candidates` insertions.
  CandidateTable(std::uint64_t candidates, std::uint32_t cap) : cap_(cap) {
    const std::uint64_t most = std::min<std::uint64_t>(candidates, std::uint64_t{cap} + 1);
    std::uint64_t slots = std::bit_ceil(std::max<std::uint64_t>(4 * most, 12) - 4);
    if (slots > kInlineSlots) {
      large_.reset(new (std::nothrow) std::int32_t[slots]);
      // Without memory the table knows nothing, and takes nothing.
      if (large_ == nullptr) {
        is_any_ = true;
        cap_ = 0;
        slots = kInlineSlots;
      }
    }
    slots_ = large_ != nullptr ? large_.get() : inline_;
    mask_ = static_cast<std::uint32_t>(slots - 1);
    shift_ = 32 - std::countr_zero(slots);
    std::fill_n(slots_, slots, kFree);
  }
  CandidateTable(const CandidateTable&) = delete;
  CandidateTable& operator=(const CandidateTable&) = delete;

  // As a domain does: false when it is Any afterwards.
  bool Insert(std::int32_t v) {
    if (count_ >= cap_) {
      is_any_ = true;
      return false;
    }
    Place(v);
    return true;
  }

  // In whatever order: false when it holds more values than the cap, and so is Any.
  bool Add(std::int32_t v) {
    if (count_ > cap_) return false;
    Place(v);
    is_any_ = is_any_ || count_ > cap_;
    return !is_any_;
  }

  bool IsAny() const { return is_any_; }

  bool Contains(std::int32_t v) const {
    std::uint32_t slot = SlotOf(v);
    while (slots_[slot] != v && slots_[slot] != kFree) slot = (slot + 1) & mask_;
    return slots_[slot] == v;
  }

  unsigned Count() const { return count_; }
  std::uint64_t GetWidth() const { return count_; }

  void List(std::int32_t* out) const {
    std::int32_t* const end =
        std::copy_if(slots_, slots_ + mask_ + 1, out, [](std::int32_t v) { return v != kFree; });
    std::sort(out, end);
  }

  auto Membership() const {
    return [this](std::int32_t v) { return Contains(v); };
  }

 private:
  // What no value is.
  static constexpr std::int32_t kFree = SubIntBase::kMin - 1;
  static constexpr std::uint64_t kInlineSlots = 4096;

  // Multiplicative hashing by the golden ratio: the upper bits of the product. (D. E. Knuth, "The
  // Art of Computer Programming", volume 3, section 6.4.)
  std::uint32_t SlotOf(std::int32_t v) const {
    return static_cast<std::uint32_t>(v) * 0x9E3779B1u >> shift_;
  }

  void Place(std::int32_t v) {
    std::uint32_t slot = SlotOf(v);
    while (slots_[slot] != v) {
      if (slots_[slot] == kFree) {
        slots_[slot] = v;
        ++count_;
        return;
      }
      slot = (slot + 1) & mask_;
    }
  }

  std::int32_t* slots_;
  std::uint32_t mask_;
  int shift_;
  std::uint32_t cap_;
  unsigned count_ = 0;
  bool is_any_ = false;
  std::unique_ptr<std::int32_t[]> large_;
  std::int32_t inline_[kInlineSlots];
};

// Inserts combine(a, b) for every a of `outer` and, within, every b of `inner`. A table that is Any
// stays so; the next outer value is still combined once, because `combine` may set the error
// indicator of the arithmetic.
template <class Combine>
void InsertPairs(CandidateTable& table, Values outer, Values inner, Combine combine) {
  for (const std::int32_t a : outer) {
    for (const std::int32_t b : inner) {
      if (!table.Insert(combine(a, b))) break;
    }
  }
}

// Hands what the table holds to `take`.
template <class Take>
auto TakeTable(const CandidateTable& table, Take take) {
  if (table.IsAny()) return take(AnyCollection());
  if (table.Count() == 0) return take(NilCollection());
  return take(table);
}

// The collection of combine(a, b) for all pairs, literally.
template <class Combine, class Take>
auto CollectInOrder(Values outer, Values inner, std::uint32_t cap, Combine combine, Take take) {
  CandidateTable table(std::uint64_t{outer.size()} * inner.size(), cap);
  InsertPairs(table, outer, inner, combine);
  return TakeTable(table, take);
}

}  // namespace kiv::kernels
