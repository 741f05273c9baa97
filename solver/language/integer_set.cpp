#include "solver/language/integer_set.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kiv {

IntegerSet IntegerSet::FromRange(std::int64_t first, std::int64_t last) {
  IntegerSet set;
  if (last < first) return set;
  set.first_ = first;
  set.last_ = last;
  return set;
}

IntegerSet IntegerSet::FromValues(std::vector<std::int64_t> values) {
  IntegerSet set;
  if (values.empty()) return set;
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  set.first_ = values.front();
  set.last_ = values.back();
  // Unsigned: the width of a set may be more than a signed integer holds.
  const std::uint64_t width =
      static_cast<std::uint64_t>(set.last_) - static_cast<std::uint64_t>(set.first_);
  if (width != values.size() - 1) set.values_ = std::move(values);
  return set;
}

std::uint64_t IntegerSet::Count() const noexcept {
  if (IsEmpty()) return 0;
  if (!IsRange()) return values_.size();
  const std::uint64_t width =
      static_cast<std::uint64_t>(last_) - static_cast<std::uint64_t>(first_);
  return width == std::numeric_limits<std::uint64_t>::max() ? width : width + 1;
}

bool IntegerSet::Contains(std::int64_t value) const {
  if (IsRange()) return first_ <= value && value <= last_;
  return std::binary_search(values_.begin(), values_.end(), value);
}

}  // namespace kiv
