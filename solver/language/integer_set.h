#pragma once

#include <cstdint>
#include <vector>

#include "framework/base/export.h"

namespace kiv {

// Constant integers in ascending order: a range of any width, or single values.
class KIV_EXPORT IntegerSet {
 public:
  // Empty.
  IntegerSet() = default;

  // From `first` to `last`; empty when `last` is below.
  static IntegerSet FromRange(std::int64_t first, std::int64_t last);
  // In any order, with duplicates or without.
  static IntegerSet FromValues(std::vector<std::int64_t> values);

  bool IsEmpty() const noexcept { return last_ < first_; }
  bool Contains(std::int64_t value) const;
  // As many as 64 bits hold when there are more.
  std::uint64_t Count() const noexcept;
  // Of a set that is not empty: the least and the greatest.
  std::int64_t GetFirst() const noexcept { return first_; }
  std::int64_t GetLast() const noexcept { return last_; }
  // Whether all integers between the least and the greatest belong to it.
  bool IsRange() const noexcept { return values_.empty(); }
  // Unless it is a range.
  const std::vector<std::int64_t>& GetValues() const noexcept { return values_; }

  // Calls `visit` with each value until it returns false; whether it never did.
  template <class Visit>
  bool ForEach(Visit visit) const {
    if (IsEmpty()) return true;
    if (!IsRange()) {
      for (const std::int64_t value : values_) {
        if (!visit(value)) return false;
      }
      return true;
    }
    // The test comes before the increment that could overflow.
    for (std::int64_t value = first_;; ++value) {
      if (!visit(value)) return false;
      if (value == last_) return true;
    }
  }

 private:
  std::int64_t first_ = 1;
  std::int64_t last_ = 0;
  std::vector<std::int64_t> values_;  // none for a range
};

}  // namespace kiv
