#pragma once

#include "framework/abstract_types/integer.h"
#include "framework/intervals/hull.h"

// Operands and targets of whatever kind, as the kinds of this library compute with them: through
// their bounds.
namespace kiv {

// The operand as an integer that may hold values, or null when it is none or is Nil: then a target
// becomes Nil.
const KivOmbiInteger* AsInteger(const KivOmbiAny& operand);

// The bounds of a domain. Those at an end of the integers stand for an infinity and are none on
// their own side; on the other side ("at least Max") they are integers like all others.
Hull HullOf(const KivOmbiInteger& domain);

// Makes a target Nil that is not Nil yet; returns 1.
int MakeNil(KivOmbiAny& target);

// Narrows a target to `possible` by its own equality, the one operation that every kind of integer
// has for an interval. What lies beyond the integers is taken to their ends.
int NarrowTarget(KivOmbiAny& target, const Hull& possible);

// The frame of the forward operations: 0 when `target` is Nil already, Nil and 1 when an operand is
// no integer or Nil, else what `compute` on the operands returns.
template <class Compute>
int Forward(KivOmbiAny& target, const KivOmbiAny& x, Compute&& compute) {
  if (target.IsNil() != 0) return 0;
  const KivOmbiInteger* const operand = AsInteger(x);
  return operand != nullptr ? compute(*operand) : MakeNil(target);
}
template <class Compute>
int Forward(KivOmbiAny& target, const KivOmbiAny& x, const KivOmbiAny& y, Compute&& compute) {
  return Forward(target, x, [&](const KivOmbiInteger& first) {
    return Forward(target, y, [&](const KivOmbiInteger& second) { return compute(first, second); });
  });
}

// The frame of the inverse operations, of the result z: 0 when `target` is Nil already, Nil and 1
// when it is no integer or another operand is none or Nil; else `target` is narrowed to the hull
// that `solve(target)` or `solve(target, known)` returns.
template <class Solve>
int Inverse(const KivOmbiInteger& z, KivOmbiAny& target, Solve&& solve) {
  if (target.IsNil() != 0) return 0;
  const KivOmbiInteger* const integer = AsInteger(target);
  if (integer == nullptr || z.IsNil() != 0) return MakeNil(target);
  return NarrowTarget(target, solve(*integer));
}
template <class Solve>
int Inverse(const KivOmbiInteger& z, KivOmbiAny& target, const KivOmbiAny& known, Solve&& solve) {
  return Inverse(z, target, [&](const KivOmbiInteger& integer) {
    const KivOmbiInteger* const other = AsInteger(known);
    return other != nullptr ? solve(integer, *other) : kEmptyHull;
  });
}

}  // namespace kiv
