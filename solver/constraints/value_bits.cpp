#include "solver/constraints/value_bits.h"

#include <algorithm>
#include <array>

#include "solver/constraints/value_sets.h"

namespace kiv {

namespace {

// The bits of one word from place `first` to place `last`; both may lie beyond its ends.
BitWord BitsBetween(std::int64_t first, std::int64_t last) {
  constexpr std::int64_t kEnd = kBitsPerWord - 1;
  if (first > kEnd || last < 0) return 0;
  const BitWord from = ~BitWord{0} << std::max<std::int64_t>(first, 0);
  return from & (~BitWord{0} >> (kEnd - std::min(last, kEnd)));
}

// Values within a word that starts at `base`. Each goes to its place by 64, whatever the base; then
// the base's goes first.
BitWord WordOf(std::span<const SubIntBase> values, std::int64_t base) {
  BitWord bits = 0;
  for (const SubIntBase value : values) bits |= BitOf(static_cast<std::uint32_t>(value.GetValue()));
  return std::rotr(bits, static_cast<int>(base % std::int64_t{kBitsPerWord}));
}

void TakeListed(std::span<const SubIntBase> values, std::int64_t base, std::span<BitWord> bits) {
  const bool share_word =
      values.front().GetValue() >= base && values.back().GetValue() - base < kBitsPerWord;
  if (share_word && bits.size() == 1) {
    bits.front() = WordOf(values, base);
    return;
  }
  const auto end_below = [&](std::int64_t limit) {
    return std::ranges::partition_point(values,
                                        [&](SubIntBase value) { return value.GetValue() < limit; });
  };
  auto value = values.front().GetValue() < base ? end_below(base) : values.begin();
  for (BitWord& word : bits) {
    const std::int64_t start = base;
    base += kBitsPerWord;
    const auto end = values.back().GetValue() < base ? values.end() : end_below(base);
    word = WordOf(std::span(value, end), start);
    value = end;
  }
}

void TakeRange(std::int64_t lower, std::int64_t upper, std::span<BitWord> bits) {
  for (BitWord& word : bits) {
    word = BitsBetween(lower, upper);
    lower -= kBitsPerWord;
    upper -= kBitsPerWord;
  }
}

// A kind with holes that lists no values is asked for each of them.
void RemoveHoles(const KivOmbiInteger& domain, std::int64_t base, std::span<BitWord> bits) {
  for (std::size_t w = 0; w < bits.size(); ++w) {
    ForEachBit(bits[w], w * kBitsPerWord, [&](std::size_t place) {
      const auto value = static_cast<std::int32_t>(base + static_cast<std::int64_t>(place));
      if (!domain.MayBe(value)) bits[w] &= ~BitOf(place);
    });
  }
}

KivOmbiFilterResult RemoveWord(const KivOmbiObjectEnvironment& environment, unsigned i,
                               BitWord word) {
  const std::int32_t base = environment.Summary(i).lower;
  std::array<std::int32_t, kBitsPerWord> values;
  std::size_t count = 0;
  ForEachBit(word, 0,
             [&](std::size_t place) { values[count++] = base + static_cast<std::int32_t>(place); });
  return RemoveValues(environment, i, std::span(values).first(count));
}

}  // namespace

void TakeBits(const KivOmbiObjectEnvironment& environment, unsigned i, std::int64_t base,
              std::span<BitWord> bits) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  const std::int64_t lower = summary.lower - base;
  const std::int64_t upper = summary.upper - base;
  if (upper - lower + 1 == summary.cardinality) return TakeRange(lower, upper, bits);
  const std::span<const SubIntBase> values = environment.Values(i);
  if (!values.empty()) return TakeListed(values, base, bits);
  TakeRange(lower, upper, bits);
  if (environment.Kind(i)->HoldsGaps()) RemoveHoles(environment.Integer(i), base, bits);
}

BitWord TakeWord(const KivOmbiObjectEnvironment& environment, unsigned i) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  const auto width = static_cast<std::uint32_t>(summary.upper - summary.lower) + 1;
  BitWord bits = ~BitWord{0} >> (kBitsPerWord - width);
  if (summary.cardinality == width) return bits;
  const std::span<const SubIntBase> values = environment.Values(i);
  if (values.empty()) {
    TakeBits(environment, i, summary.lower, std::span(&bits, 1));
    return bits;
  }
  return WordOf(values, summary.lower);
}

KivOmbiFilterResult KeepWord(const KivOmbiObjectEnvironment& environment, unsigned i, BitWord word,
                             BitWord kept) {
  bool is_offered = true;
  environment.NarrowInteger(i, [&](KivOmbiInteger& domain) {
    const int result = environment.Kind(i)->KeepWord(domain, kept);
    is_offered = result != KivOmbiObjectDescriptor::kNotOffered;
    return is_offered ? result : 0;
  });
  return is_offered ? 0 : RemoveWord(environment, i, word & ~kept);
}

}  // namespace kiv
