#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kiv {

// A set of tuples of integers, numbered in lexicographic order, and for each value of each column
// the tuples that have it there. Sets of tuples are words of 64 bits; those of a value are kept as
// the words that are not 0, so that memory is linear in the integers of the set. Does not change.
class TupleIndex {
 public:
  // The most integers that the tuples may have together.
  static constexpr std::size_t kMostCells = std::size_t{1} << 26;

  // Some of the 64 tuples that word number `word` of a set stands for.
  struct Part {
    std::uint32_t word;
    std::uint64_t tuples;
  };

  // From `count` tuples of `arity` integers, one after the other, in any order; equal ones count
  // once. Throws std::invalid_argument when `cells` has another size or a number that is no value
  // of a variable, and std::length_error when it has more than kMostCells.
  TupleIndex(unsigned arity, std::size_t count, std::vector<std::int32_t> cells);

  unsigned GetArity() const { return arity_; }
  std::size_t CountTuples() const { return count_; }
  std::uint32_t CountWords() const { return static_cast<std::uint32_t>((count_ + 63) / 64); }
  bool Contains(std::span<const std::int64_t> tuple) const;
  std::int32_t GetCell(std::size_t tuple, unsigned column) const {
    return cells_[tuple * arity_ + column];
  }

  // The values of all columns are numbered together: those of a column from FirstValue(column) up
  // to FirstValue(column + 1), ascending.
  std::uint32_t FirstValue(unsigned column) const { return first_values_[column]; }
  std::uint32_t CountValues() const { return first_values_.back(); }
  std::int32_t GetValue(std::uint32_t number) const { return values_[number]; }
  // The number of a value in a column; none when no tuple has it there.
  std::optional<std::uint32_t> FindValue(unsigned column, std::int32_t value) const;
  // The tuples that have a value, by ascending word.
  std::span<const Part> TuplesOf(std::uint32_t number) const {
    return std::span(parts_).subspan(first_parts_[number],
                                     first_parts_[number + 1] - first_parts_[number]);
  }

 private:
  void SortTuples(std::size_t count, const std::vector<std::int32_t>& cells);
  void IndexColumn(unsigned column);

  unsigned arity_;
  std::size_t count_ = 0;
  std::vector<std::int32_t> cells_;
  std::vector<std::uint32_t> first_values_{0};  // by column
  std::vector<std::int32_t> values_;
  std::vector<std::size_t> first_parts_{0};  // by value number
  std::vector<Part> parts_;
};

}  // namespace kiv
