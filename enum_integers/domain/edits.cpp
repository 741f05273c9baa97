// The writes to an enumerated domain. Each decides first whether it changes anything: a domain that
// a network owns announces its first write, and is saved then.

#include <algorithm>
#include <cstring>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/scratch.h"
#include "enum_integers/kernels/word_set.h"

namespace {

// How many integers [lower, upper] holds, in 32 bits: one that lies two or more the wrong way
// round, like one that is too wide, has a size above any cap.
std::uint32_t RangeSize(std::int32_t lower, std::int32_t upper) {
  return static_cast<std::uint32_t>(upper) - static_cast<std::uint32_t>(lower) + 1u;
}

}  // namespace

int KivOmbEnumInteger::Insert(std::int32_t v) {
  if (CheckAny()) return 0;
  // The count is tested before the value is looked for: a full domain takes not even its own.
  if (Count() >= sMAX_CARD) {
    Any();
    return 0;
  }
  if (SimpleInsert(v) == 0) Nil();
  return 1;
}

int KivOmbEnumInteger::SimpleInsert(std::int32_t v) {
  return Contains(v) ? 1 : Writable().values.AddUnique(v);
}

void KivOmbEnumInteger::InsertExactValue(std::int32_t v) { Insert(v); }

void KivOmbEnumInteger::SetExactValue(std::int32_t v) {
  if (CheckDefined() && Contains(v) && anyFlag == 0 && sMAX_CARD > 0) return;
  Nil();
  Insert(v);
}

int KivOmbEnumInteger::RemoveExactValue(std::int32_t v) {
  const unsigned i = values.Find(v);
  const unsigned count = Count();
  if (i >= count) return 0;
  if (i == 0 || i + 1 == count) {
    i == 0 ? Keep(1, count) : Keep(0, i);
  } else {
    Without(View().subspan(i, 1)).values.DetachAt(i, 1);
  }
  return 1;
}

void KivOmbEnumInteger::SetLowerBound(std::int32_t bound) {
  if (CheckAny()) return;
  if (CheckNil()) {
    Insert(bound);
  } else if (const std::int32_t upper = GetUpperBound(); RangeSize(bound, upper) >= sMAX_CARD) {
    Any();
  } else {
    BecomeRange(bound, std::max(bound, upper));
  }
}

void KivOmbEnumInteger::SetUpperBound(std::int32_t bound) {
  if (CheckAny()) return;
  if (CheckNil()) {
    Insert(bound);
  } else if (const std::int32_t lower = GetLowerBound(); RangeSize(lower, bound) >= sMAX_CARD) {
    Any();
  } else {
    BecomeRange(std::min(lower, bound), bound);
  }
}

// Becomes Any (flag 1) or Nil (flag 0); the storage stays.
void KivOmbEnumInteger::BecomeEmpty(int flag) {
  if (Count() == 0 && anyFlag == flag) return;
  KivOmbEnumInteger& self = anyFlag == flag ? Cut(View()) : Writable();
  self.values.Flush();
  self.anyFlag = flag;
}

// Takes over values, flag and growth step; becomes Nil when there is no memory for the values. The
// step of a union is the sum of its operands', so that the domain of a variable, which meets unions
// of its own former values again and again, keeps the step that it has.
void KivOmbEnumInteger::Become(kiv::kernels::Values new_values, int flag, unsigned delta) {
  if (new_values.empty()) return BecomeEmpty(flag);
  if (anyFlag == flag && std::ranges::equal(View(), new_values)) return;
  KivOmbEnumInteger& self = Writable();
  const auto count = static_cast<unsigned>(new_values.size());
  SubIntBase* const slots = self.values.Overwrite(count, HasOwner() ? GetDelta() : delta);
  if (slots == nullptr) return BecomeEmpty(0);
  std::memcpy(static_cast<void*>(slots), new_values.data(), new_values.size_bytes());
  self.anyFlag = flag;
}

// Becomes every integer from `lower` to `upper`, inserted into Nil one by one.
void KivOmbEnumInteger::BecomeRange(std::int32_t lower, std::int32_t upper) {
  const std::int64_t first = SubIntBase(lower).GetValue();
  const std::int64_t last = SubIntBase(upper).GetValue();
  const bool is_range_already =
      Count() == last - first + 1 && GetFirstL() == first && GetLastU() == last;
  if (is_range_already && anyFlag == 0) return;
  Nil();
  for (std::int64_t v = first; v <= last && !CheckAny(); ++v) Insert(static_cast<std::int32_t>(v));
}

// Keeps the values at the positions `first` .. `end` - 1; the leftover flag stays.
void KivOmbEnumInteger::Keep(unsigned first, unsigned end) {
  const unsigned count = Count();
  end = std::max(first, std::min(end, count));
  if (end < count) Cut(View().subspan(end)).values.Keep(0, end);
  if (first > 0) Cut(View().first(first)).values.Keep(first, end);
}

// Keeps the values of the range; Nil when there are none. For a domain that holds values.
int KivOmbEnumInteger::KeepBetween(std::int32_t lowest, std::int32_t highest) {
  const bool cuts_below = GetFirstL() < lowest;
  const bool cuts_above = GetLastU() > highest;
  if (!cuts_below && !cuts_above) return 0;
  if (GetLastU() < lowest || GetFirstL() > highest) return Nil();
  const bool is_gapless = kiv::kernels::IsInterval(View());
  const auto from_first = [&](std::int32_t v) { return static_cast<unsigned>(v - GetFirstL()); };
  const unsigned first = !cuts_below ? 0 : is_gapless ? from_first(lowest) : CountBelow(lowest);
  const unsigned end = !cuts_above  ? Count()
                       : is_gapless ? from_first(highest) + 1
                                    : CountUpTo(highest);
  if (first >= end) return Nil();
  Keep(first, end);
  return 1;
}

// Keeps the values whose bits are set in the word, which begins at the first value: one or more.
void KivOmbEnumInteger::KeepWord(std::uint64_t word) {
  const std::int32_t begin = GetFirstL();
  KivSVectorImp_SubIntBase& mine = Writable().values;
  mine.Keep(0, kiv::kernels::ListWord(word, begin, reinterpret_cast<std::int32_t*>(&mine[0])));
}

// Loses `lost`, some of the values; Nil when it has no others.
int KivOmbEnumInteger::Lose(kiv::kernels::Values lost) {
  if (lost.empty()) return 0;
  if (lost.size() == Count()) return Nil();
  Without(lost).values.Remove(reinterpret_cast<const SubIntBase*>(lost.data()),
                              static_cast<unsigned>(lost.size()));
  return 1;
}

// The end of an intersection: `kept` are those of this domain's values that stay.
int KivOmbEnumInteger::NarrowTo(kiv::kernels::Values kept) {
  if (kept.size() == Count()) return 0;
  if (kept.empty()) return Nil();
  const kiv::kernels::Scratch lost(LosesFew() ? Count() - kept.size() : 0);
  if (LosesFew() && lost.Get() != nullptr) {
    return Lose({lost.Get(), std::ranges::set_difference(View(), kept, lost.Get()).out});
  }
  Become(kept, anyFlag, GetDelta());
  return 1;
}
