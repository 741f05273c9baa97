#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kiv {

// How much of a resource is surely in use, over time.
class ResourceProfile {
 public:
  // From `begin` up to but without `end`; nothing when begin >= end.
  struct Use {
    std::int64_t begin = 0;
    std::int64_t end = 0;
    std::int64_t amount = 0;

    bool IsEmpty() const { return begin >= end || amount == 0; }
    bool Covers(const Use& other) const { return begin <= other.begin && other.end <= end; }
  };

  // For as many uses at once.
  explicit ResourceProfile(std::size_t uses);

  void Clear();
  void Add(const Use& use);
  // Sums up what was added since Clear(): O(n log n).
  void Build();
  // Their sums, in order of time; each lies within or beside each use that was added, and amounts
  // outside are 0.
  std::span<const Use> Segments() const { return segments_; }
  std::int64_t Peak() const { return peak_; }

 private:
  struct Change {
    std::int64_t time;
    std::int64_t amount;
  };

  std::vector<Change> changes_;
  std::vector<Use> segments_;
  std::int64_t peak_ = 0;
};

}  // namespace kiv
