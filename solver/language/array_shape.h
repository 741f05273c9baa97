#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kiv {

// The indices from `first` to `last` of one dimension of an array; none when `last` is below.
struct IndexRange {
  std::int64_t first = 1;
  std::int64_t last = 0;

  std::uint64_t Count() const noexcept {
    return last < first ? 0 : static_cast<std::uint64_t>(last - first) + 1;
  }
  bool Contains(std::int64_t index) const noexcept { return first <= index && index <= last; }
  // "1..9".
  std::string Describe() const { return std::to_string(first) + ".." + std::to_string(last); }

  friend bool operator==(const IndexRange&, const IndexRange&) = default;
};

// The indices of an array by dimension; none for a single value. Elements are numbered row by row.
using ArrayShape = std::vector<IndexRange>;

// One for a single value.
inline std::uint64_t CountElements(const ArrayShape& shape) {
  std::uint64_t count = 1;
  for (const IndexRange& range : shape) count *= range.Count();
  return count;
}

// "1..9, 0..4".
inline std::string DescribeShape(const ArrayShape& shape) {
  std::string text;
  for (const IndexRange& range : shape) text += (text.empty() ? "" : ", ") + range.Describe();
  return text;
}

// The indices of the element of that number: "[3]" or "[1, 2]"; empty for a single value.
inline std::string DescribeIndices(const ArrayShape& shape, std::uint64_t number) {
  std::string text;
  for (std::size_t dimension = shape.size(); dimension-- > 0;) {
    const std::uint64_t count = shape[dimension].Count();
    const std::int64_t index = shape[dimension].first + static_cast<std::int64_t>(number % count);
    number /= count;
    text = std::to_string(index) + (text.empty() ? "" : ", ") + text;
  }
  return text.empty() ? text : '[' + text + ']';
}

}  // namespace kiv
