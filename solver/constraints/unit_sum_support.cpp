#include "solver/constraints/unit_sum_support.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "solver/constraints/linear_support.h"
#include "solver/constraints/value_bits.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

constexpr unsigned kWord = 64;
constexpr unsigned kMostWords = 16;
constexpr unsigned kNobody = ~0u;

// The integers that offset + value can be, or offset - value, over the values of an argument: a bit
// for each place from the least of them on.
class PlacedValues {
 public:
  // Of listable argument `argument`, whose bounds are not further apart than there are places; what
  // stands for no argument is the number 0.
  PlacedValues(const KivOmbiObjectEnvironment& environment, unsigned argument, bool is_negated,
               std::int64_t offset)
      : argument_(argument), is_negated_(is_negated) {
    std::uint32_t count = 1;
    if (argument != kNobody) {
      const KivOmbiDomainSummary& summary = environment.Summary(argument);
      first_ = is_negated ? summary.upper : summary.lower;
      places_ = static_cast<unsigned>(summary.upper - summary.lower) + 1;
      count = summary.cardinality;
    }
    least_ = offset + (is_negated ? -std::int64_t{first_} : first_);
    std::fill_n(supported_.begin(), CountWords() + 1, std::uint64_t{0});
    if (argument != kNobody && !is_negated) {
      TakeBits(environment, argument, first_, std::span(words_).first(CountWords()));
      words_[CountWords()] = 0;
      return;
    }
    std::fill_n(words_.begin(), CountWords() + 1, std::uint64_t{0});
    if (count == places_) {
      SetAll();
    } else {
      ForEachValue(environment, argument, [&](std::int32_t value) {
        const auto place = static_cast<unsigned>(first_ - value);
        words_[place / kWord] |= std::uint64_t{1} << place % kWord;
      });
    }
  }

  unsigned CountWords() const { return (places_ + kWord - 1) / kWord; }
  std::int64_t Least() const { return least_; }
  std::uint64_t Word(unsigned w) const { return words_[w]; }

  // The 64 places from `place` on; those outside the set are empty.
  std::uint64_t WordFrom(std::int64_t place) const {
    if (place <= -std::int64_t{kWord} || place >= places_) return 0;
    if (place < 0) return words_[0] << -place;
    const auto [w, shift] = Split(place);
    return shift == 0 ? words_[w] : words_[w] >> shift | words_[w + 1] << (kWord - shift);
  }
  // Marks those of the 64 places from `place` on that are set in `bits`.
  void Support(std::int64_t place, std::uint64_t bits) {
    if (place < 0) {
      supported_[0] |= bits >> -place;
      return;
    }
    const auto [w, shift] = Split(place);
    supported_[w] |= bits << shift;
    if (shift != 0) supported_[w + 1] |= bits >> (kWord - shift);
  }

  // Keeps the supported values of the argument.
  KivOmbiFilterResult Keep(const KivOmbiObjectEnvironment& environment) const {
    if (argument_ == kNobody) return 0;
    std::array<std::int32_t, kMostWords * kWord> lost;
    unsigned count = 0;
    for (unsigned w = 0; w < CountWords(); ++w) {
      for (std::uint64_t bits = words_[w] & ~supported_[w]; bits != 0; bits &= bits - 1) {
        const auto place = static_cast<std::int32_t>(w * kWord) + std::countr_zero(bits);
        lost[count++] = is_negated_ ? first_ - place : first_ + place;
      }
    }
    if (count == 0) return 0;
    if (is_negated_) std::reverse(lost.begin(), lost.begin() + count);
    return RemoveValues(environment, argument_, std::span(lost).first(count));
  }

 private:
  void SetAll() {
    std::fill_n(words_.begin(), CountWords(), ~std::uint64_t{0});
    if (places_ % kWord != 0) words_[CountWords() - 1] >>= kWord - places_ % kWord;
  }

  static std::pair<unsigned, unsigned> Split(std::int64_t place) {
    return {static_cast<unsigned>(place) / kWord, static_cast<unsigned>(place) % kWord};
  }

  // With one behind, so that a word can be read from any place.
  using Words = std::array<std::uint64_t, kMostWords + 1>;

  unsigned argument_;
  bool is_negated_;
  std::int32_t first_ = 0;  // the value in the first place
  std::int64_t least_;      // the number that stands there
  unsigned places_ = 1;
  Words words_;
  Words supported_;
};

// The terms of a sum by their number of values; a missing one stands in front.
using TermOrder = std::array<unsigned, 3>;

unsigned CountValues(const KivOmbiObjectEnvironment& environment, unsigned i) {
  return i == kNobody ? 0u : environment.Summary(i).cardinality;
}

TermOrder OrderOf(const KivOmbiObjectEnvironment& environment, unsigned terms) {
  TermOrder order{kNobody, 0, 1};
  if (terms == 3) order[0] = 2;
  for (const auto& [i, j] : {std::pair{0, 1}, std::pair{1, 2}, std::pair{0, 1}}) {
    if (CountValues(environment, order[i]) > CountValues(environment, order[j])) {
      std::swap(order[i], order[j]);
    }
  }
  return order;
}

// The equation reads a + b = d, with the sign for which b is not negated; a has the fewest values.
// For each of them b is shifted onto d: what meets there supports all three.
KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment, const LinearSum& sum,
                           std::int64_t constant, const TermOrder& order) {
  const std::int64_t sign = sum.GetCoefficients()[order[1]];
  const auto is_negated = [&](unsigned i) {
    return i != kNobody && sum.GetCoefficients()[i] != sign;
  };
  PlacedValues a(environment, order[0], is_negated(order[0]), 0);
  PlacedValues b(environment, order[1], false, 0);
  PlacedValues d(environment, order[2], !is_negated(order[2]), constant * sign);
  for (unsigned w = 0; w < a.CountWords(); ++w) {
    for (std::uint64_t bits = a.Word(w); bits != 0; bits &= bits - 1) {
      const std::int64_t place = w * kWord + std::countr_zero(bits);
      std::int64_t shifted = a.Least() + place + b.Least() - d.Least();
      bool found = false;
      for (unsigned v = 0; v < b.CountWords(); ++v, shifted += kWord) {
        const std::uint64_t meeting = b.Word(v) & d.WordFrom(shifted);
        if (meeting == 0) continue;
        found = true;
        b.Support(v * kWord, meeting);
        d.Support(shifted, meeting);
      }
      if (found) a.Support(place, 1);
    }
  }
  for (const auto* term : {&a, &b, &d}) {
    if (const auto result = term->Keep(environment)) return result;
  }
  return 0;
}

}  // namespace

std::optional<KivOmbiFilterResult> NarrowUnitSumToSupported(
    const KivOmbiObjectEnvironment& environment, const LinearSum& sum, std::int64_t constant,
    std::uint64_t most_pairs) {
  if (sum.Count() < 2 || sum.Count() > 3 || !sum.HasUnitsOnly()) return std::nullopt;
  std::int64_t most_places = 0;
  for (unsigned i = 0; i < sum.Count(); ++i) {
    const KivOmbiDomainSummary& summary = environment.Summary(i);
    if (!IsListable(summary)) return std::nullopt;
    most_places = std::max(most_places, std::int64_t{summary.upper} - summary.lower + 1);
  }
  if (most_places > kMostWords * kWord) return std::nullopt;
  const TermOrder order = OrderOf(environment, sum.Count());
  const std::uint64_t pairs = std::uint64_t{std::max(CountValues(environment, order[0]), 1u)} *
                              CountValues(environment, order[1]);
  if (pairs > most_pairs) return std::nullopt;
  return Narrow(environment, sum, constant, order);
}

}  // namespace kiv
