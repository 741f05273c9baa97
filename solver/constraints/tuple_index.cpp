#include "solver/constraints/tuple_index.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "solver/constraints/value_sets.h"

namespace kiv {

TupleIndex::TupleIndex(unsigned arity, std::size_t count, std::vector<std::int32_t> cells)
    : arity_(arity) {
  if (cells.size() > kMostCells || (arity > 0 && count > kMostCells / arity)) {
    throw std::length_error("a table of more than 67108864 integers");
  }
  if (cells.size() != arity * count || !std::ranges::all_of(cells, IsValue)) {
    throw std::invalid_argument("tuples of another length, or with a number beyond the integers");
  }
  if (arity == 0) {
    count_ = std::min<std::size_t>(count, 1);
  } else {
    SortTuples(count, cells);
  }
  for (unsigned column = 0; column < arity_; ++column) IndexColumn(column);
}

void TupleIndex::SortTuples(std::size_t count, const std::vector<std::int32_t>& cells) {
  const auto tuple = [&](std::uint32_t i) {
    return std::span(cells).subspan(std::size_t{i} * arity_, arity_);
  };
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0u);
  std::ranges::sort(order, [&](std::uint32_t i, std::uint32_t j) {
    return std::ranges::lexicographical_compare(tuple(i), tuple(j));
  });
  const auto are_equal = [&](std::uint32_t i, std::uint32_t j) {
    return std::ranges::equal(tuple(i), tuple(j));
  };
  order.erase(std::unique(order.begin(), order.end(), are_equal), order.end());

  count_ = order.size();
  cells_.reserve(count_ * arity_);
  for (const std::uint32_t i : order) {
    cells_.insert(cells_.end(), tuple(i).begin(), tuple(i).end());
  }
}

void TupleIndex::IndexColumn(unsigned column) {
  std::vector<std::int32_t> values(count_);
  for (std::size_t i = 0; i < count_; ++i) values[i] = GetCell(i, column);
  std::ranges::sort(values);
  values.erase(std::unique(values.begin(), values.end()), values.end());
  const auto first = static_cast<std::uint32_t>(values_.size());
  values_.insert(values_.end(), values.begin(), values.end());
  first_values_.push_back(static_cast<std::uint32_t>(values_.size()));

  constexpr std::uint32_t kNoWord = ~std::uint32_t{0};
  std::vector<std::uint32_t> number(count_);  // of the value of each tuple, from `first` on
  std::vector<std::uint32_t> last_word(values.size(), kNoWord);
  std::vector<std::size_t> next_part(values.size(), 0);
  for (std::size_t i = 0; i < count_; ++i) {
    number[i] = *FindValue(column, GetCell(i, column)) - first;
    const auto word = static_cast<std::uint32_t>(i / 64);
    if (last_word[number[i]] != word) ++next_part[number[i]];
    last_word[number[i]] = word;
  }
  for (std::size_t& part : next_part) {
    const std::size_t parts = part;
    part = first_parts_.back();
    first_parts_.push_back(part + parts);
  }
  parts_.resize(first_parts_.back());
  std::ranges::fill(last_word, kNoWord);
  for (std::size_t i = 0; i < count_; ++i) {
    const auto word = static_cast<std::uint32_t>(i / 64);
    std::size_t& next = next_part[number[i]];
    if (last_word[number[i]] != word) parts_[next++] = {word, 0};
    last_word[number[i]] = word;
    parts_[next - 1].tuples |= std::uint64_t{1} << (i % 64);
  }
}

bool TupleIndex::Contains(std::span<const std::int64_t> tuple) const {
  if (arity_ == 0) return count_ > 0;
  std::size_t lower = 0;
  for (std::size_t upper = count_; lower < upper;) {
    const std::size_t middle = lower + (upper - lower) / 2;
    const auto candidate = std::span(cells_).subspan(middle * arity_, arity_);
    if (std::ranges::lexicographical_compare(candidate, tuple)) {
      lower = middle + 1;
    } else {
      upper = middle;
    }
  }
  return lower < count_ &&
         std::ranges::equal(std::span(cells_).subspan(lower * arity_, arity_), tuple);
}

std::optional<std::uint32_t> TupleIndex::FindValue(unsigned column, std::int32_t value) const {
  const auto all = std::span(values_);
  const auto values =
      all.subspan(first_values_[column], first_values_[column + 1] - first_values_[column]);
  const auto found = std::ranges::lower_bound(values, value);
  if (found == values.end() || *found != value) return std::nullopt;
  return static_cast<std::uint32_t>(found - values.begin()) + first_values_[column];
}

}  // namespace kiv
