#pragma once

#include <cstdint>

// A domain in short, as a network keeps it for each variable.
struct KivOmbiDomainSummary {
  enum State : std::uint32_t {
    kNil,     // no value is possible
    kValues,  // the values between the bounds, or some of them
    kAny,     // nothing is known; the bounds are the two infinities
  };

  std::int32_t lower = 0;
  std::int32_t upper = 0;
  std::uint32_t cardinality = 0;  // all bits set: more than can be told
  State state = kNil;

  bool IsNil() const noexcept { return state == kNil; }
  bool IsAny() const noexcept { return state == kAny; }
  // Exactly one value is possible: `lower`.
  bool IsFixed() const noexcept { return state == kValues && cardinality == 1; }

  friend bool operator==(const KivOmbiDomainSummary&, const KivOmbiDomainSummary&) = default;
};

// How a domain changed, as bits; a change sets every bit that applies.
using KivOmbiEvent = std::int64_t;
inline constexpr KivOmbiEvent kKivFixed = 1;    // one value is left
inline constexpr KivOmbiEvent kKivBounds = 2;   // a bound moved
inline constexpr KivOmbiEvent kKivValues = 4;   // some value was lost: set at every change
inline constexpr KivOmbiEvent kKivEmptied = 8;  // no value is left
inline constexpr KivOmbiEvent kKivAnyEvent = 15;
// A constraint that removes values may be left with one that a kind without gaps keeps inside its
// bounds. By this it asks to hear of the bounds of such domains, and only of those; it is no event
// itself.
inline constexpr KivOmbiEvent kKivBoundsOfGapless = 16;

// The events that lead from `before` to `after`; 0 when they are equal.
inline KivOmbiEvent KivOmbiEvents(const KivOmbiDomainSummary& before,
                                  const KivOmbiDomainSummary& after) noexcept {
  if (before == after) return 0;
  KivOmbiEvent events = kKivValues;
  if (before.lower != after.lower || before.upper != after.upper) events |= kKivBounds;
  if (after.IsFixed()) events |= kKivFixed;
  if (after.IsNil()) events |= kKivEmptied;
  return events;
}
