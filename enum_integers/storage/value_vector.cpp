#include "enum_integers/storage/value_vector.h"

#include <algorithm>
#include <limits>

#include "enum_integers/storage/slot_memory.h"

KivSVectorImp_SubIntBase::KivSVectorImp_SubIntBase(unsigned size, unsigned delta,
                                                   int bitwise) noexcept
    : data_(kiv::TakeSlots(size + 1)),
      limit_(data_ != nullptr ? size + 1 : 0),
      delta_(delta),
      good_(data_ != nullptr),
      bitwise_(bitwise) {}

KivSVectorImp_SubIntBase::KivSVectorImp_SubIntBase(unsigned size, double factor,
                                                   int bitwise) noexcept
    : KivSVectorImp_SubIntBase(size, 0u, bitwise) {
  factor_ = factor > 0.0 ? factor : 1.0;
}

KivSVectorImp_SubIntBase::KivSVectorImp_SubIntBase(const KivSVectorImp_SubIntBase& other) noexcept
    : data_(kiv::TakeSlots(other.Limit())),
      limit_(data_ != nullptr ? other.Limit() : 0),
      top_(data_ != nullptr ? other.top_ : 0),
      delta_(other.delta_),
      factor_(other.factor_),
      good_(other.Good() != 0 && data_ != nullptr),
      bitwise_(other.bitwise_) {
  if (good_ != 0) std::copy_n(other.data_, bitwise_ != 0 ? top_ : other.limit_, data_);
}

const KivSVectorImp_SubIntBase& KivSVectorImp_SubIntBase::operator=(
    const KivSVectorImp_SubIntBase& other) noexcept {
  if (this == &other) return *this;
  good_ = other.Good();
  // Two vectors without storage have nothing to take over from each other.
  if (good_ == 0 || data_ == other.data_) return *this;
  // The old array goes first, so that the new one can be the same memory.
  DropFront();
  kiv::ReturnSlots(data_, limit_);
  data_ = kiv::TakeSlots(other.Limit());
  good_ = data_ != nullptr;
  limit_ = data_ != nullptr ? other.Limit() : 0;
  top_ = data_ != nullptr ? other.top_ : 0;
  delta_ = other.delta_;
  factor_ = other.factor_;
  bitwise_ = other.bitwise_;
  std::copy_n(other.data_, top_, data_);
  return *this;
}

KivSVectorImp_SubIntBase::~KivSVectorImp_SubIntBase() {
  DropFront();
  kiv::ReturnSlots(data_, limit_);
}

int KivSVectorImp_SubIntBase::Good() { return good_; }
int KivSVectorImp_SubIntBase::Good() const { return good_; }

int KivSVectorImp_SubIntBase::Add(const SubIntBase& v) {
  const SubIntBase value = v;  // growing may move the slot that `v` refers to
  CloseFront();
  if (top_ == limit_ && !Resize(top_ + 1)) return 0;
  unsigned i = top_++;
  for (; i > 0 && data_[i - 1] > value; --i) data_[i] = data_[i - 1];
  data_[i] = value;
  return 1;
}

int KivSVectorImp_SubIntBase::AddUnique(const SubIntBase& v) {
  const unsigned position = FindLowerBound(v, 0);
  if (position > Top()) return Add(v);
  if (data_[position] == v) return 1;
  // The new value goes behind the run of equals that its lower neighbour may stand in.
  unsigned i = position + 1;
  while (i < top_ && data_[i] == data_[position]) ++i;
  return AddAt(v, i);
}

int KivSVectorImp_SubIntBase::AddAt(const SubIntBase& v, unsigned i) {
  const SubIntBase value = v;  // growing may move the slot that `v` refers to
  CloseFront();
  if (i >= limit_ && !Resize(i + 1)) return 0;
  if (top_ == limit_ && !Resize(limit_ + 1)) return 0;
  top_ = std::max(top_, i);
  std::copy_backward(data_ + i, data_ + top_, data_ + top_ + 1);
  data_[i] = value;
  ++top_;
  return 1;
}

int KivSVectorImp_SubIntBase::Detach(const SubIntBase& v) { return DetachAt(Find(v), 1); }

int KivSVectorImp_SubIntBase::DetachAt(unsigned i, unsigned n) {
  if (i >= Limit()) return 0;
  if (i >= top_) return 1;
  const unsigned removed = std::min(n, top_ - i);
  std::copy(data_ + i + removed, data_ + top_, data_ + i);
  top_ -= removed;
  return 1;
}

int KivSVectorImp_SubIntBase::IsEmpty() const { return top_ == 0; }

void KivSVectorImp_SubIntBase::Flush() {
  DropFront();
  top_ = 0;
}

void KivSVectorImp_SubIntBase::CloseFront() noexcept {
  if (front_ == 0) return;
  std::copy_n(data_, top_, data_ - front_);
  DropFront();
}

// The least size of at least `least` in the proportional growth from the present one; as large as
// it may be, beyond 32 bits too.
std::uint64_t KivSVectorImp_SubIntBase::ProportionalLimit(std::uint64_t least) const {
  constexpr double kBeyondAnyLimit = 4294967296.0;
  std::uint64_t size = std::max(Limit(), 1u);
  while (size < least) {
    const double growth = std::min(static_cast<double>(size) * factor_, kBeyondAnyLimit);
    size += std::max<std::uint64_t>(static_cast<std::uint64_t>(growth), 1);
  }
  return size;
}

unsigned KivSVectorImp_SubIntBase::RoundedToStep(unsigned n) const {
  return n % delta_ == 0 ? n : (delta_ + n) / delta_ * delta_;
}

unsigned KivSVectorImp_SubIntBase::NextDelta(unsigned n) const {
  if (factor_ != 0.0) {
    return static_cast<unsigned>(ProportionalLimit(std::uint64_t{Limit()} + n) - Limit());
  }
  return delta_ == 0 ? 0 : RoundedToStep(n);
}

int KivSVectorImp_SubIntBase::Resize(unsigned limit) {
  CloseFront();
  if (limit <= limit_) return 0;
  const unsigned delta = GetDelta();
  if (delta == 0 && factor_ == 0.0) return 0;
  const std::uint64_t grown = factor_ != 0.0
                                  ? ProportionalLimit(limit)
                                  : std::uint64_t{limit_} + RoundedToStep(limit - limit_);
  // A step near the end of 32 bits may wrap to less than what was asked for.
  if (grown < limit || grown > std::numeric_limits<unsigned>::max()) return 0;
  SubIntBase* const slots = kiv::TakeSlots(static_cast<unsigned>(grown));
  if (slots == nullptr) return 0;
  std::copy_n(data_, limit_, slots);
  kiv::ReturnSlots(data_, limit_);
  data_ = slots;
  limit_ = static_cast<unsigned>(grown);
  good_ = 1;
  return 1;
}

// Takes new storage with room for `count` values and one more; false when there is no memory.
bool KivSVectorImp_SubIntBase::Replace(unsigned count) noexcept {
  SubIntBase* const slots = kiv::TakeSlots(count + 1);
  if (slots == nullptr) return false;
  kiv::ReturnSlots(data_, limit_);
  data_ = slots;
  limit_ = count + 1;
  good_ = 1;
  return true;
}
