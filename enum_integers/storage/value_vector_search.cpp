// The searches and walks of the value vector.

#include "enum_integers/storage/value_vector.h"

// How many values are below `v`: a bisection without branches, because where it turns next cannot
// be predicted.
unsigned KivSVectorImp_SubIntBase::CountBelow(SubIntBase v) const {
  unsigned below = 0;
  for (unsigned n = top_; n > 0;) {
    const unsigned half = (n + 1) / 2;
    below += data_[below + half - 1] < v ? half : 0;
    n -= half;
  }
  return below;
}

// Which of the values equal to `v`, the first of them at `first`, a bisection meets first.
unsigned KivSVectorImp_SubIntBase::BisectToEqual(SubIntBase v, unsigned first) const {
  if (first + 1 == top_ || data_[first + 1] != v) return first;
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
  return low;
}

unsigned KivSVectorImp_SubIntBase::Find(const SubIntBase& v) const {
  const unsigned i = CountBelow(v);
  return i < top_ && data_[i] == v ? BisectToEqual(v, i) : Limit() + 1;
}

unsigned KivSVectorImp_SubIntBase::ClusteredFind(const SubIntBase& v) const {
  return FirstOfEquals(Find(v));
}

unsigned KivSVectorImp_SubIntBase::FindLowerBound(SubIntBase v, int clustered) const {
  unsigned found = CountBelow(v);
  if (found < top_ && data_[found] == v) {
    if (clustered == 0) found = BisectToEqual(v, found);
  } else {
    found = found > 0 ? found - 1 : Limit() + 1;
    if (clustered != 0) found = FirstOfEquals(found);
  }
  return found;
}

unsigned KivSVectorImp_SubIntBase::FindUpperBound(SubIntBase v, int clustered) const {
  const unsigned found = CountBelow(v);
  if (found == top_) return Limit() + 1;
  return clustered == 0 && data_[found] == v ? BisectToEqual(v, found) : found;
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
