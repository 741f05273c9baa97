// z = x ^ y. The arithmetic is that of the single and the interval integers, asked for every pair
// of values; here their answers are collected. An answer that is Any, or a collection that
// overflows, says nothing of the target.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"

namespace {

KivOmbIntervalInteger Point(std::int32_t v) { return KivOmbIntervalInteger(SubdefInt(v, v)); }

KivOmbIntervalInteger HullOf(const KivOmbiInteger& x) {
  return KivOmbIntervalInteger(SubdefInt(x.GetLowerBound(), x.GetUpperBound()));
}

// The bases of `bases` whose power for some exponent of `y` is in `z`, or Any when that cannot be
// told. Of every interval of bases the two ends alone are taken: the roots of one result for one
// exponent are those.
KivOmbEnumInteger CollectBases(const KivOmbEnumInteger& z, const KivOmbIntervalInteger& bases,
                               const KivOmbEnumInteger& y) {
  KivOmbEnumInteger collected;
  collected.Nil();
  for (unsigned i = 0; i < z.Count(); ++i) {
    const KivOmbIntervalInteger result = Point(z.GetValue(i));
    for (unsigned j = 0; j < y.Count(); ++j) {
      KivOmbIntervalInteger roots(bases);
      result.CalcFirstInversePowerValue(roots, KivOmbSingleInteger(y.GetValue(j)));
      if (roots.CheckAny()) return KivOmbEnumInteger();
      if (roots.CheckNil()) continue;
      if (collected.Insert(roots.GetLowerBound()) == 0) return collected;
      if (collected.Insert(roots.GetUpperBound()) == 0) return collected;
    }
  }
  return collected;
}

// Every exponent for which some base of `x` has its power in `z`, or Any when these cannot be
// listed.
KivOmbEnumInteger CollectExponents(const KivOmbEnumInteger& z, const KivOmbEnumInteger& x) {
  KivOmbEnumInteger collected;
  collected.Nil();
  for (unsigned i = 0; i < z.Count(); ++i) {
    const KivOmbIntervalInteger result = Point(z.GetValue(i));
    for (unsigned j = 0; j < x.Count(); ++j) {
      KivOmbIntervalInteger exponents;
      result.CalcSecondInversePowerValue(Point(x.GetValue(j)), exponents);
      if (exponents.CheckNil()) continue;
      KivOmbEnumInteger listed;
      listed.Intersect(exponents);
      collected.Unite(listed);
      if (collected.CheckAny()) return collected;
    }
  }
  return collected;
}

// Whether some base of `x` has its power for `exponent` in `z`, or one that is not known.
bool IsExponent(const KivOmbEnumInteger& z, const KivOmbEnumInteger& x, std::int32_t exponent) {
  for (unsigned j = 0; j < x.Count(); ++j) {
    KivOmbSingleInteger power;
    power.CalcPowerValue(KivOmbSingleInteger(x.GetValue(j)), KivOmbSingleInteger(exponent));
    if (power.CheckAny() ? z.Count() > 0 : !power.CheckNil() && z.Contains(power.GetValue())) {
      return true;
    }
  }
  return false;
}

}  // namespace

int KivOmbEnumInteger::CalcPowerValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y) {
  if (x.CheckAny() || y.CheckAny()) return 0;
  KivOmbEnumInteger collected;
  collected.Nil();
  for (unsigned i = 0; i < x.Count(); ++i) {
    for (unsigned j = 0; j < y.Count(); ++j) {
      KivOmbSingleInteger power;
      power.CalcPowerValue(KivOmbSingleInteger(x.GetValue(i)), KivOmbSingleInteger(y.GetValue(j)));
      if (power.CheckAny()) return 0;
      if (!power.CheckNil() && collected.Insert(power.GetValue()) == 0) return 0;
    }
  }
  return Intersect(collected);
}

int KivOmbEnumInteger::CalcFirstInversePowerValue(KivOmbEnumInteger& x,
                                                  const KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return 0;
  return x.Intersect(CollectBases(*this, HullOf(x), y));
}

int KivOmbEnumInteger::CalcFirstInversePowerValue(KivOmbSingleInteger& x,
                                                  const KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return 0;
  return CollectBases(*this, HullOf(x), y).IntersectInverse(x);
}

int KivOmbEnumInteger::CalcSecondInversePowerValue(const KivOmbEnumInteger& x,
                                                   KivOmbEnumInteger& y) const {
  if (y.CheckAny()) return y.Intersect(CollectExponents(*this, x));
  KivOmbEnumInteger admissible;
  admissible.Nil();
  for (unsigned i = 0; i < y.Count(); ++i) {
    // Without the cap: there are no more of these than values of y.
    if (IsExponent(*this, x, y.GetValue(i))) admissible.values.Add(y.GetValue(i));
  }
  return y.Intersect(admissible);
}

int KivOmbEnumInteger::CalcPowerValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return kiv::ForwardEntry(*this, x, y, [this](const auto& first, const auto& second) {
    return CalcPowerValue(first, second);
  });
}

int KivOmbEnumInteger::CalcFirstInversePowerValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return kiv::FirstInverseEntry(*this, x, y, [this](auto& target, const auto& known) {
    return CalcFirstInversePowerValue(target, known);
  });
}

int KivOmbEnumInteger::CalcSecondInversePowerValue(const KivOmbiNumber& x, KivOmbiNumber& y) const {
  return kiv::SecondInverseEntry(*this, x, y, [this](const auto& known, auto& target) {
    return CalcSecondInversePowerValue(known, target);
  });
}
