#include "framework/abstract_types/constraints/narrowing.h"

#include <algorithm>
#include <utility>

#include "framework/abstract_types/boolean.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

// The scratch object for a bound; the others hold converted operands.
constexpr unsigned kEdgeScratch = 3;

KivOmbiFilterResult Verdict(bool possible) { return possible ? 0 : kKivContradiction; }

// A domain of the kind of argument i that holds `value` alone. An order relation takes its operand
// in the target's own kind, which no kind refuses.
const KivOmbiInteger& Edge(const KivOmbiObjectEnvironment& environment, unsigned i,
                           std::int64_t value) {
  return Constant(environment, *environment.Kind(i), static_cast<std::int32_t>(value));
}

// Builds `target` from those values between the bounds that are `wanted`, one by one. False when
// there are none, too many to look at, or too many for the kind of `target` to hold.
template <class Wanted>
bool BuildByValues(KivOmbiInteger& target, std::int64_t lower, std::int64_t upper,
                   Wanted&& wanted) {
  constexpr std::int64_t kMostValues = 1024;
  if (upper - lower >= kMostValues) return false;
  target.SetNilValue();
  for (std::int64_t value = lower; value <= upper; ++value) {
    if (!wanted(static_cast<std::int32_t>(value))) continue;
    target.InsertExactValue(static_cast<std::int32_t>(value));
    if (target.IsUndefined() != 0) return false;
  }
  return target.IsNil() == 0;
}

bool CarryByValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                   KivOmbiInteger& carried) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  return BuildByValues(carried, summary.lower, summary.upper,
                       [&](std::int32_t value) { return environment.Integer(i).MayBe(value); });
}

// A kind that keeps values has no bounds while it is Any; a few candidates it can keep.
KivOmbiFilterResult TakeCandidates(const KivOmbiObjectEnvironment& environment, unsigned target,
                                   const Hull& candidates) {
  auto& values =
      static_cast<KivOmbiInteger&>(environment.Scratch(*environment.Kind(target), kEdgeScratch));
  if (!BuildByValues(values, candidates.lower, candidates.upper,
                     [](std::int32_t) { return true; })) {
    return 0;
  }
  return Verdict(environment.NarrowInteger(
      target, [&](KivOmbiInteger& domain) { return domain.CalcEqualValue(values); }));
}

// Argument i, a boolean, is not `value`: so it is the other truth value.
KivOmbiFilterResult Negate(const KivOmbiObjectEnvironment& environment, unsigned i,
                           std::int32_t value) {
  return Verdict(environment.NarrowAny(i, [&](KivOmbiAny& domain) {
    return static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(value == 0);
  }));
}

// The same as Cut for finite bounds, or kMin and kMax for none, of a kind that does not offer to
// keep what lies between.
KivOmbiFilterResult CutByOrder(const KivOmbiObjectEnvironment& environment, unsigned i,
                               std::int32_t lower, std::int32_t upper) {
  const bool possible = environment.NarrowInteger(i, [&](KivOmbiInteger& domain) {
    int result = 0;
    if (lower != kMin) result |= domain.CalcNotLessValue(Edge(environment, i, lower));
    if (upper != kMax) result |= domain.CalcLessOrEqualValue(Edge(environment, i, upper));
    return result;
  });
  return Verdict(possible);
}

KivOmbiFilterResult NarrowToEqual(const KivOmbiObjectEnvironment& environment, unsigned target,
                                  unsigned known) {
  if (environment.Summary(known).IsAny()) return 0;
  const KivOmbiObjectDescriptor& kind = *environment.Kind(target);
  const KivOmbiAny* value = &environment.Domain(known);
  if (environment.Kind(known) != &kind) value = Carry(environment, known, kind, 0);
  if (value != nullptr) {
    return Verdict(environment.NarrowAny(
        target, [&](KivOmbiAny& domain) { return domain.CalcEqualValue(*value); }));
  }
  const KivOmbiDomainSummary hull = environment.Summary(known);
  return Cut(environment, target, hull.lower, hull.upper);
}

}  // namespace

KivOmbiFilterResult Cut(const KivOmbiObjectEnvironment& environment, unsigned i, std::int64_t lower,
                        std::int64_t upper) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  const bool cuts_lower = lower > kMin && lower > summary.lower;
  const bool cuts_upper = upper < kMax && upper < summary.upper;
  if (!cuts_lower && !cuts_upper) return 0;
  // An open end stands for integers beyond all bounds.
  if (cuts_lower && lower >= kMax) return summary.upper == kMax ? 0 : Empty(environment, i);
  if (cuts_upper && upper <= kMin) return summary.lower == kMin ? 0 : Empty(environment, i);
  const std::int32_t least = cuts_lower ? static_cast<std::int32_t>(lower) : kMin;
  const std::int32_t greatest = cuts_upper ? static_cast<std::int32_t>(upper) : kMax;
  bool is_offered = true;
  const bool possible = environment.NarrowInteger(i, [&](KivOmbiInteger& domain) {
    const int result = environment.Kind(i)->KeepBetween(domain, least, greatest);
    is_offered = result != KivOmbiObjectDescriptor::kNotOffered;
    return is_offered ? result : 0;
  });
  return is_offered ? Verdict(possible) : CutByOrder(environment, i, least, greatest);
}

KivOmbiFilterResult Assign(const KivOmbiObjectEnvironment& environment, unsigned i,
                           std::int32_t value) {
  const KivOmbiInteger& edge = Edge(environment, i, value);
  return Verdict(environment.NarrowInteger(
      i, [&](KivOmbiInteger& domain) { return domain.CalcEqualValue(edge); }));
}

bool IsBeforeOpenEnd(const KivOmbiDomainSummary& summary, std::int64_t value) {
  return (summary.upper == kMax && value == kMax - 1) ||
         (summary.lower == kMin && value == kMin + 1);
}

KivOmbiFilterResult RemoveFromWithin(const KivOmbiObjectEnvironment& environment, unsigned i,
                                     std::int32_t value) {
  if (IsBeforeOpenEnd(environment.Summary(i), value)) return 0;
  return Verdict(environment.NarrowInteger(
      i, [&](KivOmbiInteger& domain) { return domain.RemoveExactValue(value); }));
}

KivOmbiFilterResult LoseValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                               std::span<const std::int32_t> lost) {
  if (lost.empty()) return 0;
  return Verdict(environment.NarrowInteger(i, [&](KivOmbiInteger& domain) {
    const int result = environment.Kind(i)->RemoveValues(domain, lost);
    if (result != KivOmbiObjectDescriptor::kNotOffered) return result;
    int changed = 0;
    // Upwards for what goes at a lower bound, downwards for what goes at an upper one.
    for (const std::int32_t value : lost) changed |= domain.RemoveExactValue(value);
    for (std::size_t k = lost.size(); k-- > 0;) changed |= domain.RemoveExactValue(lost[k]);
    return changed;
  }));
}

KivOmbiFilterResult Empty(const KivOmbiObjectEnvironment& environment, unsigned i) {
  environment.NarrowAny(i, [](KivOmbiAny& domain) {
    domain.SetNilValue();
    return 1;
  });
  return kKivContradiction;
}

KivOmbiFilterResult Equate(const KivOmbiObjectEnvironment& environment, unsigned i, unsigned j) {
  if (environment.IsSame(i, j)) return 0;
  if (const auto result = NarrowToEqual(environment, i, j)) return result;
  return NarrowToEqual(environment, j, i);
}

KivOmbiFilterResult Separate(const KivOmbiObjectEnvironment& environment, unsigned i, unsigned j) {
  if (environment.IsSame(i, j)) return kKivContradiction;
  for (const auto& [fixed, other] : {std::pair{i, j}, std::pair{j, i}}) {
    if (!environment.Summary(fixed).IsFixed()) continue;
    const std::int32_t value = environment.Summary(fixed).lower;
    if (environment.IsBoolean(other)) {
      const auto result = Negate(environment, other, value);
      return result != 0 ? result : kKivEntailed;
    }
    if (const auto result = RemoveValue(environment, other, value)) return result;
    if (!environment.Integer(other).MayBe(value)) {
      return kKivEntailed;
    }
  }
  return kKivAtFixpoint;
}

KivOmbiFilterResult Order(const KivOmbiObjectEnvironment& environment, unsigned small,
                          unsigned large, int gap) {
  if (environment.IsSame(small, large)) return gap == 0 ? kKivEntailed : kKivContradiction;
  const Hull limit = HullOf(environment.Summary(large));
  if (const auto result = TightenUpper(environment, small, limit.upper - gap)) return result;
  const Hull base = HullOf(environment.Summary(small));
  if (const auto result = TightenLower(environment, large, base.lower + gap)) return result;
  const bool entailed =
      HullOf(environment.Summary(small)).upper + gap <= HullOf(environment.Summary(large)).lower;
  return entailed ? kKivEntailed : kKivAtFixpoint;
}

const KivOmbiInteger& Constant(const KivOmbiObjectEnvironment& environment,
                               const KivOmbiObjectDescriptor& kind, std::int32_t value) {
  auto& constant = static_cast<KivOmbiInteger&>(environment.Scratch(kind, kEdgeScratch));
  constant.SetExactValue(value);
  return constant;
}

const KivOmbiInteger* Carry(const KivOmbiObjectEnvironment& environment, unsigned i,
                            const KivOmbiObjectDescriptor& kind, unsigned scratch) {
  if (environment.Kind(i) == &kind) return &environment.Integer(i);
  auto& carried = static_cast<KivOmbiInteger&>(environment.Scratch(kind, scratch));
  if (environment.Summary(i).IsAny()) return &carried;
  carried.CalcEqualValue(environment.Domain(i));
  // A kind that does not know the operand's answers Nil, one that cannot convert it stays Any.
  if (carried.IsNil() == 0 && carried.IsUndefined() == 0) return &carried;
  return CarryByValues(environment, i, carried) ? &carried : nullptr;
}

KivOmbiFilterResult NarrowToHull(const KivOmbiObjectEnvironment& environment, unsigned target,
                                 const Hull& candidates, bool& unknown) {
  const KivOmbiDomainSummary& summary = environment.Summary(target);
  if (candidates.IsEmpty()) return Empty(environment, target);
  if (candidates.lower >= kMax || candidates.upper <= kMin) {
    const bool excluded = candidates.lower >= kMax ? summary.upper < kMax : summary.lower > kMin;
    return excluded ? Empty(environment, target) : kKivOverflow;
  }
  if (const auto result = Cut(environment, target, candidates.lower, candidates.upper)) {
    return result;
  }
  const bool saturates = candidates.lower <= kMin || candidates.upper >= kMax;
  unknown = saturates && summary.IsAny();
  return summary.IsAny() && !saturates ? TakeCandidates(environment, target, candidates) : 0;
}

}  // namespace kiv
