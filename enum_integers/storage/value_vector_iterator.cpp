#include "enum_integers/storage/value_vector_iterator.h"

#include "enum_integers/storage/value_vector.h"

KivSVectorIteratorImp_SubIntBase::KivSVectorIteratorImp_SubIntBase(
    const KivSVectorImp_SubIntBase& vector)
    : KivSVectorIteratorImp_SubIntBase(vector, 0, vector.Top()) {}

KivSVectorIteratorImp_SubIntBase::KivSVectorIteratorImp_SubIntBase(
    const KivSVectorImp_SubIntBase& vector, unsigned start, unsigned end) noexcept
    : vector_(&vector), current_(start), start_(start), end_(end) {}

KivSVectorIteratorImp_SubIntBase::operator int() const {
  return vector_->Good() != 0 && current_ < end_;
}

const SubIntBase& KivSVectorIteratorImp_SubIntBase::Current() const { return (*vector_)[current_]; }

const SubIntBase& KivSVectorIteratorImp_SubIntBase::operator++(int) {
  return (*vector_)[current_++];
}

const SubIntBase& KivSVectorIteratorImp_SubIntBase::operator++() { return (*vector_)[++current_]; }

void KivSVectorIteratorImp_SubIntBase::Restart() noexcept { current_ = start_; }

void KivSVectorIteratorImp_SubIntBase::Restart(unsigned start, unsigned end) noexcept {
  start_ = current_ = start;
  end_ = end;
}
