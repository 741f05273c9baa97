// Intersection, union and negation of enumerated domains: single merges over ascending values. A
// result is built beside the domain and replaces its values only when it differs. A value that
// finds no memory there is left out.

#include <algorithm>
#include <cstdint>

#include "enum_integers/domain/enum_integer.h"

namespace {

// The values that `a` and `b` have in common and that `accept` takes, added to `common`.
template <class Accept>
void MergeCommon(const KivSVectorImp_SubIntBase& a, const KivSVectorImp_SubIntBase& b,
                 Accept accept, KivSVectorImp_SubIntBase& common) {
  unsigned i = 0;
  unsigned j = 0;
  while (i < a.Count() && j < b.Count()) {
    if (a[i] < b[j]) {
      ++i;
    } else if (b[j] < a[i]) {
      ++j;
    } else {
      if (accept(a[i])) common.Add(a[i]);
      ++i;
      ++j;
    }
  }
}

}  // namespace

int KivOmbEnumInteger::Intersect(const KivOmbEnumInteger& other) {
  if (CheckNil()) return 0;
  if (other.CheckNil()) return Nil();
  if (other.CheckAny()) return 0;
  if (CheckAny()) {
    Become(other.values, other.anyFlag);
    return 1;
  }
  KivSVectorImp_SubIntBase common(Count(), GetDelta(), 0);
  MergeCommon(
      values, other.values, [](SubIntBase) { return true; }, common);
  return NarrowTo(common);
}

int KivOmbEnumInteger::Intersect(const KivOmbSingleInteger& single) {
  if (CheckNil()) return 0;
  if (single.CheckNil()) return Nil();
  if (single.CheckAny()) return 0;
  if (CheckAny()) {
    Nil();
    Writable().values.Add(single.GetUnicalcValue());
    return 1;
  }
  const unsigned i = values.Find(single.GetUnicalcValue());
  if (i >= Count()) return Nil();
  if (CheckDefined()) return 0;
  Keep(i, i + 1);
  return 1;
}

int KivOmbEnumInteger::Intersect(const KivOmbIntervalInteger& interval) {
  if (CheckNil()) return 0;
  if (interval.CheckNil()) return Nil();
  if (interval.CheckAny()) return 0;
  if (CheckAny()) {
    const auto size = static_cast<std::uint32_t>(interval.GetUpperBound()) -
                      static_cast<std::uint32_t>(interval.GetLowerBound()) + 1u;
    if (size >= sMAX_CARD) return 0;
    Nil();
    // 64 bits, because the upper bound may be the greatest integer.
    for (std::int64_t v = interval.GetLowerBound(); v <= interval.GetUpperBound(); ++v) {
      Writable().values.Add(static_cast<std::int32_t>(v));
    }
    return 1;
  }
  const unsigned count = Count();
  const unsigned end = CountUpTo(interval.GetUpperBound());
  Keep(std::min(CountBelow(interval.GetLowerBound()), end), end);
  return Count() != count;
}

int KivOmbEnumInteger::Intersect(const KivOmbEnumInteger& other, ValueFilter filter,
                                 void* context) {
  if (CheckNil()) return 0;
  if (other.CheckNil()) return Nil();
  if (other.CheckAny()) return 0;
  const auto accept = [=](const SubIntBase& v) { return filter(v, context) != 0; };
  KivSVectorImp_SubIntBase accepted(other.Count(), other.GetDelta(), 0);
  if (!CheckAny()) {
    MergeCommon(values, other.values, accept, accepted);
    return NarrowTo(accepted);
  }
  for (unsigned i = 0; i < other.Count(); ++i) {
    if (accept(other.values[i])) accepted.Add(other.values[i]);
  }
  if (accepted.Count() == 0) return 0;
  Become(accepted, 0);
  return 1;
}

int KivOmbEnumInteger::Intersect(const KivOmbEnumInteger& a, const KivOmbEnumInteger& b,
                                 ValueFilter filter, void* context) {
  if (a.CheckAny() || b.CheckAny()) return 0;
  KivOmbEnumInteger both(a);
  both.Unite(b);
  return Intersect(both, filter, context);
}

int KivOmbEnumInteger::IntersectInverse(KivOmbSingleInteger& single) const {
  if (single.CheckNil() || CheckAny()) return 0;
  if (CheckNil()) return single.Nil();
  if (!single.CheckAny()) return Contains(single.GetValue()) ? 0 : single.Nil();
  if (!CheckDefined()) return 0;
  single.SetExactValue(GetFirstL());
  return 1;
}

int KivOmbEnumInteger::IntersectInverse(KivOmbIntervalInteger& interval) const {
  if (interval.CheckNil() || CheckAny()) return 0;
  if (CheckNil()) return interval.Nil();
  // A bound beyond all values meets the first one; the interval's intersection decides then.
  const auto at = [this](unsigned i) { return i < Count() ? GetValue(i) : GetFirstL(); };
  const SubIntBase high = at(values.FindLowerBound(interval.GetUpperBound(), 0));
  const SubIntBase low = at(values.FindUpperBound(interval.GetLowerBound(), 0));
  return interval.Intersect(SubdefInt(low, high));
}

void KivOmbEnumInteger::Unite(const KivOmbEnumInteger& other) {
  if (CheckAny() || other.CheckNil()) return;
  if (other.CheckAny()) return Any();
  if (CheckNil()) return Become(other.values, other.anyFlag);
  KivSVectorImp_SubIntBase both(Count() + other.Count(), GetDelta() + other.GetDelta(), 0);
  unsigned i = 0;
  unsigned j = 0;
  while (i < Count() && j < other.Count()) {
    const SubIntBase mine = values[i];
    const SubIntBase theirs = other.values[j];
    both.Add(mine < theirs ? mine : theirs);
    i += mine <= theirs;
    j += theirs <= mine;
  }
  for (; i < Count(); ++i) both.Add(values[i]);
  for (; j < other.Count(); ++j) both.Add(other.values[j]);
  if (both.Count() == Count()) return;
  // Insertion allows as many values as the cap, a union one less.
  if (both.Count() >= sMAX_CARD) return Any();
  Become(both, anyFlag);
}

void KivOmbEnumInteger::Unite(const KivOmbSingleInteger& single) {
  if (CheckAny() || single.CheckNil()) return;
  if (single.CheckAny()) return Any();
  Insert(single.GetValue());
}

void KivOmbEnumInteger::Minus() {
  const unsigned n = Count();
  unsigned symmetric = 0;
  while (symmetric < n && GetValue(symmetric) == -GetValue(n - 1 - symmetric)) ++symmetric;
  if (symmetric == n) return;
  KivSVectorImp_SubIntBase& mine = Writable().values;
  for (unsigned i = 0; i < n / 2; ++i) {
    const SubIntBase low = mine[i];
    mine[i] = -mine[n - 1 - i].GetValue();
    mine[n - 1 - i] = -low.GetValue();
  }
  if (n % 2 != 0) mine[n / 2] = -mine[n / 2].GetValue();
}
