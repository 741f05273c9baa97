// Operands of any kind: assignment, the set operations of the abstract type, and the constants.

#include "enum_integers/domain/enum_integer.h"

// An interval has no conversion, however small: it becomes Nil. CalcEqualValue, which intersects
// with it, is the way to narrow by an interval.
void KivOmbEnumInteger::Assign(const KivOmbiAny& x) {
  if (const auto* const domain = DynamicCast(&x)) {
    *this = *domain;
  } else if (const auto* const single = KivOmbSingleInteger::DynamicCast(&x)) {
    *this = KivOmbEnumInteger(*single, 0);
  } else {
    Nil();
  }
}

void KivOmbEnumInteger::Intersect(const KivOmbiAny& x) { CalcEqualValue(x); }

void KivOmbEnumInteger::Unite(const KivOmbiAny& x) {
  if (const auto* const domain = DynamicCast(&x)) {
    Unite(*domain);
  } else if (const auto* const single = KivOmbSingleInteger::DynamicCast(&x)) {
    Unite(*single);
  } else {
    Nil();
  }
}

int KivOmbEnumInteger::IsIntersected(const KivOmbiAny& x) const {
  KivOmbEnumInteger common;
  common.Assign(x);
  if (CheckNil() || common.CheckNil()) return 0;
  common.Intersect(*this);
  return !common.CheckNil();
}

int KivOmbEnumInteger::CalcMinValue() {
  return Intersect(KivOmbSingleInteger(KivOmbSingleInteger::sNC_INT_MIN));
}

int KivOmbEnumInteger::CalcMaxValue() {
  return Intersect(KivOmbSingleInteger(KivOmbSingleInteger::sNC_INT_MAX));
}

int KivOmbEnumInteger::CalcZeroValue() { return Intersect(KivOmbSingleInteger(0)); }

int KivOmbEnumInteger::CalcOneValue() { return Intersect(KivOmbSingleInteger(1)); }
