#include "framework/abstract_types/constraints/bilinear_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

// The most values of a domain that lists them.
constexpr std::size_t kMostValues = 1024;
constexpr std::size_t kWord = 64;

constexpr std::size_t CountWords(std::size_t bits) { return (bits + kWord - 1) / kWord; }

// A set of numbers from 0 on that are less than `kMost`. It costs what is used of it.
template <std::size_t kMost>
class Bits {
 public:
  void Clear(std::size_t size) {
    words_in_use_ = CountWords(size);
    std::fill_n(words_.begin(), words_in_use_, std::uint64_t{0});
  }
  std::uint64_t Get(std::size_t i) const { return words_[i / kWord] >> i % kWord & 1; }
  // Adds i when `bit` is 1, nothing when it is 0.
  void Add(std::size_t i, std::uint64_t bit) { words_[i / kWord] |= bit << i % kWord; }
  // Calls `use(i)` for each number of this that is not in `other`, ascending.
  template <class Use>
  void ForEachBut(const Bits& other, Use&& use) const {
    for (std::size_t w = 0; w < words_in_use_; ++w) {
      for (std::uint64_t bits = words_[w] & ~other.words_[w]; bits != 0; bits &= bits - 1) {
        use(w * kWord + static_cast<std::size_t>(std::countr_zero(bits)));
      }
    }
  }

 private:
  std::size_t words_in_use_ = 0;
  std::array<std::uint64_t, CountWords(kMost)> words_;
};

// Values that an argument is to lose, ascending.
class LostValues {
 public:
  void Add(std::int32_t value) { values_[count_++] = value; }
  KivOmbiFilterResult Take(const KivOmbiObjectEnvironment& environment, unsigned argument) const {
    return LoseValues(environment, argument, std::span(values_).first(count_));
  }

 private:
  std::size_t count_ = 0;
  std::array<std::int32_t, kMostValues> values_;
};

// The values of an argument, ascending, and which of them are supported.
class MarkedValues {
 public:
  // False where there are too many values.
  bool Load(const KivOmbiObjectEnvironment& environment, unsigned argument) {
    const KivOmbiDomainSummary& summary = environment.Summary(argument);
    argument_ = argument;
    first_ = summary.lower;
    count_ = summary.cardinality;
    listed_ = environment.Values(argument);
    if (count_ > kMostValues) return false;
    marks_.Clear(count_);
    return true;
  }

  std::size_t Count() const { return count_; }
  // A kind that lists no values has all between its bounds.
  std::int64_t At(std::size_t i) const {
    return listed_.empty() ? first_ + static_cast<std::int64_t>(i) : listed_[i].GetValue();
  }
  void Mark(std::size_t i, std::uint64_t bit) { marks_.Add(i, bit); }
  // The position of the first value from `from` on that is not less than `value`. Short ways are
  // short.
  std::size_t FindFrom(std::size_t from, std::int64_t value) const {
    std::size_t step = 1;
    while (from + step < count_ && At(from + step) < value) {
      from += step;
      step *= 2;
    }
    std::size_t end = std::min(from + step, count_);
    while (from < end) {
      const std::size_t middle = from + (end - from) / 2;
      if (At(middle) < value) {
        from = middle + 1;
      } else {
        end = middle;
      }
    }
    return from;
  }

  KivOmbiFilterResult KeepMarked(const KivOmbiObjectEnvironment& environment) const {
    LostValues lost;
    for (std::size_t i = 0; i < count_; ++i) {
      if (marks_.Get(i) == 0) lost.Add(static_cast<std::int32_t>(At(i)));
    }
    return lost.Take(environment, argument_);
  }

 private:
  unsigned argument_ = 0;
  std::int64_t first_ = 0;
  std::size_t count_ = 0;
  std::span<const SubIntBase> listed_;
  Bits<kMostValues> marks_;
};

// What one value of an operand makes of z for each value y of the other: offset + step * y.
struct Line {
  std::int64_t offset;
  std::int64_t step;

  std::int64_t At(std::int64_t y) const { return offset + step * y; }
};

// What z may be, in the three shapes that follow: each can mark a row, which is what a line makes
// of the values of y at the positions [first, last), all of it between the bounds of z. It answers
// whether anything of it is possible.

// Where z is known by its bounds alone, all of it is.
class Range {
 public:
  std::uint64_t MarkRow(const Line& line, MarkedValues& y, std::size_t first, std::size_t last) {
    if (first == last) return 0;
    for (std::size_t j = first; j < last; ++j) y.Mark(j, 1);
    for (const std::int64_t end : {line.At(y.At(first)), line.At(y.At(last - 1))}) {
      hull_ = Union(hull_, {end, end});
    }
    return 1;
  }
  KivOmbiFilterResult Keep(const KivOmbiObjectEnvironment& environment, unsigned z) const {
    return NarrowToHull(environment, z, hull_);
  }

 private:
  Hull hull_ = kEmptyHull;
};

// Where the values of z lie close together: a bit for each integer between its bounds.
class Window {
 public:
  // A word of bits costs about as much as a value.
  static bool Suits(const KivOmbiDomainSummary& z) {
    const auto places = static_cast<std::size_t>(std::int64_t{z.upper} - z.lower + 1);
    return places <= kMostPlaces && CountWords(places) <= kFewWords + z.cardinality;
  }

  Window(const KivOmbiObjectEnvironment& environment, unsigned z)
      : lower_(environment.Summary(z).lower) {
    const auto places =
        static_cast<std::size_t>(std::int64_t{environment.Summary(z).upper} - lower_ + 1);
    values_.Clear(places);
    marks_.Clear(places);
    for (const SubIntBase value : environment.Values(z)) {
      values_.Add(PlaceOf(value.GetValue()), 1);
    }
  }

  // Without a branch for each pair, none of which could be foreseen.
  std::uint64_t MarkRow(const Line& line, MarkedValues& y, std::size_t first, std::size_t last) {
    std::uint64_t any = 0;
    for (std::size_t j = first; j < last; ++j) {
      const std::size_t place = PlaceOf(line.At(y.At(j)));
      const std::uint64_t bit = values_.Get(place);
      marks_.Add(place, bit);
      y.Mark(j, bit);
      any |= bit;
    }
    return any;
  }
  KivOmbiFilterResult Keep(const KivOmbiObjectEnvironment& environment, unsigned z) const {
    LostValues lost;
    values_.ForEachBut(marks_, [&](std::size_t place) {
      lost.Add(static_cast<std::int32_t>(lower_ + static_cast<std::int64_t>(place)));
    });
    return lost.Take(environment, z);
  }

 private:
  static constexpr std::size_t kMostPlaces = std::size_t{1} << 15;
  static constexpr std::size_t kFewWords = 16;

  std::size_t PlaceOf(std::int64_t value) const { return static_cast<std::size_t>(value - lower_); }

  std::int64_t lower_;
  Bits<kMostPlaces> values_;
  Bits<kMostPlaces> marks_;
};

// Where they lie far apart: a row, ascending, is looked up in the list.
class List {
 public:
  List(const KivOmbiObjectEnvironment& environment, unsigned z) { values_.Load(environment, z); }

  std::uint64_t MarkRow(const Line& line, MarkedValues& y, std::size_t first, std::size_t last) {
    std::uint64_t any = 0;
    std::size_t place = 0;
    for (std::size_t k = first; k < last; ++k) {
      const std::size_t j = line.step < 0 ? first + last - 1 - k : k;
      const std::int64_t value = line.At(y.At(j));
      place = values_.FindFrom(place, value);
      const std::uint64_t bit = values_.At(place) == value;
      values_.Mark(place, bit);
      y.Mark(j, bit);
      any |= bit;
    }
    return any;
  }
  KivOmbiFilterResult Keep(const KivOmbiObjectEnvironment& environment, unsigned) const {
    return values_.KeepMarked(environment);
  }

 private:
  MarkedValues values_;
};

// The positions of the values of y that a line takes to where z lies.
std::pair<std::size_t, std::size_t> RowBetween(const Line& line, const MarkedValues& y,
                                               const KivOmbiDomainSummary& z) {
  const auto count_while = [&](auto&& is_before) {
    std::size_t first = 0;
    std::size_t last = y.Count();
    while (first < last) {
      const std::size_t middle = first + (last - first) / 2;
      if (is_before(line.At(y.At(middle)))) {
        first = middle + 1;
      } else {
        last = middle;
      }
    }
    return first;
  };
  if (line.step >= 0) {
    return {count_while([&](std::int64_t value) { return value < z.lower; }),
            count_while([&](std::int64_t value) { return value <= z.upper; })};
  }
  return {count_while([&](std::int64_t value) { return value > z.upper; }),
          count_while([&](std::int64_t value) { return value >= z.lower; })};
}

template <class Results>
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, MarkedValues& x,
                           MarkedValues& y, unsigned z, const Bilinear& form, Results&& results) {
  const KivOmbiDomainSummary& summary = environment.Summary(z);
  for (std::size_t i = 0; i < x.Count(); ++i) {
    const Line line{form.constant + form.of_x * x.At(i), form.of_y + form.of_product * x.At(i)};
    const auto [first, last] = RowBetween(line, y, summary);
    x.Mark(i, results.MarkRow(line, y, first, last));
  }
  if (const auto result = results.Keep(environment, z)) return result;
  if (const auto result = x.KeepMarked(environment)) return result;
  return y.KeepMarked(environment);
}

bool IsFinite(const KivOmbiDomainSummary& summary) {
  return summary.state == KivOmbiDomainSummary::kValues && summary.lower > SubIntBase::kMin &&
         summary.upper < SubIntBase::kMax;
}

}  // namespace

std::optional<KivOmbiFilterResult> NarrowBilinear(const KivOmbiObjectEnvironment& environment,
                                                  unsigned x, unsigned y, unsigned z,
                                                  Bilinear form) {
  for (const unsigned i : {x, y, z}) {
    if (!IsFinite(environment.Summary(i))) return std::nullopt;
  }
  // Fewer rows are longer rows.
  if (environment.Summary(x).cardinality > environment.Summary(y).cardinality) {
    std::swap(x, y);
    std::swap(form.of_x, form.of_y);
  }
  MarkedValues rows;
  MarkedValues columns;
  if (!rows.Load(environment, x) || !columns.Load(environment, y)) return std::nullopt;
  if (environment.Values(z).empty()) return Narrow(environment, rows, columns, z, form, Range());
  return Window::Suits(environment.Summary(z))
             ? Narrow(environment, rows, columns, z, form, Window(environment, z))
             : Narrow(environment, rows, columns, z, form, List(environment, z));
}

}  // namespace kiv
