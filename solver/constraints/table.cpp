#include "solver/constraints/table.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <utility>

#include "solver/constraints/supports.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

const KivOmbiConstraintDescriptor descriptor("kiv::Table", 0, 0, true);

}  // namespace

Table::Table(unsigned arity, std::size_t count, std::vector<std::int32_t> cells)
    : KivOmbiConstraint(&descriptor),
      index_(arity, count, std::move(cells)),
      columns_(arity),
      order_(index_.CountValues()),
      position_(index_.CountValues()),
      witness_(index_.CountValues(), 0),
      tuples_(index_.CountWords(), ~std::uint64_t{0}),
      words_(index_.CountWords()),
      words_left_(index_.CountWords()),
      mask_(index_.CountWords()) {
  if (const std::size_t last = index_.CountTuples() % 64; last != 0) {
    tuples_.back() = (std::uint64_t{1} << last) - 1;
  }
  std::iota(words_.begin(), words_.end(), 0u);
  std::iota(order_.begin(), order_.end(), 0u);
  for (unsigned column = 0; column < arity; ++column) {
    const std::uint32_t first = index_.FirstValue(column);
    const std::uint32_t beyond = index_.FirstValue(column + 1);
    columns_[column].left = beyond - first;
    for (std::uint32_t value = first; value < beyond; ++value) position_[value] = value - first;
  }
}

void Table::Activate(KivOmbiNetwork* network) {
  is_fresh_ = true;
  for (Column& column : columns_) column.changed = true;
  KivOmbiConstraint::Activate(network);
}

// A mark that outlives the level of the change costs a look, no more.
void Table::ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) {
  columns_[index].changed = true;
  KivOmbiConstraint::ActivateByArgument(index, events, network);
}

std::int64_t Table::Filter(const KivOmbiObjectEnvironment& environment, std::int64_t) {
  assert(environment.Count() == index_.GetArity());
  bool lost = is_fresh_;
  if (is_fresh_) DropUnequal(environment);
  for (unsigned column = 0; column < columns_.size(); ++column) {
    if (columns_[column].changed) lost |= DropTuples(environment, column);
  }
  if (lost) DropEmptyWords(environment);
  if (words_left_ == 0) return kKivContradiction;

  for (unsigned column = 0; column < columns_.size(); ++column) {
    if (lost) DropValues(environment, column);
    if (!lost && !columns_[column].changed) continue;
    if (const auto result = NarrowColumn(environment, column)) return result;
  }
  // What was removed just now had no tuples, so that no column has to be looked at again.
  for (Column& column : columns_) column.changed = false;
  is_fresh_ = false;
  return IsEntailed(environment) ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

// Drops the tuples that give a repeated variable two values.
void Table::DropUnequal(const KivOmbiObjectEnvironment& environment) {
  for (unsigned column = 1; column < columns_.size(); ++column) {
    unsigned earlier = 0;
    while (!environment.IsSame(earlier, column)) ++earlier;
    if (earlier == column) continue;
    for (std::size_t i = 0; i < index_.CountTuples(); ++i) {
      if (index_.GetCell(i, earlier) == index_.GetCell(i, column)) continue;
      std::uint64_t& word = tuples_[i / 64];
      environment.SetWord(word, word & ~(std::uint64_t{1} << (i % 64)));
    }
  }
}

// Drops the tuples whose value in a column has left the domain; false when there are none.
bool Table::DropTuples(const KivOmbiObjectEnvironment& environment, unsigned column) {
  const std::uint64_t before = columns_[column].left;
  const std::uint32_t first = index_.FirstValue(column);
  std::uint64_t left = 0;
  if (environment.Summary(column).IsFixed()) {
    const auto value = index_.FindValue(column, environment.Summary(column).lower);
    if (value && IsLeft(column, *value)) Exchange(column, position_[*value], left++);
  } else {
    const KivOmbiInteger& domain = environment.Integer(column);
    for (std::uint64_t i = 0; i < before; ++i) {
      if (domain.MayBe(index_.GetValue(order_[first + i]))) Exchange(column, i, left++);
    }
  }
  if (left == before) return false;
  environment.SetWord(columns_[column].left, left);
  if (left < before - left) {
    KeepTuplesOf(environment, column);
  } else {
    ForgetTuplesOf(environment, column, left, before);
  }
  return true;
}

void Table::ForgetTuplesOf(const KivOmbiObjectEnvironment& environment, unsigned column,
                           std::uint64_t from, std::uint64_t to) {
  for (std::uint64_t i = from; i < to; ++i) {
    const std::uint32_t value = order_[index_.FirstValue(column) + i];
    for (const TupleIndex::Part& part : index_.TuplesOf(value)) {
      environment.SetWord(tuples_[part.word], tuples_[part.word] & ~part.tuples);
    }
  }
}

void Table::KeepTuplesOf(const KivOmbiObjectEnvironment& environment, unsigned column) {
  const auto words = std::span(words_).first(words_left_);
  for (const std::uint32_t word : words) mask_[word] = 0;
  for (std::uint64_t i = 0; i < columns_[column].left; ++i) {
    const std::uint32_t value = order_[index_.FirstValue(column) + i];
    for (const TupleIndex::Part& part : index_.TuplesOf(value)) mask_[part.word] |= part.tuples;
  }
  for (const std::uint32_t word : words) {
    environment.SetWord(tuples_[word], tuples_[word] & mask_[word]);
  }
}

void Table::DropEmptyWords(const KivOmbiObjectEnvironment& environment) {
  std::uint64_t left = 0;
  for (std::uint64_t i = 0; i < words_left_; ++i) {
    if (tuples_[words_[i]] != 0) std::swap(words_[i], words_[left++]);
  }
  environment.SetWord(words_left_, left);
}

// Drops the values of a column that no tuple has any more.
void Table::DropValues(const KivOmbiObjectEnvironment& environment, unsigned column) {
  std::uint64_t left = 0;
  for (std::uint64_t i = 0; i < columns_[column].left; ++i) {
    if (HasTuple(order_[index_.FirstValue(column) + i])) Exchange(column, i, left++);
  }
  environment.SetWord(columns_[column].left, left);
}

bool Table::HasTuple(std::uint32_t value) {
  const auto parts = index_.TuplesOf(value);
  const auto is_left = [&](const TupleIndex::Part& part) {
    return (tuples_[part.word] & part.tuples) != 0;
  };
  if (is_left(parts[witness_[value]])) return true;
  const auto found = std::ranges::find_if(parts, is_left);
  if (found == parts.end()) return false;
  witness_[value] = static_cast<std::uint32_t>(found - parts.begin());
  return true;
}

KivOmbiFilterResult Table::NarrowColumn(const KivOmbiObjectEnvironment& environment,
                                        unsigned column) {
  const auto left = std::span(order_).subspan(index_.FirstValue(column), columns_[column].left);
  // Values are numbered in ascending order.
  const auto [least, greatest] = std::ranges::minmax(left);
  if (const auto result = TightenLower(environment, column, index_.GetValue(least))) return result;
  if (const auto result = TightenUpper(environment, column, index_.GetValue(greatest))) {
    return result;
  }
  const KivOmbiDomainSummary& summary = environment.Summary(column);
  if (summary.IsAny() && left.size() <= kMostListedValues) {
    TakeValues(environment, column, [&](auto&& add) {
      for (const std::uint32_t value : left) add(index_.GetValue(value));
    });
  }
  // The domain holds all values left; if it holds as many, it holds no others.
  if (!IsListable(summary) || summary.cardinality == left.size()) return 0;
  return KeepIf(environment, column, [&](std::int32_t value) {
    const auto number = index_.FindValue(column, value);
    return number && IsLeft(column, *number);
  });
}

// With one open variable left, all of its values have their tuples.
bool Table::IsEntailed(const KivOmbiObjectEnvironment& environment) const {
  unsigned open = 0;
  for (unsigned column = 0; column < columns_.size(); ++column) {
    const KivOmbiDomainSummary& summary = environment.Summary(column);
    if (summary.IsFixed()) continue;
    const bool is_exact = !summary.IsAny() && summary.cardinality == columns_[column].left;
    if (!is_exact || ++open > 1) return false;
  }
  return true;
}

bool Table::IsLeft(unsigned column, std::uint32_t value) const {
  return position_[value] < columns_[column].left;
}

void Table::Exchange(unsigned column, std::uint64_t i, std::uint64_t j) {
  const std::uint32_t first = index_.FirstValue(column);
  std::swap(order_[first + i], order_[first + j]);
  position_[order_[first + i]] = static_cast<std::uint32_t>(i);
  position_[order_[first + j]] = static_cast<std::uint32_t>(j);
}

KivOmbiConstraint::Cost Table::GetCost() const { return kCostly; }

bool Table::Holds(std::span<const std::int64_t> values) const { return index_.Contains(values); }

}  // namespace kiv
