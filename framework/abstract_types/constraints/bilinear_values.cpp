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
    argument_ = argument;
    values_ = environment.Values(argument);
    if (values_.empty() && !Generate(environment.Summary(argument))) return false;
    if (Count() > kMostValues) return false;
    std::fill_n(marks_.begin(), (Count() + kWord - 1) / kWord, std::uint64_t{0});
    return true;
  }

  std::size_t Count() const { return values_.size(); }
  std::int64_t At(std::size_t i) const { return values_[i].GetValue(); }
  std::span<const SubIntBase> Get() const { return values_; }
  // Marks the value at i when `bit` is 1.
  void Mark(std::size_t i, std::uint64_t bit) { marks_[i / kWord] |= bit << i % kWord; }
  // Marks the values at [first, last) for which `test(value)` is 1, not 0; returns whether any was.
  template <class Test>
  std::uint64_t MarkIf(std::size_t first, std::size_t last, Test&& test) {
    std::uint64_t any = 0;
    while (first < last) {
      const std::size_t word = first / kWord;
      const std::size_t end = std::min(last, (word + 1) * kWord);
      std::uint64_t bits = 0;
      for (; first < end; ++first) bits |= test(At(first)) << first % kWord;
      marks_[word] |= bits;
      any |= bits;
    }
    return any != 0;
  }
  // The position of the first value from `from` on that is not less than `value`. Short ways are
  // short.
  std::size_t FindFrom(std::size_t from, std::int64_t value) const {
    std::size_t step = 1;
    while (from + step < Count() && At(from + step) < value) {
      from += step;
      step *= 2;
    }
    std::size_t end = std::min(from + step, Count());
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
    for (std::size_t w = 0; w * kWord < Count(); ++w) {
      const std::size_t places = std::min(Count() - w * kWord, kWord);
      for (std::uint64_t bits = ~marks_[w] & (~std::uint64_t{0} >> (kWord - places)); bits != 0;
           bits &= bits - 1) {
        lost.Add(values_[w * kWord + static_cast<std::size_t>(std::countr_zero(bits))].GetValue());
      }
    }
    return lost.Take(environment, argument_);
  }

 private:
  // A kind that lists no values has all between its bounds.
  bool Generate(const KivOmbiDomainSummary& summary) {
    if (summary.cardinality > generated_.size()) return false;
    for (std::uint32_t i = 0; i < summary.cardinality; ++i) {
      generated_[i] = summary.lower + static_cast<std::int32_t>(i);
    }
    values_ = std::span(generated_).first(summary.cardinality);
    return true;
  }

  unsigned argument_ = 0;
  std::span<const SubIntBase> values_;
  std::array<SubIntBase, 16> generated_;
  std::array<std::uint64_t, kMostValues / kWord> marks_;
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
    y.MarkIf(first, last, [](std::int64_t) { return std::uint64_t{1}; });
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

// Where the values of z lie close together: what is known of each integer between its bounds.
class Window {
 public:
  // To clear a place takes a small part of a look-up in a list.
  static bool Suits(const KivOmbiDomainSummary& z, std::size_t pairs) {
    const auto places = static_cast<std::size_t>(std::int64_t{z.upper} - z.lower + 1);
    return places <= kMostPlaces && places <= 16 * (pairs + kWord);
  }

  Window(const KivOmbiObjectEnvironment& environment, unsigned z)
      : values_(environment.Values(z)), lower_(environment.Summary(z).lower) {
    const auto places = std::int64_t{environment.Summary(z).upper} - lower_ + 1;
    std::fill_n(states_.begin(), places, kNoValue);
    for (const SubIntBase value : values_) states_[PlaceOf(value.GetValue())] = kUnmarked;
  }

  // Without a branch for each pair, none of which could be foreseen.
  std::uint64_t MarkRow(const Line& line, MarkedValues& y, std::size_t first, std::size_t last) {
    std::uint8_t* const states = states_.data();
    const Line places{line.offset - lower_, line.step};
    return y.MarkIf(first, last, [=](std::int64_t value) {
      std::uint8_t& state = states[places.At(value)];
      const std::uint8_t is_value = state & kUnmarked;
      state = static_cast<std::uint8_t>(is_value | is_value << 1);
      return std::uint64_t{is_value};
    });
  }
  KivOmbiFilterResult Keep(const KivOmbiObjectEnvironment& environment, unsigned z) const {
    LostValues lost;
    for (const SubIntBase value : values_) {
      if (states_[PlaceOf(value.GetValue())] == kUnmarked) lost.Add(value.GetValue());
    }
    return lost.Take(environment, z);
  }

 private:
  static constexpr std::size_t kMostPlaces = std::size_t{1} << 15;
  // A value that is marked has a second bit.
  static constexpr std::uint8_t kNoValue = 0;
  static constexpr std::uint8_t kUnmarked = 1;

  std::size_t PlaceOf(std::int64_t value) const { return static_cast<std::size_t>(value - lower_); }

  std::span<const SubIntBase> values_;
  std::int64_t lower_;
  std::array<std::uint8_t, kMostPlaces> states_;
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

// The positions of the values of y that a line takes to where z lies: mostly all of them.
std::pair<std::size_t, std::size_t> RowBetween(const Line& line, const MarkedValues& y,
                                               const KivOmbiDomainSummary& z) {
  const std::size_t count = y.Count();
  const auto is_inside = [&](std::size_t i) {
    const std::int64_t value = line.At(y.At(i));
    return z.lower <= value && value <= z.upper;
  };
  const auto count_while = [&](auto&& is_before) {
    std::size_t first = 0;
    std::size_t last = count;
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
  const bool rises = line.step >= 0;
  const std::size_t first = is_inside(0) ? 0 : count_while([&](std::int64_t value) {
    return rises ? value < z.lower : value > z.upper;
  });
  const std::size_t last = is_inside(count - 1) ? count : count_while([&](std::int64_t value) {
    return rises ? value <= z.upper : value >= z.lower;
  });
  return {first, last};
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
  return Window::Suits(environment.Summary(z), rows.Count() * columns.Count())
             ? Narrow(environment, rows, columns, z, form, Window(environment, z))
             : Narrow(environment, rows, columns, z, form, List(environment, z));
}

}  // namespace kiv
