#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <span>
#include <utility>

#include "framework/abstract_types/constraint.h"
#include "framework/abstract_types/environment.h"
#include "framework/intervals/hull.h"

// The steps by which constraints narrow arguments of whatever kinds without losing a solution. Each
// returns KivOmbiFilterResult bits of which kKivContradiction and kKivOverflow end the run and 0
// means to go on.
//
// Why constraints use these steps and not the operations of a kind alone:
// - An operand of another kind is first converted, by CalcEqualValue on an Any domain of the wanted
//   kind; a kind's Assign may lose everything.
// - A kind that cannot hold the operand (an interval of a million values, say) leaves the
//   conversion Any; then the bounds of the operands still tell the bounds of the target.
// - The strict order of a kind may cut one value too many, so that strict bounds are set as weak
//   ones of the neighbouring integer.
// - Bounds at the ends of the integers stand for "no bound", and a set of candidates that holds
//   such an end is only a part of what is possible: an unknown target stays unknown.
//
// A step that changes nothing costs a comparison of bounds; one that does, a call of the kind and
// the waking of the constraints concerned.
namespace kiv {

// The bounds of a domain; those at the ends of the integers are no bounds.
inline Hull HullOf(const KivOmbiDomainSummary& summary) {
  return {summary.lower == SubIntBase::kMin ? -Hull::kUnbounded : summary.lower,
          summary.upper == SubIntBase::kMax ? Hull::kUnbounded : summary.upper};
}
inline Hull HullOf(const KivOmbiObjectEnvironment& environment, unsigned i) {
  return HullOf(environment.Summary(i));
}

// Argument i lies between the bounds. A bound at or beyond the end of the integers is none, unless
// it leaves nothing.
KIV_EXPORT KivOmbiFilterResult Cut(const KivOmbiObjectEnvironment& environment, unsigned i,
                                   std::int64_t lower, std::int64_t upper);

// Argument i >= bound, and <= bound.
inline KivOmbiFilterResult TightenLower(const KivOmbiObjectEnvironment& environment, unsigned i,
                                        std::int64_t bound) {
  if (bound <= environment.Summary(i).lower) return 0;
  return Cut(environment, i, bound, SubIntBase::kMax);
}
inline KivOmbiFilterResult TightenUpper(const KivOmbiObjectEnvironment& environment, unsigned i,
                                        std::int64_t bound) {
  if (bound >= environment.Summary(i).upper) return 0;
  return Cut(environment, i, SubIntBase::kMin, bound);
}

// Argument i = value.
KIV_EXPORT KivOmbiFilterResult Assign(const KivOmbiObjectEnvironment& environment, unsigned i,
                                      std::int32_t value);

// Whether `value` is the last one before an open end of the domain. A constraint leaves it there:
// without it a domain could hold nothing but what lies beyond the integers, which is no value.
KIV_EXPORT bool IsBeforeOpenEnd(const KivOmbiDomainSummary& summary, std::int64_t value);

// Argument i <> value, but for a value before an open end.
KIV_EXPORT KivOmbiFilterResult RemoveFromWithin(const KivOmbiObjectEnvironment& environment,
                                                unsigned i, std::int32_t value);
inline KivOmbiFilterResult RemoveValue(const KivOmbiObjectEnvironment& environment, unsigned i,
                                       std::int32_t value) {
  const KivOmbiDomainSummary& summary = environment.Summary(i);
  if (value < summary.lower || value > summary.upper) return 0;
  return RemoveFromWithin(environment, i, value);
}

// Argument i loses `lost`, values of it, ascending, none of them before an open end.
KIV_EXPORT KivOmbiFilterResult LoseValues(const KivOmbiObjectEnvironment& environment, unsigned i,
                                          std::span<const std::int32_t> lost);

// Makes argument i empty.
KIV_EXPORT KivOmbiFilterResult Empty(const KivOmbiObjectEnvironment& environment, unsigned i);

// Argument i = argument j, of the same type.
KIV_EXPORT KivOmbiFilterResult Equate(const KivOmbiObjectEnvironment& environment, unsigned i,
                                      unsigned j);

// Argument i <> argument j, of the same type; kKivEntailed when that can no longer fail, else
// kKivAtFixpoint.
KIV_EXPORT KivOmbiFilterResult Separate(const KivOmbiObjectEnvironment& environment, unsigned i,
                                        unsigned j);

// Argument `small` + gap <= argument `large`, gap >= 0; kKivEntailed when that can no longer fail,
// else kKivAtFixpoint.
KIV_EXPORT KivOmbiFilterResult Order(const KivOmbiObjectEnvironment& environment, unsigned small,
                                     unsigned large, int gap);

// A domain of `kind` that holds `value` alone; valid until the next call of any step.
KIV_EXPORT const KivOmbiInteger& Constant(const KivOmbiObjectEnvironment& environment,
                                          const KivOmbiObjectDescriptor& kind, std::int32_t value);

// Argument i as a domain of `kind`: itself or a converted copy (in scratch object `scratch`), or
// null when that kind cannot tell what is possible for it.
KIV_EXPORT const KivOmbiInteger* Carry(const KivOmbiObjectEnvironment& environment, unsigned i,
                                       const KivOmbiObjectDescriptor& kind, unsigned scratch);

// What has to be done about a target all of whose candidates lie in `candidates`, before they are
// looked at one by one: the target's bounds, and what is beyond the range of integers. `unknown` is
// set when the target must stay unknown, since some candidates are beyond the range.
KIV_EXPORT KivOmbiFilterResult NarrowToHull(const KivOmbiObjectEnvironment& environment,
                                            unsigned target, const Hull& candidates, bool& unknown);

// The same where that is all that is known of the candidates. Of a known target it takes a cut.
inline KivOmbiFilterResult NarrowToHull(const KivOmbiObjectEnvironment& environment,
                                        unsigned target, const Hull& candidates) {
  const bool has_integers = !candidates.IsEmpty() && candidates.lower < SubIntBase::kMax &&
                            candidates.upper > SubIntBase::kMin;
  if (has_integers && !environment.Summary(target).IsAny()) {
    return Cut(environment, target, candidates.lower, candidates.upper);
  }
  bool unknown = false;
  return NarrowToHull(environment, target, candidates, unknown);
}

// Narrows argument `target` by an operation on domains of the kind `carrier`: all candidates lie in
// `candidates`, and `compute(target, operand...)` narrows the target without losing a solution and
// returns its result code. Where the carrier cannot hold a domain, the bounds are all that is used.
template <class Compute, std::convertible_to<unsigned>... Operand>
KivOmbiFilterResult NarrowByOperation(const KivOmbiObjectEnvironment& environment,
                                      const KivOmbiObjectDescriptor& carrier, unsigned target,
                                      const Hull& candidates, Compute&& compute,
                                      Operand... operands) {
  constexpr unsigned kOperands = sizeof...(operands);
  bool unknown = false;
  if (const auto result = NarrowToHull(environment, target, candidates, unknown)) return result;
  // Without gaps there is no more to tell of the target than its bounds.
  if (unknown || !carrier.HoldsGaps()) return 0;

  const std::array<unsigned, kOperands> arguments{static_cast<unsigned>(operands)...};
  std::array<const KivOmbiInteger*, kOperands> carried;
  for (unsigned i = 0; i < kOperands; ++i) {
    carried[i] = Carry(environment, arguments[i], carrier, i);
    if (carried[i] == nullptr) return 0;
  }
  const auto narrow = [&](KivOmbiInteger& domain) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
      return compute(domain, *carried[I]...);
    }
    (std::make_index_sequence<kOperands>());
  };
  const bool in_place = environment.Kind(target) == &carrier;
  if (!in_place && Carry(environment, target, carrier, kOperands) == nullptr) return 0;
  const bool possible = environment.NarrowInteger(target, [&](KivOmbiInteger& domain) {
    if (in_place) return narrow(domain);
    auto& copy = static_cast<KivOmbiInteger&>(environment.LastScratch(carrier, kOperands));
    return narrow(copy) != 0 ? domain.CalcEqualValue(copy) : 0;
  });
  return possible ? 0 : kKivContradiction;
}

}  // namespace kiv
