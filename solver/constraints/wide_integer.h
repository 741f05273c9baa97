#pragma once

#include <algorithm>
#include <cstdint>

#include "framework/abstract_types/constraints/narrowing.h"

namespace kiv {

// Holds every sum of 2^32 products of a 64-bit coefficient and a 32-bit value.
using Int128 = __int128;

// The quotient rounded down, and up; b is not 0, and the quotient must be within the type.
template <class Integer>
Integer FloorDivide(Integer a, Integer b) {
  return a / b - ((a % b != 0 && (a < 0) != (b < 0)) ? 1 : 0);
}

template <class Integer>
Integer CeilDivide(Integer a, Integer b) {
  return a / b + ((a % b != 0 && (a < 0) == (b < 0)) ? 1 : 0);
}

// The remainder of the division rounded down, of 0 .. m - 1; m > 0.
template <class Integer>
Integer Modulo(Integer a, Integer m) {
  const Integer remainder = a % m;
  return remainder < 0 ? remainder + m : remainder;
}

// `bound` as one of a Hull: what is too great for one is no bound there.
template <class Integer>
std::int64_t ToHullBound(Integer bound) {
  return static_cast<std::int64_t>(std::clamp<Integer>(bound, -Hull::kUnbounded, Hull::kUnbounded));
}

}  // namespace kiv
