#include "enum_integers/kernels/merging.h"

#include <algorithm>

#include "enum_integers/kernels/byte_map.h"
#include "enum_integers/kernels/path.h"
#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/word_set.h"

namespace kiv::kernels {
namespace {

// Below this many values on a side the blocks do not pay.
constexpr unsigned kFewValues = 16;

// How many times larger one side is when searching it for every value of the other pays.
constexpr std::size_t kVeryUnequal = 16;

// From a[i] and b[j] on, in steps without branches: which side is lesser cannot be predicted.
unsigned IntersectFrom(MergePosition at, Values a, Values b, std::int32_t* out) {
  while (at.i < a.size() && at.j < b.size()) {
    const std::int32_t mine = a[at.i];
    const std::int32_t theirs = b[at.j];
    out[at.count] = mine;
    at.count += mine == theirs;
    at.i += mine <= theirs;
    at.j += theirs <= mine;
  }
  return at.count;
}

unsigned UniteFrom(MergePosition at, Values a, Values b, std::int32_t* out) {
  while (at.i < a.size() && at.j < b.size()) {
    const std::int32_t mine = a[at.i];
    const std::int32_t theirs = b[at.j];
    out[at.count++] = std::min(mine, theirs);
    at.i += mine <= theirs;
    at.j += theirs <= mine;
  }
  std::int32_t* end = std::copy(a.begin() + at.i, a.end(), out + at.count);
  end = std::copy(b.begin() + at.j, b.end(), end);
  return static_cast<unsigned>(end - out);
}

// Looks each value of the few up behind the place of the one before, by doubling steps first: what
// is looked for is often near.
unsigned IntersectFewWithMany(Values few, Values many, std::int32_t* out) {
  unsigned count = 0;
  for (const std::int32_t v : few) {
    std::size_t step = 1;
    while (step < many.size() && many[step] < v) step *= 2;
    const auto end = many.begin() + static_cast<std::ptrdiff_t>(std::min(step + 1, many.size()));
    const auto found = std::lower_bound(many.begin(), end, v);
    many = many.subspan(static_cast<std::size_t>(found - many.begin()));
    if (many.empty()) break;
    if (many.front() != v) continue;
    out[count++] = v;
    many = many.subspan(1);
  }
  return count;
}

// The end of a union by blocks: what the blocks left pending, which is no less than what they
// wrote, and the rest of both sides, of which one is less than a block.
unsigned UnitePending(MergePosition at, std::span<std::int32_t> pending, Values a, Values b,
                      std::int32_t* out) {
  a = a.subspan(at.i);
  b = b.subspan(at.j);
  const std::int32_t written = out[at.count - 1];
  const auto distinct = pending.first(
      static_cast<std::size_t>(std::unique(pending.begin(), pending.end()) - pending.begin()));
  const Values fresh = distinct.front() == written ? distinct.subspan(1) : distinct;
  std::int32_t joined[2 * kUniteBlock];
  const Values& rest = a.size() < b.size() ? a : b;
  const unsigned count = UniteFrom({0, 0, 0}, fresh, rest, joined);
  return at.count +
         UniteFrom({0, 0, 0}, Values(joined, count), a.size() < b.size() ? b : a, out + at.count);
}

// The interval, and what of the other set is below and above it.
unsigned UniteWithInterval(Values interval, Values others, std::int32_t* out) {
  const unsigned below = CountBelow(others, interval.front());
  const unsigned up_to = CountUpTo(others, interval.back());
  std::int32_t* end = std::copy_n(others.begin(), below, out);
  end = std::copy(interval.begin(), interval.end(), end);
  end = std::copy(others.begin() + up_to, others.end(), end);
  return static_cast<unsigned>(end - out);
}

// Marks one side in a map, where the values of the other are looked up: a store and a load for each
// value, none of which waits for another.
unsigned IntersectInMap(Values a, Values b, std::int32_t* out) {
  ByteMap map(a.front(), a.back());
  for (const std::int32_t v : a) map.Add(v);
  const std::uint8_t* const bytes = map.GetBytes();
  const std::int64_t lowest = map.GetLowest();
  unsigned count = 0;
  for (const std::int32_t v : PartBetween(b, a.front(), a.back())) {
    out[count] = v;
    count += bytes[v - lowest];
  }
  return count;
}

// Marks both in one map and lists its window: a store for each value and for each integer of the
// window, none of which waits for another, where a merge waits for its comparisons.
unsigned UniteInMap(Values a, Values b, std::int32_t* out) {
  ByteMap map(std::min(a.front(), b.front()), std::max(a.back(), b.back()));
  for (const std::int32_t v : a) map.Add(v);
  for (const std::int32_t v : b) map.Add(v);
  return map.ListWithSlack(out);
}

// An infinity that stands twice is to stand twice in the union.
bool SuitInterval(Values interval, Values others) {
  return !interval.empty() && !others.empty() && IsInterval(interval) && !EndsWithTwins(others);
}

// A word takes every value to stand once.
bool SuitsWord(Values a, Values b) {
  return !a.empty() && !b.empty() && ShareWord(a, b) && !EndsWithTwins(a) && !EndsWithTwins(b);
}

// So does a map.
bool SuitMap(Values a, Values b) {
  constexpr std::uint64_t kWidthPerValue = 2;
  if (a.empty() || b.empty() || EndsWithTwins(a) || EndsWithTwins(b)) return false;
  const std::int64_t lowest = std::min(a.front(), b.front());
  const std::int64_t highest = std::max(a.back(), b.back());
  return highest - lowest < ByteMap::kMaxWidth &&
         static_cast<std::uint64_t>(highest - lowest) < kWidthPerValue * (a.size() + b.size());
}

// And blocks.
bool SuitBlocks(Values a, Values b) {
  return std::min(a.size(), b.size()) >= kFewValues && !EndsWithTwins(a) && !EndsWithTwins(b);
}

}  // namespace

unsigned Intersect(Values a, Values b, std::int32_t* out) {
  if (SuitsWord(a, b)) {
    const std::int32_t begin = WordBegin(a, b);
    return ListWord(WordOf(a, begin) & WordOf(b, begin), begin, out);
  }
  if (a.size() > kVeryUnequal * b.size()) return IntersectFewWithMany(b, a, out);
  if (b.size() > kVeryUnequal * a.size()) return IntersectFewWithMany(a, b, out);
  auto* const blocks = GetIntersectBlocks();
  if (blocks == nullptr || !SuitBlocks(a, b)) {
    return SuitMap(a, b) ? IntersectInMap(a, b, out) : IntersectFrom({0, 0, 0}, a, b, out);
  }
  const MergePosition at = blocks(a.data(), static_cast<unsigned>(a.size()), b.data(),
                                  static_cast<unsigned>(b.size()), out);
  return IntersectFrom(at, a, b, out);
}

unsigned Unite(Values a, Values b, std::int32_t* out) {
  if (SuitInterval(a, b)) return UniteWithInterval(a, b, out);
  if (SuitInterval(b, a)) return UniteWithInterval(b, a, out);
  if (SuitsWord(a, b)) {
    const std::int32_t begin = WordBegin(a, b);
    return ListWord(WordOf(a, begin) | WordOf(b, begin), begin, out);
  }
  if (SuitMap(a, b)) return UniteInMap(a, b, out);
  auto* const blocks = GetUniteBlocks();
  if (blocks == nullptr || !SuitBlocks(a, b)) return UniteFrom({0, 0, 0}, a, b, out);
  std::int32_t pending[kUniteBlock];
  const MergePosition at = blocks(a.data(), static_cast<unsigned>(a.size()), b.data(),
                                  static_cast<unsigned>(b.size()), out, pending);
  return UnitePending(at, pending, a, b, out);
}

}  // namespace kiv::kernels
