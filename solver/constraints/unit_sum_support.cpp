#include "solver/constraints/unit_sum_support.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "solver/constraints/linear_support.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

constexpr unsigned kWord = 64;
constexpr unsigned kMostPlaces = 1024;
// With one behind, so that a word can be read from any place.
constexpr unsigned kMostWords = kMostPlaces / kWord + 1;
using Words = std::array<std::uint64_t, kMostWords>;

// The integers that offset + value can be, or offset - value, over the values of an argument: a bit
// for each place from the least of them on.
class PlacedValues {
 public:
  static constexpr unsigned kNobody = ~0u;

  // What stands for no argument is the number 0. False when there are too many places.
  bool Choose(const KivOmbiObjectEnvironment& environment, unsigned argument, bool is_negated,
              std::int64_t offset) {
    const KivOmbiDomainSummary& summary = environment.Summary(argument);
    const std::int64_t places = std::int64_t{summary.upper} - summary.lower + 1;
    if (!IsListable(summary) || places > kMostPlaces) return false;
    argument_ = argument;
    is_negated_ = is_negated;
    offset_ = offset;
    least_ = offset + (is_negated ? -std::int64_t{summary.upper} : summary.lower);
    places_ = static_cast<unsigned>(places);
    count_ = summary.cardinality;
    return true;
  }
  void Load(const KivOmbiObjectEnvironment& environment) {
    std::fill_n(words_.begin(), CountWords() + 1, std::uint64_t{0});
    std::fill_n(supported_.begin(), CountWords() + 1, std::uint64_t{0});
    if (argument_ == kNobody) {
      words_[0] = 1;
    } else if (count_ == places_) {
      std::fill_n(words_.begin(), CountWords(), ~std::uint64_t{0});
      if (places_ % kWord != 0) words_[CountWords() - 1] >>= kWord - places_ % kWord;
    } else {
      ForEachValue(environment, argument_, [&](std::int32_t value) {
        const std::int64_t number = offset_ + (is_negated_ ? -std::int64_t{value} : value);
        const auto place = static_cast<unsigned>(number - least_);
        words_[place / kWord] |= std::uint64_t{1} << place % kWord;
      });
    }
  }

  unsigned Count() const { return count_; }
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
    std::array<std::int32_t, kMostPlaces> lost;
    unsigned count = 0;
    for (unsigned w = 0; w < CountWords(); ++w) {
      for (std::uint64_t bits = words_[w] & ~supported_[w]; bits != 0; bits &= bits - 1) {
        const std::int64_t number = least_ + w * kWord + std::countr_zero(bits);
        lost[count++] =
            static_cast<std::int32_t>(is_negated_ ? offset_ - number : number - offset_);
      }
    }
    if (count == 0) return 0;
    if (is_negated_) std::reverse(lost.begin(), lost.begin() + count);
    return RemoveValues(environment, argument_, std::span(lost).first(count));
  }

 private:
  static std::pair<unsigned, unsigned> Split(std::int64_t place) {
    return {static_cast<unsigned>(place) / kWord, static_cast<unsigned>(place) % kWord};
  }

  unsigned argument_ = kNobody;
  bool is_negated_ = false;
  std::int64_t offset_ = 0;
  std::int64_t least_ = 0;
  unsigned places_ = 1;
  unsigned count_ = 1;
  Words words_;
  Words supported_;
};

bool IsUnit(std::int64_t coefficient) { return coefficient == 1 || coefficient == -1; }

}  // namespace

// The equation reads a + b = d; a has the fewest values. For each of them b is shifted onto d: what
// meets there supports all three.
std::optional<KivOmbiFilterResult> NarrowUnitSum(const KivOmbiObjectEnvironment& environment,
                                                 const LinearSum& sum, Int128 constant) {
  const auto coefficients = sum.GetCoefficients();
  if (coefficients.size() < 2 || coefficients.size() > 3) return std::nullopt;
  if (!std::ranges::all_of(coefficients, IsUnit)) return std::nullopt;

  // Terms by their number of values; a missing one stands in front.
  std::array<unsigned, 3> order{PlacedValues::kNobody, 0, 1};
  if (coefficients.size() == 3) order[0] = 2;
  const auto size = [&](unsigned i) {
    return i == PlacedValues::kNobody ? 0u : environment.Summary(i).cardinality;
  };
  std::ranges::sort(order, {}, size);
  const std::uint64_t pairs = std::uint64_t{std::max(size(order[0]), 1u)} * size(order[1]);
  if (pairs > kMostPairs) return std::nullopt;

  PlacedValues a;
  PlacedValues b;
  PlacedValues d;
  const auto right_side = static_cast<std::int64_t>(sum.ClampToReach(constant));
  if (order[0] != PlacedValues::kNobody &&
      !a.Choose(environment, order[0], coefficients[order[0]] < 0, 0)) {
    return std::nullopt;
  }
  if (!b.Choose(environment, order[1], coefficients[order[1]] < 0, 0) ||
      !d.Choose(environment, order[2], coefficients[order[2]] > 0, right_side)) {
    return std::nullopt;
  }
  for (PlacedValues* term : {&a, &b, &d}) term->Load(environment);

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
  for (const PlacedValues* term : {&a, &b, &d}) {
    if (const auto result = term->Keep(environment)) return result;
  }
  return 0;
}

}  // namespace kiv
