// Intersection, union and negation of enumerated domains: single merges over ascending values. A
// result is built beside the domain and replaces its values only when it differs. Without memory
// for it the domain becomes Nil.

#include <algorithm>
#include <cstdint>
#include <functional>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/domain/narrowing.h"
#include "enum_integers/kernels/merging.h"
#include "enum_integers/kernels/scratch.h"

using kiv::kernels::Scratch;
using kiv::kernels::Values;

int KivOmbEnumInteger::Intersect(const KivOmbEnumInteger& other) {
  if (CheckNil()) return 0;
  if (other.CheckNil()) return Nil();
  if (other.CheckAny()) return 0;
  return IntersectWithImage(other.View(), other);
}

// With the values of `image`, at least one, that were made of those of `source`: its leftover flag
// and its growth step go with them.
int KivOmbEnumInteger::IntersectWithImage(Values image, const KivOmbEnumInteger& source) {
  if (CheckNil()) return 0;
  if (!CheckAny()) return IntersectWith(image);
  Become(image, source.anyFlag, source.GetDelta());
  return 1;
}

// With the values of `others`, at least one, for a domain that holds values. With an interval on
// either side the result is a part of the other.
int KivOmbEnumInteger::IntersectWith(Values others) {
  const Values mine = View();
  if (kiv::kernels::IsInterval(others) && !kiv::kernels::EndsWithTwins(mine)) {
    return KeepBetween(others.front(), others.back());
  }
  if (kiv::kernels::IsInterval(mine) && !kiv::kernels::EndsWithTwins(others)) {
    return NarrowTo(kiv::kernels::PartBetween(others, mine.front(), mine.back()));
  }
  Scratch common(mine.size() + kiv::kernels::kSlack);
  if (common.Get() == nullptr) return Nil();
  return NarrowTo({common.Get(), kiv::kernels::Intersect(mine, others, common.Get())});
}

// With those values from `lowest` to `highest` that are in `a` or `b`, united as two domains with
// growth steps `deltas` are: when there are too many for that, nothing is known, and an Any domain
// stays when none is in the range.
int KivOmbEnumInteger::IntersectWithUnion(Values a, Values b, std::int32_t lowest,
                                          std::int32_t highest,
                                          std::pair<unsigned, unsigned> deltas) {
  if (CheckNil()) return 0;
  if (a.empty() && b.empty()) return Nil();
  const Scratch scratch(a.size() + b.size() + kiv::kernels::kSlack);
  if (scratch.Get() == nullptr) return Nil();
  const Values both(scratch.Get(), kiv::kernels::Unite(a, b, scratch.Get()));
  const bool grows = !a.empty() && both.size() != a.size();
  if (grows && both.size() >= sMAX_CARD) return 0;
  const auto first = std::lower_bound(both.begin(), both.end(), lowest);
  const Values accepted(first, std::upper_bound(first, both.end(), highest));
  if (!CheckAny()) return accepted.empty() ? Nil() : IntersectWith(accepted);
  if (accepted.empty()) return 0;
  Become(accepted, 0, a.empty() ? deltas.second : deltas.first + (grows ? deltas.second : 0));
  return 1;
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
  Scratch accepted(other.Count());
  if (accepted.Get() == nullptr) return Nil();
  std::int32_t* end = accepted.Get();
  unsigned i = 0;
  for (const std::int32_t v : other.View()) {
    if (!CheckAny()) {
      // One of mine for one of theirs, as in every intersection.
      while (i < Count() && GetValue(i) < v) ++i;
      if (i == Count()) break;
      if (GetValue(i) != v) continue;
      ++i;
    }
    if (filter(v, context) != 0) *end++ = v;
  }
  const Values kept(accepted.Get(), end);
  if (!CheckAny()) return NarrowTo(kept);
  if (kept.empty()) return 0;
  Become(kept, 0, other.GetDelta());
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
  if (CheckNil()) return Become(other.View(), other.anyFlag, other.GetDelta());
  Scratch both(Count() + other.Count() + kiv::kernels::kSlack);
  if (both.Get() == nullptr) return BecomeEmpty(0);
  const unsigned count = kiv::kernels::Unite(View(), other.View(), both.Get());
  if (count == Count()) return;
  // Insertion allows as many values as the cap, a union one less.
  if (count >= sMAX_CARD) return Any();
  Become({both.Get(), count}, anyFlag, GetDelta() + other.GetDelta());
}

void KivOmbEnumInteger::Unite(const KivOmbSingleInteger& single) {
  if (CheckAny() || single.CheckNil()) return;
  if (single.CheckAny()) return Any();
  Insert(single.GetValue());
}

// Writes the negated values, ascending.
void KivOmbEnumInteger::MirrorInto(std::int32_t* out, Values values) {
  std::transform(values.rbegin(), values.rend(), out, std::negate());
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
