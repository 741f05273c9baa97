#pragma once

#include <cstdint>

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
namespace kiv {

// A bound at an end of the integers is none. Of a Nil domain the hull is empty.
KIV_EXPORT Hull HullOf(const KivOmbiDomainSummary& summary);

// Argument i >= bound, and <= bound. A bound at or beyond the end of the integers is none, unless
// it leaves nothing.
KIV_EXPORT KivOmbiFilterResult TightenLower(const KivOmbiObjectEnvironment& environment, unsigned i,
                                            std::int64_t bound);
KIV_EXPORT KivOmbiFilterResult TightenUpper(const KivOmbiObjectEnvironment& environment, unsigned i,
                                            std::int64_t bound);

// Argument i <> value.
KIV_EXPORT KivOmbiFilterResult RemoveValue(const KivOmbiObjectEnvironment& environment, unsigned i,
                                           std::int32_t value);

// Makes argument i empty.
KIV_EXPORT KivOmbiFilterResult Empty(const KivOmbiObjectEnvironment& environment, unsigned i);

// Argument i = argument j, of the same type.
KIV_EXPORT KivOmbiFilterResult Equate(const KivOmbiObjectEnvironment& environment, unsigned i,
                                      unsigned j);

// Argument i <> argument j; kKivEntailed when that can no longer fail, else kKivAtFixpoint.
KIV_EXPORT KivOmbiFilterResult Separate(const KivOmbiObjectEnvironment& environment, unsigned i,
                                        unsigned j);

// Argument `small` + gap <= argument `large`, gap >= 0; kKivEntailed when that can no longer fail,
// else kKivAtFixpoint.
KIV_EXPORT KivOmbiFilterResult Order(const KivOmbiObjectEnvironment& environment, unsigned small,
                                     unsigned large, int gap);

// Argument i as a domain of `kind`: itself or a converted copy (in scratch object `scratch`), or
// null when that kind cannot tell what is possible for it.
KIV_EXPORT const KivOmbiInteger* Carry(const KivOmbiObjectEnvironment& environment, unsigned i,
                                       const KivOmbiObjectDescriptor& kind, unsigned scratch);

// What has to be done about a target all of whose candidates lie in `candidates`, before they are
// looked at one by one: the target's bounds, and what is beyond the range of integers. `unknown` is
// set when the target must stay unknown, since some candidates are beyond the range.
KIV_EXPORT KivOmbiFilterResult NarrowToHull(const KivOmbiObjectEnvironment& environment,
                                            unsigned target, const Hull& candidates, bool& unknown);

// Narrows argument `target` to what arguments a and b can produce: all candidates lie in
// `candidates`, and `compute(target, a, b)`, on domains of the kind `carrier`, narrows the target
// exactly and returns its result code.
template <class Compute>
KivOmbiFilterResult NarrowByOperation(const KivOmbiObjectEnvironment& environment,
                                      const KivOmbiObjectDescriptor& carrier, unsigned target,
                                      unsigned a, unsigned b, const Hull& candidates,
                                      Compute&& compute) {
  if (environment.Summary(a).IsAny() || environment.Summary(b).IsAny()) return 0;
  bool unknown = false;
  if (const auto result = NarrowToHull(environment, target, candidates, unknown)) return result;
  if (unknown) return 0;

  const KivOmbiInteger* first = Carry(environment, a, carrier, 0);
  const KivOmbiInteger* second = Carry(environment, b, carrier, 1);
  if (first == nullptr || second == nullptr) return 0;
  const bool in_place = environment.Kind(target) == &carrier;
  if (!in_place && Carry(environment, target, carrier, 2) == nullptr) return 0;
  const bool possible = environment.NarrowInteger(target, [&](KivOmbiInteger& domain) {
    if (in_place) return compute(domain, *first, *second);
    auto& carried = static_cast<KivOmbiInteger&>(environment.LastScratch(carrier, 2));
    return compute(carried, *first, *second) != 0 ? domain.CalcEqualValue(carried) : 0;
  });
  return possible ? 0 : kKivContradiction;
}

}  // namespace kiv
