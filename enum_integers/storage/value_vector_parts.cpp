// Taking values out of the value vector, and putting them back, several at once.

#include <algorithm>

#include "enum_integers/storage/value_vector.h"

// When few go, what stands between two of them moves as a whole.
void KivSVectorImp_SubIntBase::Remove(const SubIntBase* removed, unsigned count) noexcept {
  constexpr unsigned kFewOf = 8;
  const bool are_few = count * kFewOf <= top_;
  const SubIntBase* const end_of_removed = removed + count;
  const SubIntBase* const end = data_ + top_;
  SubIntBase* to = std::lower_bound(data_, data_ + top_, *removed);
  for (const SubIntBase* from = to; from != end;) {
    if (removed != end_of_removed && *from == *removed) {
      ++from;
      ++removed;
    } else if (are_few) {
      const bool was_last = removed == end_of_removed;
      const SubIntBase* const next = was_last ? end : std::lower_bound(from, end, *removed);
      to = std::copy(from, next, to);
      from = next;
    } else {
      *to++ = *from++;
    }
  }
  top_ -= count;
}

// From the greatest down: each moves what stands behind it to where that stays. What belongs before
// all others takes the slots there.
int KivSVectorImp_SubIntBase::Merge(const SubIntBase* added, unsigned count) noexcept {
  if (count <= front_ && top_ > 0 && added[count - 1] < data_[0]) {
    data_ -= count;
    front_ -= count;
    limit_ += count;
    top_ += count;
    std::copy_n(added, count, data_);
    return 1;
  }
  if (top_ + count > limit_) CloseFront();
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
