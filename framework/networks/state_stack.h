#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

// Memory in pieces that come and go at one end. It is handed out as it is, not cleared, and room
// once made is kept. Pieces are found by where they begin, since more room is elsewhere.
class KivOmbiStateStack {
 public:
  std::size_t GetSize() const noexcept { return size_; }
  const std::byte* At(std::size_t begin) const noexcept { return memory_.get() + begin; }
  // What the next piece can be written to before it is added.
  std::span<std::byte> GetRoom() const noexcept { return {memory_.get() + size_, room_ - size_}; }
  void MakeRoom(std::size_t bytes) {
    const std::size_t room = std::max(size_ + Aligned(bytes), 2 * room_);
    auto memory = std::make_unique_for_overwrite<std::byte[]>(room);
    std::copy_n(memory_.get(), size_, memory.get());
    memory_ = std::move(memory);
    room_ = room;
  }
  // Adds a piece of that room. Each begins where any plain type may stand.
  void Add(std::size_t bytes) noexcept { size_ += Aligned(bytes); }
  // Takes back all pieces from `size` on.
  void Shrink(std::size_t size) noexcept { size_ = size; }

 private:
  static std::size_t Aligned(std::size_t bytes) noexcept {
    constexpr std::size_t kAlignment = alignof(std::max_align_t);
    return (bytes + kAlignment - 1) / kAlignment * kAlignment;
  }

  std::unique_ptr<std::byte[]> memory_;
  std::size_t size_ = 0;
  std::size_t room_ = 0;  // a multiple of the alignment
};
