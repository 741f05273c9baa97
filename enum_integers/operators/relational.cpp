// Equality and order between two integers. The order relations look at one bound of the domain that
// they know and cut the other domain there. A cut that leaves nothing leaves the domain to its
// leftover flag; only where no value stands on the near side of the bound is it made Nil outright.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"

// this = x. Intervals are intersected with directly; what is no integer kind known here has no
// value in common with this.

int KivOmbEnumInteger::CalcEqualValue(const KivOmbiAny& x) {
  if (const auto* const domain = DynamicCast(&x)) return Intersect(*domain);
  if (const auto* const single = KivOmbSingleInteger::DynamicCast(&x)) return Intersect(*single);
  if (const auto* const interval = KivOmbIntervalInteger::DynamicCast(&x)) {
    return Intersect(*interval);
  }
  Nil();
  return 1;
}

int KivOmbEnumInteger::CalcInverseEqualValue(KivOmbiAny& x) const {
  if (auto* const domain = DynamicCast(&x)) return domain->Intersect(*this);
  if (auto* const single = KivOmbSingleInteger::DynamicCast(&x)) return IntersectInverse(*single);
  if (auto* const interval = KivOmbIntervalInteger::DynamicCast(&x)) {
    return IntersectInverse(*interval);
  }
  x.SetNilValue();
  return 1;
}

// this <= x

// For a domain with its greatest value above `bound`; one without values stays. Returns 1.
[[gnu::noinline]] int KivOmbEnumInteger::CutAbove(std::int32_t bound) {
  if (Count() == 0) return 1;
  const unsigned kept = kiv::kernels::CountUpToFromBack(View().first(Count() - 1), bound);
  Without(View().subspan(kept)).values.Keep(0, kept);
  return 1;
}

// For a domain with its least value below `bound`; one without values stays. Returns 1.
[[gnu::noinline]] int KivOmbEnumInteger::CutBelow(std::int32_t bound) {
  if (Count() == 0) return 1;
  const unsigned lost = 1 + kiv::kernels::CountBelowFromFront(View().subspan(1), bound);
  Without(View().first(lost)).values.Keep(lost, Count());
  return 1;
}

int KivOmbEnumInteger::CalcLessOrEqualValue(const KivOmbEnumInteger& x) {
  if (CheckAny() || x.CheckAny()) return 0;
  const std::int32_t greatest = x.GetLastU();
  return GetLastU() <= greatest ? 0 : CutAbove(greatest);
}

int KivOmbEnumInteger::CalcInverseLessOrEqualValue(KivOmbEnumInteger& x) const {
  if (CheckAny() || x.CheckAny()) return 0;
  const std::int32_t least = GetFirstL();
  return x.GetFirstL() >= least ? 0 : x.CutBelow(least);
}

int KivOmbEnumInteger::CalcInverseLessOrEqualValue(KivOmbSingleInteger& x) const {
  return x.CheckAny() || x.GetValue() >= GetFirstL() ? 0 : x.Nil();
}

// Mostly one comparison is all that there is to do: the core is part of the entry.
[[gnu::flatten]] int KivOmbEnumInteger::CalcLessOrEqualValue(const KivOmbiAny& x) {
  return kiv::ForwardEntry(*this, x, [this](const auto& y) { return CalcLessOrEqualValue(y); });
}

int KivOmbEnumInteger::CalcInverseLessOrEqualValue(KivOmbiAny& x) const {
  return kiv::InverseEntry(*this, x, [this](auto& y) { return CalcInverseLessOrEqualValue(y); });
}

// this < x. The cut takes the value of the target nearest to the bound on the inner side, as if it
// were the bound itself.

int KivOmbEnumInteger::CalcLessValue(const KivOmbEnumInteger& x) {
  if (CheckAny() || x.CheckAny()) return 0;
  const std::int32_t greatest = x.GetLastU();
  if (GetLastU() < greatest) return 0;
  const unsigned count = CountUpTo(greatest);
  if (count == 0) return Nil();
  Keep(0, count - 1);
  return 1;
}

int KivOmbEnumInteger::CalcInverseLessValue(KivOmbEnumInteger& x) const {
  if (x.CheckAny()) return 0;
  if (CheckAny()) {
    // Every integer but the least has a smaller one.
    if (x.GetFirstL() != KivOmbSingleInteger::sNC_INT_MIN) return 0;
    x.Keep(1, x.Count());
    return 1;
  }
  const std::int32_t least = GetFirstL();
  if (x.GetFirstL() > least) return 0;
  const unsigned below = x.CountBelow(least);
  if (below == x.Count()) return x.Nil();
  x.Keep(below + 1, x.Count());
  return 1;
}

int KivOmbEnumInteger::CalcInverseLessValue(KivOmbSingleInteger& x) const {
  return x.CheckAny() || x.GetValue() > GetFirstL() ? 0 : x.Nil();
}

int KivOmbEnumInteger::CalcLessValue(const KivOmbiScalar& x) {
  return kiv::ForwardEntry(*this, x, [this](const auto& y) { return CalcLessValue(y); });
}

int KivOmbEnumInteger::CalcInverseLessValue(KivOmbiScalar& x) const {
  return kiv::InverseEntry(*this, x, [this](auto& y) { return CalcInverseLessValue(y); });
}

// this >= x is x <= this with the roles exchanged.

int KivOmbEnumInteger::CalcNotLessValue(const KivOmbEnumInteger& x) {
  return x.CalcInverseLessOrEqualValue(*this);
}

int KivOmbEnumInteger::CalcInverseNotLessValue(KivOmbEnumInteger& x) const {
  return x.CalcLessOrEqualValue(*this);
}

int KivOmbEnumInteger::CalcInverseNotLessValue(KivOmbSingleInteger& x) const {
  return x.CheckAny() || x.GetValue() <= GetLastU() ? 0 : x.Nil();
}

[[gnu::flatten]] int KivOmbEnumInteger::CalcNotLessValue(const KivOmbiScalar& x) {
  return kiv::ForwardEntry(*this, x, [this](const auto& y) { return CalcNotLessValue(y); });
}

int KivOmbEnumInteger::CalcInverseNotLessValue(KivOmbiScalar& x) const {
  return kiv::InverseEntry(*this, x, [this](auto& y) { return CalcInverseNotLessValue(y); });
}

// this > x is x < this with the roles exchanged.

int KivOmbEnumInteger::CalcNotLessAndUnequalValue(const KivOmbEnumInteger& x) {
  return x.CalcInverseLessValue(*this);
}

int KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue(KivOmbEnumInteger& x) const {
  return x.CalcLessValue(*this);
}

int KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue(KivOmbSingleInteger& x) const {
  return x.CheckAny() || x.GetValue() < GetLastU() ? 0 : x.Nil();
}

int KivOmbEnumInteger::CalcNotLessAndUnequalValue(const KivOmbiAny& x) {
  return kiv::ForwardEntry(*this, x,
                           [this](const auto& y) { return CalcNotLessAndUnequalValue(y); });
}

int KivOmbEnumInteger::CalcInverseNotLessAndUnequalValue(KivOmbiAny& x) const {
  return kiv::InverseEntry(*this, x,
                           [this](auto& y) { return CalcInverseNotLessAndUnequalValue(y); });
}
