#include "solver/constraints/linear_support.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <optional>

#include "framework/abstract_types/constraints/bilinear_values.h"
#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/unit_sum_support.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

constexpr unsigned kNotThere = ~0u;

// Whether the domain holds every integer between its bounds.
bool IsFull(const KivOmbiDomainSummary& summary) {
  return summary.state == KivOmbiDomainSummary::kValues && summary.lower > SubIntBase::kMin &&
         summary.upper < SubIntBase::kMax &&
         std::int64_t{summary.upper} - summary.lower + 1 == summary.cardinality;
}

// The values of a listable domain, ascending, with a position each.
class ValueList {
 public:
  void Load(const KivOmbiObjectEnvironment& environment, unsigned argument) {
    const KivOmbiDomainSummary& summary = environment.Summary(argument);
    first_ = summary.lower;
    count_ = summary.cardinality;
    is_full_ = IsFull(summary);
    if (is_full_) return;
    std::size_t i = 0;
    ForEachValue(environment, argument, [&](std::int32_t value) { values_[i++] = value; });
  }

  unsigned Count() const { return count_; }
  std::int32_t At(unsigned i) const {
    return is_full_ ? first_ + static_cast<std::int32_t>(i) : values_[i];
  }
  // The position of `value`, or kNotThere.
  template <class Wide>
  unsigned Find(Wide value) const {
    if (is_full_) {
      const Wide offset = value - first_;
      return offset >= 0 && offset < count_ ? static_cast<unsigned>(offset) : kNotThere;
    }
    const auto end = values_.begin() + count_;
    const auto found = std::lower_bound(values_.begin(), end, value);
    return found != end && *found == value ? static_cast<unsigned>(found - values_.begin())
                                           : kNotThere;
  }

 private:
  std::int32_t first_ = 0;
  unsigned count_ = 1;  // the one value 0, unless loaded
  bool is_full_ = true;
  std::array<std::int32_t, kMostListedValues> values_;  // unless full
};

// A term, with the values of its argument when they are listable.
struct Column {
  unsigned argument = kNotThere;  // of no argument: the term 0
  std::int64_t coefficient = 0;
  bool is_listed = true;
  ValueList values;

  void Load(const KivOmbiObjectEnvironment& environment) {
    is_listed = IsListable(environment.Summary(argument));
    if (is_listed) values.Load(environment, argument);
  }
};

// Positions that were marked.
class Marks {
 public:
  void Set(unsigned position) {
    if (marks_[position]) return;
    marks_.set(position);
    ++count_;
  }
  bool Has(unsigned position) const { return marks_[position]; }
  unsigned Count() const { return count_; }

 private:
  std::bitset<kMostListedValues> marks_;
  unsigned count_ = 0;
};

// The pairs of values of the two smaller domains, and for each the value that the third argument
// must have. Sums are computed in the type Wide.
template <class Wide>
class Triples {
 public:
  Triples(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
          const LinearSum::Limits& limits, std::uint64_t most_pairs)
      : environment_(environment), constant_(static_cast<Wide>(*limits.low)) {
    unsigned largest = 0;
    for (unsigned i = 1; i < sum.Count(); ++i) {
      if (Size(i) > Size(largest)) largest = i;
    }
    // The columns of missing terms come first, the largest domain last.
    unsigned next = kMostSupportedTerms - sum.Count();
    std::uint64_t pairs = 1;
    for (unsigned i = 0; i < sum.Count(); ++i) {
      if (i != largest) pairs *= std::min(Size(i), most_pairs + 1);
      Column& column = i == largest ? Last() : columns_[next++];
      column.argument = i;
      column.coefficient = sum.GetCoefficients()[i];
    }
    are_few_ = pairs <= most_pairs;
    if (!are_few_) return;
    for (Column& column : columns_) {
      if (column.argument != kNotThere) column.Load(environment);
    }
  }

  bool AreFew() const { return are_few_; }

  KivOmbiFilterResult Narrow() {
    if (environment_.Summary(Last().argument).IsAny() && !TakeLast()) return kKivContradiction;
    std::array<Marks, kMostSupportedTerms> supported;
    Hull hull = kEmptyHull;
    ForEach([&](unsigned i, unsigned j, Wide value) {
      const unsigned k = PositionInLast(value);
      if (k == kNotThere) return true;
      supported[0].Set(i);
      supported[1].Set(j);
      if (Last().is_listed) supported[2].Set(k);
      hull.lower = std::min(hull.lower, ToHullBound(value));
      hull.upper = std::max(hull.upper, ToHullBound(value));
      return true;
    });
    if (hull.IsEmpty()) return Empty(environment_, Last().argument);
    for (unsigned c = 0; c < kMostSupportedTerms; ++c) {
      if (columns_[c].argument == kNotThere || !columns_[c].is_listed) continue;
      if (const auto result = Keep(columns_[c], supported[c])) return result;
    }
    if (Last().is_listed) return 0;
    return NarrowToHull(environment_, Last().argument, hull);
  }

  bool AreThereAny() {
    bool found = false;
    ForEach([&](unsigned, unsigned, Wide value) {
      found = PositionInLast(value) != kNotThere;
      return !found;
    });
    return found;
  }

 private:
  Column& Last() { return columns_[kMostSupportedTerms - 1]; }

  std::uint64_t Size(unsigned argument) const {
    const KivOmbiDomainSummary& summary = environment_.Summary(argument);
    return IsListable(summary) ? summary.cardinality : ~std::uint64_t{0};
  }

  // Calls `use(i, j, value)` for the pairs of positions in the first two columns that an integer
  // `value` of the third completes, until it returns false.
  template <class Use>
  void ForEach(Use&& use) {
    const auto& [first, second, third] = columns_;
    const auto divisor = static_cast<Wide>(third.coefficient);
    const bool is_unit = divisor == 1 || divisor == -1;
    for (unsigned i = 0; i < first.values.Count(); ++i) {
      const Wide without_first =
          constant_ - static_cast<Wide>(first.coefficient) * first.values.At(i);
      for (unsigned j = 0; j < second.values.Count(); ++j) {
        const Wide rest =
            without_first - static_cast<Wide>(second.coefficient) * second.values.At(j);
        if (!is_unit && rest % divisor != 0) continue;
        if (!use(i, j, is_unit ? rest * divisor : rest / divisor)) return;
      }
    }
  }

  // The position of `value` in the last column; any number for one that is not listed but possible.
  unsigned PositionInLast(Wide value) {
    if (Last().is_listed) return Last().values.Find(value);
    const KivOmbiDomainSummary& summary = environment_.Summary(Last().argument);
    // Beyond the range of integers lies what a domain may hold that is open on that side.
    bool is_possible = false;
    if (value <= SubIntBase::kMin) {
      is_possible = summary.lower == SubIntBase::kMin;
    } else if (value >= SubIntBase::kMax) {
      is_possible = summary.upper == SubIntBase::kMax;
    } else {
      is_possible = environment_.Integer(Last().argument).MayBe(static_cast<std::int32_t>(value));
    }
    return is_possible ? 0 : kNotThere;
  }

  // The last argument, of which nothing is known, takes the values that complete a pair, unless
  // some are beyond the range of integers. False when there are none.
  bool TakeLast() {
    bool found = false;
    bool beyond = false;
    ForEach([&](unsigned, unsigned, Wide value) {
      found = true;
      beyond = value <= SubIntBase::kMin || value >= SubIntBase::kMax;
      return !beyond;
    });
    if (!found) return false;
    if (beyond) return true;
    TakeValues(environment_, Last().argument, [&](auto&& add) {
      ForEach([&](unsigned, unsigned, Wide value) {
        add(static_cast<std::int32_t>(value));
        return true;
      });
    });
    Last().Load(environment_);
    return true;
  }

  // Removes the values that are not marked, of which some are.
  KivOmbiFilterResult Keep(const Column& column, const Marks& marks) const {
    const ValueList& values = column.values;
    if (marks.Count() == values.Count()) return 0;
    unsigned first = 0;
    unsigned last = values.Count() - 1;
    while (!marks.Has(first)) ++first;
    while (!marks.Has(last)) --last;
    const unsigned i = column.argument;
    if (const auto result = TightenLower(environment_, i, values.At(first))) return result;
    if (const auto result = TightenUpper(environment_, i, values.At(last))) return result;
    const bool possible = environment_.NarrowInteger(i, [&](KivOmbiInteger& domain) {
      int changed = 0;
      for (unsigned k = first; k < last; ++k) {
        if (!marks.Has(k)) changed |= domain.RemoveExactValue(values.At(k));
      }
      return changed;
    });
    return possible ? 0 : kKivContradiction;
  }

  const KivOmbiObjectEnvironment& environment_;
  Wide constant_;
  bool are_few_ = false;
  std::array<Column, kMostSupportedTerms> columns_;
};

// Whether the bounds tell all: a sum without coefficients over domains without gaps has every value
// between its bounds.
bool HasNoGaps(const KivOmbiObjectEnvironment& environment, const LinearSum& sum) {
  if (!sum.HasUnitsOnly()) return false;
  for (unsigned i = 0; i < sum.Count(); ++i) {
    if (!IsFull(environment.Summary(i))) return false;
  }
  return true;
}

// A sum of three terms that gives one of them, the one with the most values, a coefficient of 1 or
// -1, says what that term is for each pair of the others. None, with nothing done, for other sums,
// where a variable stands in two terms and where there are too many pairs.
std::optional<KivOmbiFilterResult> NarrowByPairs(const KivOmbiObjectEnvironment& environment,
                                                 const LinearSum& sum, std::int64_t constant,
                                                 std::uint64_t most_pairs) {
  if (sum.Count() != 3 || !sum.IsNarrow()) return std::nullopt;
  const auto count = [&](unsigned i) { return environment.Summary(i).cardinality; };
  unsigned z = 2;
  for (const unsigned i : {0u, 1u}) {
    if (count(i) > count(z)) z = i;
  }
  const unsigned x = z == 0 ? 1 : 0;
  const unsigned y = z == 2 ? 1 : 2;
  const std::int64_t sign = sum.GetCoefficients()[z];
  if (sign != 1 && sign != -1) return std::nullopt;
  if (std::uint64_t{count(x)} * count(y) > most_pairs) return std::nullopt;
  if (environment.IsSame(x, y) || environment.IsSame(x, z) || environment.IsSame(y, z)) {
    return std::nullopt;
  }
  return NarrowBilinear(environment, x, y, z,
                        {.constant = sign * constant,
                         .of_x = -sign * sum.GetCoefficients()[x],
                         .of_y = -sign * sum.GetCoefficients()[y]});
}

template <class Wide>
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                           const LinearSum::Limits& limits, std::uint64_t most_pairs) {
  Triples<Wide> triples(environment, sum, limits, most_pairs);
  return triples.AreFew() ? triples.Narrow() : 0;
}

template <class Wide>
bool IsPossible(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                const LinearSum::Limits& limits) {
  Triples<Wide> triples(environment, sum, limits, kMostPairs);
  return !triples.AreFew() || triples.AreThereAny();
}

}  // namespace

KivOmbiFilterResult NarrowToSupported(const KivOmbiObjectEnvironment& environment,
                                      const LinearSum& sum, const LinearSum::Limits& limits,
                                      std::uint64_t most_pairs) {
  if (HasNoGaps(environment, sum)) return 0;
  if (const auto result =
          NarrowUnitSumToSupported(environment, sum, limits.narrow_low, most_pairs)) {
    return *result;
  }
  if (const auto result = NarrowByPairs(environment, sum, limits.narrow_low, most_pairs)) {
    return *result;
  }
  return sum.IsNarrow() ? Narrow<std::int64_t>(environment, sum, limits, most_pairs)
                        : Narrow<Int128>(environment, sum, limits, most_pairs);
}

bool HasSupport(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                const LinearSum::Limits& limits) {
  if (HasNoGaps(environment, sum)) return true;
  return sum.IsNarrow() ? IsPossible<std::int64_t>(environment, sum, limits)
                        : IsPossible<Int128>(environment, sum, limits);
}

}  // namespace kiv
