#pragma once

#include <algorithm>
#include <type_traits>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/collections.h"
#include "enum_integers/kernels/scratch.h"

// How a domain is narrowed by what a kernel found. Nothing is written before it is clear that
// something changes, and then each value is written at most once.

// Keeps the values that satisfy `holds`, asked in ascending order; Nil when none does. `holds` does
// not look at this domain.
template <class Holds>
int KivOmbEnumInteger::KeepIf(Holds holds) {
  const unsigned count = Count();
  unsigned kept = 0;
  while (kept < count && holds(GetValue(kept))) ++kept;
  if (kept == count) return 0;
  const kiv::kernels::Scratch lost(LosesFew() ? count - kept : 0);
  if (LosesFew() && lost.Get() != nullptr) {
    std::int32_t* end = lost.Get();
    *end++ = GetValue(kept);
    for (unsigned i = kept + 1; i < count; ++i) {
      const std::int32_t v = GetValue(i);
      *end = v;
      end += holds(v) ? 0 : 1;
    }
    return Lose({lost.Get(), end});
  }
  KivSVectorImp_SubIntBase& mine = Writable().values;
  for (unsigned i = kept + 1; i < count; ++i) {
    const SubIntBase v = mine[i];
    mine[kept] = v;
    kept += holds(v.GetValue()) ? 1 : 0;
  }
  if (kept == 0) return Nil();
  mine.Keep(0, kept);
  return 1;
}

// The end of an operator that collects: what the plain intersection with the collecting domain
// would do.
template <class Collection>
int KivOmbEnumInteger::NarrowToCollection(const Collection& collection) {
  using namespace kiv::kernels;
  if constexpr (std::is_same_v<Collection, AnyCollection>) {
    return 0;
  } else if constexpr (std::is_same_v<Collection, NilCollection>) {
    return CheckNil() ? 0 : Nil();
  } else {
    if (CheckNil()) return 0;
    if (CheckAny()) {
      KivSVectorImp_SubIntBase& mine = Writable().values;
      SubIntBase* const listed = mine.Overwrite(collection.Count(), kStep);
      anyFlag = 0;
      if (listed != nullptr) collection.List(reinterpret_cast<std::int32_t*>(listed));
      return 1;
    }
    // Of a value that stands twice the intersection keeps one, which asking for each cannot tell.
    if (EndsWithTwins(View())) {
      KivOmbEnumInteger collected;
      collected.NarrowToCollection(collection);
      return Intersect(collected);
    }
    if constexpr (std::is_same_v<Collection, IntervalCollection>) {
      return KeepBetween(collection.lowest, collection.highest);
    } else {
      return KeepIf(collection.Membership());
    }
  }
}

namespace kiv {

// The same for a single integer, which takes a value only when there is no other.
template <class Collection>
int NarrowSingleTo(KivOmbSingleInteger& x, const Collection& collection) {
  using namespace kernels;
  if constexpr (std::is_same_v<Collection, AnyCollection>) {
    return 0;
  } else if constexpr (std::is_same_v<Collection, NilCollection>) {
    return x.CheckNil() ? 0 : x.Nil();
  } else {
    if (x.CheckNil()) return 0;
    if (!x.CheckAny()) return collection.Membership()(x.GetValue()) ? 0 : x.Nil();
    if (collection.Count() != 1) return 0;
    const Scratch only(1);
    collection.List(only.Get());
    x.SetExactValue(*only.Get());
    return 1;
  }
}

}  // namespace kiv
