#pragma once

#include <algorithm>
#include <cstdint>

// What the candidates of an operator come to, as a domain would collect them one by one. The
// techniques represent a collection differently; all of them have
//   Count()       how many values it holds, one or more,
//   List(out)     which writes the values, ascending, and
//   Membership()  a function that tells whether it holds a value; it is to be asked for ascending
//                 values.
// A collection is apart from the operands that it was made of: they may be narrowed by it.
//
// When does a collecting domain become Any? It takes a candidate only while it holds less than the
// cap, and a repeated candidate counts as well. So it does if and only if there is a candidate left
// once it holds as many values as the cap. With D different values among N candidates, in any
// order:
//   N <= cap or D < cap   never,
//   D > cap               always,
//   D = cap < N           unless the last candidate is the only one of its value.
// The techniques settle the first two lines and leave the third to the order of the candidates.
namespace kiv::kernels {

// Too many candidates.
struct AnyCollection {};

// No candidate.
struct NilCollection {};

// Every integer from `lowest` to `highest`.
struct IntervalCollection {
  std::int32_t lowest;
  std::int32_t highest;

  unsigned Count() const { return static_cast<unsigned>(std::int64_t{highest} - lowest + 1); }
  void List(std::int32_t* out) const {
    for (std::int64_t v = lowest; v <= highest; ++v) *out++ = static_cast<std::int32_t>(v);
  }
  auto Membership() const {
    return [*this](std::int32_t v) { return lowest <= v && v <= highest; };
  }
};

// Hands a collection of `candidates` candidates to `take`, or asks `in_order` when only the order
// of the candidates tells whether there are too many. Counts only where that matters.
template <class Collection, class Take, class InOrder>
auto TakeUnlessFull(const Collection& collection, std::uint64_t candidates, std::uint32_t cap,
                    Take take, InOrder in_order) {
  if (candidates > cap && collection.GetWidth() >= cap) {
    const unsigned count = collection.Count();
    if (count > cap) return take(AnyCollection());
    if (count == cap) return in_order();
  }
  return take(collection);
}

}  // namespace kiv::kernels
