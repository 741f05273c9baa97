#include "solver/constraints/unit_sum.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "framework/abstract_types/constraints/narrowing.h"
#include "solver/constraints/value_bits.h"
#include "solver/constraints/value_sets.h"
#include "solver/constraints/values.h"

namespace kiv {

namespace {

// What stands for a term that is not there.
constexpr KivOmbiDomainSummary kZero{0, 0, 1, KivOmbiDomainSummary::kValues};

// Of a closed domain.
Hull BoundsOf(const KivOmbiDomainSummary& domain) { return {domain.lower, domain.upper}; }
bool IsGapless(const KivOmbiDomainSummary& domain) {
  return std::int64_t{domain.upper} - domain.lower + 1 == domain.cardinality;
}

bool FitsWord(const Hull& hull) { return hull.upper - hull.lower < kBitsPerWord; }

// The bits of a part of a hull that fits a word.
BitWord BitsOf(const Hull& part, const Hull& hull) {
  const BitWord from = ~BitWord{0} << (part.lower - hull.lower);
  return from & ~BitWord{0} >> (kBitsPerWord - 1 - (part.upper - hull.lower));
}

bool IsOneBit(BitWord bits) { return (bits & (bits - 1)) == 0; }

// The last bit of the hull is the first.
BitWord Reversed(BitWord bits, const Hull& hull) {
  constexpr BitWord kEvenBits = 0x5555555555555555;
  constexpr BitWord kEvenPairs = 0x3333333333333333;
  constexpr BitWord kEvenHalves = 0x0F0F0F0F0F0F0F0F;
  bits = (bits >> 1 & kEvenBits) | (bits & kEvenBits) << 1;
  bits = (bits >> 2 & kEvenPairs) | (bits & kEvenPairs) << 2;
  bits = (bits >> 4 & kEvenHalves) | (bits & kEvenHalves) << 4;
  return __builtin_bswap64(bits) >> (kBitsPerWord - 1 - (hull.upper - hull.lower));
}

// Some of the values of an argument, in the order in which they are found.
class LostValues {
 public:
  void Add(SubIntBase value) { values_[count_++] = value.GetValue(); }
  std::size_t Count() const { return count_; }
  KivOmbiFilterResult RemoveFrom(const KivOmbiObjectEnvironment& environment, unsigned i) const {
    return count_ == 0 ? 0 : RemoveValues(environment, i, std::span(values_).first(count_));
  }

 private:
  std::size_t count_ = 0;
  std::array<std::int32_t, kMostListedValues> values_;
};

// How many of the first values of two lists are the same, when those of the second are moved by
// `distance`, which takes none of them beyond the integers.
std::size_t CountCommon(std::span<const SubIntBase> a, std::span<const SubIntBase> b,
                        std::int32_t distance) {
  constexpr std::size_t kBlock = 8;
  const std::size_t most = std::min(a.size(), b.size());
  std::size_t count = 0;
  const auto differ = [&](std::size_t i) { return a[i].GetValue() ^ (b[i].GetValue() + distance); };
  const auto is_next_block_common = [&] {
    std::int32_t differences = 0;
    for (std::size_t k = 0; k < kBlock; ++k) differences |= differ(count + k);
    return differences == 0;
  };
  while (count + kBlock <= most && is_next_block_common()) count += kBlock;
  while (count < most && differ(count) == 0) ++count;
  return count;
}

// The terms of first + second = last, as bits.
struct Words {
  BitWord first = 0;
  BitWord second = 0;
  BitWord last = 0;
};

// For each number of the one term those of the other are shifted onto the last: what meets there
// supports all three. `origin` is how far that is for the first bit.
Words FindSupported(BitWord one, BitWord other, BitWord last, std::int64_t origin) {
  Words supported;
  for (; one != 0; one &= one - 1) {
    const std::int64_t shift = origin + std::countr_zero(one);
    const BitWord meeting = last & (shift >= 0 ? other << shift : other >> -shift);
    if (meeting == 0) continue;
    supported.first |= one & -one;
    supported.second |= shift >= 0 ? meeting >> shift : meeting << -shift;
    supported.last |= meeting;
  }
  return supported;
}

}  // namespace

UnitSum::UnitSum(const LinearSum& sum, Int128 constant) {
  const unsigned count = sum.Count();
  if (count < 2 || count > 3 || !sum.HasUnitsOnly()) return;
  const auto sign = [&](unsigned i) { return sum.GetCoefficients()[i]; };
  first_ = 0;
  last_ = count - 1;
  if (count == 3) second_ = 1;
  if (count == 3 && sign(0) != sign(1)) {
    second_ = 2;
    last_ = 1;
    if (sign(0) != sign(2)) std::swap(first_, last_);
  }
  is_last_negated_ = sign(first_) == sign(last_);
  constant_ = static_cast<std::int64_t>(sum.ClampToReach(constant)) * sign(first_);
}

Hull UnitSum::LastOf(const Hull& values) const {
  if (is_last_negated_) return {constant_ - values.upper, constant_ - values.lower};
  return {constant_ + values.lower, constant_ + values.upper};
}

Hull UnitSum::ValuesOfLast(const Hull& last) const {
  if (is_last_negated_) return {constant_ - last.upper, constant_ - last.lower};
  return {last.lower - constant_, last.upper - constant_};
}

bool UnitSum::Repeats(const KivOmbiObjectEnvironment& environment) const {
  if (environment.IsSame(first_, last_)) return true;
  return second_ != kNobody &&
         (environment.IsSame(first_, second_) || environment.IsSame(second_, last_));
}

// Sums of integers leave no gaps, so that each end that stays is part of a solution over the hulls.
UnitSum::Hulls UnitSum::Cut(const Hulls& hulls) {
  const auto& [first, second, last] = hulls;
  return {Intersection(first, {last.lower - second.upper, last.upper - second.lower}),
          Intersection(second, {last.lower - first.upper, last.upper - first.lower}),
          Intersection(last, {first.lower + second.lower, first.upper + second.upper})};
}

std::optional<KivOmbiFilterResult> UnitSum::Narrow(
    const KivOmbiObjectEnvironment& environment) const {
  if (first_ == kNobody || Repeats(environment)) return std::nullopt;
  const auto& first = environment.Summary(first_);
  const auto& second = second_ == kNobody ? kZero : environment.Summary(second_);
  const auto& last = environment.Summary(last_);
  if (!IsClosed(first) || !IsClosed(second) || !IsClosed(last)) return std::nullopt;
  const Hulls hulls{BoundsOf(first), BoundsOf(second), LastOf(BoundsOf(last))};
  const Hulls cut = Cut(hulls);
  if (cut.first.IsEmpty()) return kKivContradiction;
  if (IsGapless(first) && IsGapless(second) && IsGapless(last)) {
    return KeepHulls(environment, hulls, cut);
  }
  if (FitsWord(hulls.first) && FitsWord(hulls.second) && FitsWord(hulls.last)) {
    return KeepSupported(environment, hulls, cut);
  }
  const bool are_lists = second_ == kNobody && IsListable(first) && IsListable(last) &&
                         !is_last_negated_ && IsValue(hulls.last.lower) &&
                         IsValue(hulls.last.upper) && IsValue(constant_);
  return are_lists ? KeepCommon(environment) : std::nullopt;
}

// The two lists are merged: what is in one alone is lost.
std::optional<KivOmbiFilterResult> UnitSum::KeepCommon(
    const KivOmbiObjectEnvironment& environment) const {
  const auto first = environment.Values(first_);
  const auto last = environment.Values(last_);
  if (first.empty() || last.empty()) return std::nullopt;
  const auto distance = static_cast<std::int32_t>(constant_);
  LostValues lost_first;
  LostValues lost_last;
  std::size_t i = 0;
  std::size_t j = 0;
  while (true) {
    const std::size_t common = CountCommon(first.subspan(i), last.subspan(j), distance);
    i += common;
    j += common;
    if (i == first.size() || j == last.size()) break;
    if (first[i].GetValue() < last[j].GetValue() + distance) {
      lost_first.Add(first[i++]);
    } else {
      lost_last.Add(last[j++]);
    }
  }
  while (i < first.size()) lost_first.Add(first[i++]);
  while (j < last.size()) lost_last.Add(last[j++]);
  if (lost_first.Count() == first.size()) return kKivContradiction;
  if (const auto result = lost_first.RemoveFrom(environment, first_)) return result;
  if (const auto result = lost_last.RemoveFrom(environment, last_)) return result;
  return environment.Summary(first_).IsFixed() ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

KivOmbiFilterResult UnitSum::KeepHulls(const KivOmbiObjectEnvironment& environment,
                                       const Hulls& hulls, const Hulls& cut) const {
  if (cut.first != hulls.first) {
    if (const auto result = NarrowToHull(environment, first_, cut.first)) return result;
  }
  if (cut.second != hulls.second) {
    if (const auto result = NarrowToHull(environment, second_, cut.second)) return result;
  }
  if (cut.last != hulls.last) {
    if (const auto result = NarrowToHull(environment, last_, ValuesOfLast(cut.last))) {
      return result;
    }
  }
  const bool all_fixed = cut.first.IsFixed() && cut.second.IsFixed();
  return all_fixed ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

// None of the numbers in the cut hulls is further than a word from one that it meets.
KivOmbiFilterResult UnitSum::KeepSupported(const KivOmbiObjectEnvironment& environment,
                                           const Hulls& hulls, const Hulls& cut) const {
  const BitWord first = TakeWord(environment, first_);
  const BitWord second = second_ == kNobody ? 1 : TakeWord(environment, second_);
  const BitWord last_bits = TakeWord(environment, last_);
  const BitWord last = is_last_negated_ ? Reversed(last_bits, hulls.last) : last_bits;
  const std::int64_t origin = hulls.first.lower + hulls.second.lower - hulls.last.lower;
  Words supported;
  if (cut.first.upper - cut.first.lower <= cut.second.upper - cut.second.lower) {
    supported = FindSupported(first & BitsOf(cut.first, hulls.first), second, last, origin);
  } else {
    supported = FindSupported(second & BitsOf(cut.second, hulls.second), first, last, origin);
    std::swap(supported.first, supported.second);
  }
  if (supported.first == 0) return kKivContradiction;
  if (supported.first != first) {
    const auto result = KeepWord(environment, first_, first, supported.first);
    if (result != 0) return result;
  }
  if (supported.second != second) {
    const auto result = KeepWord(environment, second_, second, supported.second);
    if (result != 0) return result;
  }
  if (supported.last != last) {
    const BitWord kept = is_last_negated_ ? Reversed(supported.last, hulls.last) : supported.last;
    const auto result = KeepWord(environment, last_, last_bits, kept);
    if (result != 0) return result;
  }
  const bool all_fixed = IsOneBit(supported.first) && IsOneBit(supported.second);
  return all_fixed ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

}  // namespace kiv
