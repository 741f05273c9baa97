#pragma once

#include <cstdint>
#include <vector>

#include "framework/abstract_types/constraint.h"
#include "solver/constraints/tuple_index.h"

namespace kiv {

// Its integers, together, are one of given tuples. Domain consistent, also with repeated variables,
// where the kinds can have holes and hold few values, otherwise as far as the bounds tell: a tuple
// goes when one of its values leaves a domain.
//
// Compact table (Demeulenaere, Hartert, Lecoutre, Perez, Perron, Regin, Schaus 2016,
// "Compact-Table: Efficiently filtering table constraints with reversible sparse bit-sets"): the
// tuples left are bits of words, and the words that are not 0 stand in front of a list of all. The
// values left of a column stand in front of a list of its values likewise. Going back restores the
// words and how many stand in front; the order of a list may stay, since what leaves its front part
// stays behind it.
class KIV_EXPORT Table final : public KivOmbiConstraint {
 public:
  // From `count` tuples of `arity` integers, one after the other; throws what TupleIndex does. To
  // be posted over `arity` variables.
  Table(unsigned arity, std::size_t count, std::vector<std::int32_t> cells);

  void Activate(KivOmbiNetwork* network) override;
  void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network) override;
  // At worst linear in the values of the changed columns, those left of all columns, and the words
  // that hold them.
  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  struct Column {
    bool changed = true;     // its domain, since it was looked at last
    std::uint64_t left = 0;  // how many of its values stand in front
  };

  void DropUnequal(const KivOmbiObjectEnvironment& environment);
  bool DropTuples(const KivOmbiObjectEnvironment& environment, unsigned column);
  void ForgetTuplesOf(const KivOmbiObjectEnvironment& environment, unsigned column,
                      std::uint64_t from, std::uint64_t to);
  void KeepTuplesOf(const KivOmbiObjectEnvironment& environment, unsigned column);
  void DropEmptyWords(const KivOmbiObjectEnvironment& environment);
  void DropValues(const KivOmbiObjectEnvironment& environment, unsigned column);
  bool HasTuple(std::uint32_t value);
  KivOmbiFilterResult NarrowColumn(const KivOmbiObjectEnvironment& environment, unsigned column);
  bool IsEntailed(const KivOmbiObjectEnvironment& environment) const;
  bool IsLeft(unsigned column, std::uint32_t value) const;
  void Exchange(unsigned column, std::uint64_t i, std::uint64_t j);

  TupleIndex index_;
  bool is_fresh_ = true;  // nothing was concluded yet
  std::vector<Column> columns_;
  std::vector<std::uint32_t> order_;     // the numbers of the values, column after column
  std::vector<std::uint32_t> position_;  // in order_, from the column's first on; by value
  std::vector<std::uint32_t> witness_;   // the part that showed the value possible; by value
  std::vector<std::uint64_t> tuples_;    // those left
  std::vector<std::uint32_t> words_;     // the numbers of the words
  std::uint64_t words_left_;             // how many of words_ stand in front
  std::vector<std::uint64_t> mask_;      // to collect tuples in
};

}  // namespace kiv
