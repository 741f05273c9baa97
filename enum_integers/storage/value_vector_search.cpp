// The searches and walks of the value vector.

#include "enum_integers/storage/value_vector.h"

unsigned KivSVectorImp_SubIntBase::Find(const SubIntBase& v) const {
  if (top_ == 0) return limit_ + 1;
  unsigned low = 0;
  unsigned high = top_ - 1;
  while (low < high) {
    const unsigned middle = low + (high - low) / 2;
    if (data_[middle] == v) return middle;
    if (data_[middle] < v) {
      low = middle + 1;
    } else {
      high = middle == 0 ? 0 : middle - 1;
    }
  }
  return low == high && data_[low] == v ? low : limit_ + 1;
}

unsigned KivSVectorImp_SubIntBase::ClusteredFind(const SubIntBase& v) const {
  return FirstOfEquals(Find(v));
}

unsigned KivSVectorImp_SubIntBase::FindLowerBound(SubIntBase v, int clustered) const {
  if (top_ == 0) return limit_ + 1;
  unsigned below = limit_ + 1;  // the last value seen that is below v
  unsigned low = 0;
  unsigned high = top_ - 1;
  while (low < high) {
    const unsigned middle = low + (high - low) / 2;
    if (data_[middle] == v) {
      low = middle;
      break;
    }
    if (data_[middle] < v) {
      below = middle;
      low = middle + 1;
    } else {
      if (middle == 0) break;
      high = middle - 1;
    }
  }
  const unsigned found = v < data_[low] ? below : low;
  return clustered != 0 ? FirstOfEquals(found) : found;
}

unsigned KivSVectorImp_SubIntBase::FindUpperBound(SubIntBase v, int clustered) const {
  if (top_ == 0) return limit_ + 1;
  unsigned above = limit_ + 1;  // the last value seen that is above v
  unsigned low = 0;
  unsigned high = top_ - 1;
  while (low < high) {
    const unsigned middle = low + (high - low) / 2;
    if (data_[middle] == v) {
      low = middle;
      break;
    }
    if (data_[middle] < v) {
      low = middle + 1;
    } else {
      above = middle;
      if (middle == 0) break;
      high = middle - 1;
    }
  }
  const unsigned found = data_[low] < v ? above : low;
  return clustered != 0 ? FirstOfEquals(found) : found;
}

// The first of the run of equals that `i` stands in; what is no position stays as it is.
unsigned KivSVectorImp_SubIntBase::FirstOfEquals(unsigned i) const {
  if (i >= top_) return i;
  while (i > 0 && data_[i - 1] == data_[i]) --i;
  return i;
}

void KivSVectorImp_SubIntBase::ForEach(Visitor visit, void* context, unsigned from, unsigned to) {
  for (unsigned i = from; i < to; ++i) visit(data_[i], context);
}

void KivSVectorImp_SubIntBase::ForEach(Visitor visit, void* context) {
  ForEach(visit, context, 0, Top());
}

SubIntBase* KivSVectorImp_SubIntBase::FirstThat(Predicate test, void* context) const {
  return FirstThat(test, context, 0, Top());
}

SubIntBase* KivSVectorImp_SubIntBase::FirstThat(Predicate test, void* context, unsigned from,
                                                unsigned to) const {
  for (unsigned i = from; i < to; ++i) {
    if (test(data_[i], context) != 0) return &data_[i];
  }
  return nullptr;
}

SubIntBase* KivSVectorImp_SubIntBase::LastThat(Predicate test, void* context) const {
  return LastThat(test, context, 0, Top());
}

SubIntBase* KivSVectorImp_SubIntBase::LastThat(Predicate test, void* context, unsigned from,
                                               unsigned to) const {
  SubIntBase* last = nullptr;
  for (unsigned i = from; i < to; ++i) {
    if (test(data_[i], context) != 0) last = &data_[i];
  }
  return last;
}
