#pragma once

#include <cstdint>

#include "framework/abstract_types/integer.h"
#include "framework/intervals/sub_int_base.h"

// Bounds of integer operands of whatever kind, as this library's kinds compute with them. The ends
// of SubIntBase stand for the infinities.
namespace kiv {

// x < result for every x of a domain below `operand`: one less than its upper bound, which is no
// bound when it is infinite.
std::int64_t StrictUpperBound(const KivOmbiInteger& operand);
std::int64_t StrictLowerBound(const KivOmbiInteger& operand);

// The bounds of x + y and of z - y; an infinite bound stays infinite.
struct Bounds {
  SubIntBase lower;
  SubIntBase upper;
};
Bounds SumBounds(const KivOmbiInteger& x, const KivOmbiInteger& y);
Bounds DifferenceBounds(const KivOmbiInteger& z, const KivOmbiInteger& y);

// The operand as an integer that may hold values, or null when it is none or is Nil: then a target
// becomes Nil.
const KivOmbiInteger* AsInteger(const KivOmbiAny& operand);

// The frame of the forward operations: 0 when `target` is Nil already, Nil and 1 when an operand is
// no integer or Nil, else what `compute` on the operands returns.
template <class Target, class Compute>
int Forward(Target& target, const KivOmbiAny& x, Compute&& compute) {
  if (target.CheckNil() != 0) return 0;
  const KivOmbiInteger* operand = AsInteger(x);
  return operand != nullptr ? compute(*operand) : target.Nil();
}
template <class Target, class Compute>
int Forward(Target& target, const KivOmbiAny& x, const KivOmbiAny& y, Compute&& compute) {
  return Forward(target, x, [&](const KivOmbiInteger& first) {
    return Forward(target, y, [&](const KivOmbiInteger& second) { return compute(first, second); });
  });
}

// The inverse relations of `known`, of any kind of this library, with a target of any kind: the
// target's own operation is given a single bound, which every kind of integer understands.
int NarrowTargetAtLeast(const KivOmbiInteger& known, KivOmbiAny& target, std::int64_t bound);
int NarrowTargetAtMost(const KivOmbiInteger& known, KivOmbiAny& target, std::int64_t bound);

// "Min" and "Max" for the infinities, else the number.
void PrintNumber(Kivostrstream& out, std::int32_t value);

// The first inverse of z = x + y for a target x of any kind.
int NarrowTerm(const KivOmbiInteger& z, KivOmbiNumber& x, const KivOmbiNumber& y);

}  // namespace kiv
