// Taking values out of the value vector, and putting them back, several at once.

#include <algorithm>

#include "enum_integers/storage/value_vector.h"

// What stands between two removed values moves as a whole.
void KivSVectorImp_SubIntBase::Remove(const SubIntBase* removed, unsigned count) noexcept {
  SubIntBase* const end = data_ + top_;
  SubIntBase* to = std::lower_bound(data_, end, *removed);
  SubIntBase* from = to;
  for (unsigned i = 1; i <= count; ++i) {
    ++from;
    if (i < count && *from == removed[i]) continue;
    SubIntBase* const next = i < count ? std::lower_bound(from, end, removed[i]) : end;
    to = std::copy(from, next, to);
    from = next;
  }
  top_ -= count;
}

// From the greatest down: each moves what stands behind it to where that stays.
int KivSVectorImp_SubIntBase::Merge(const SubIntBase* added, unsigned count) noexcept {
  if (top_ + count > limit_ && Resize(top_ + count) == 0) return 0;
  SubIntBase* end = data_ + top_;
  top_ += count;
  while (count > 0 && end != data_ && end[-1] > added[0]) {
    const SubIntBase v = added[--count];
    SubIntBase* const place = end[-1] < v ? end : std::lower_bound(data_, end, v);
    std::copy_backward(place, end, end + count + 1);
    place[count] = v;
    end = place;
  }
  std::copy_n(added, count, end);
  return 1;
}
