// Representation, states and queries of the enumerated domain.

#include "enum_integers/domain/enum_integer.h"

#include <cstring>

std::uint32_t KivOmbEnumInteger::sMAX_CARD = 0;

namespace {

// 32-bit arithmetic that wraps.
std::int32_t Wrapped(std::int32_t v, std::uint32_t step) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(v) + step);
}

}  // namespace

KivOmbEnumInteger::KivOmbEnumInteger() : values(kRoom, kStep, 0), anyFlag(1) {}

KivOmbEnumInteger::KivOmbEnumInteger(const SubIntBase& value, int) : KivOmbEnumInteger() {
  values.Add(value);
}

KivOmbEnumInteger::KivOmbEnumInteger(const KivOmbSingleInteger& single, int) : KivOmbEnumInteger() {
  if (single.CheckAny()) return;
  anyFlag = 0;
  if (!single.CheckNil()) values.Add(single.GetUnicalcValue());
}

KivOmbEnumInteger::KivOmbEnumInteger(const void* raw_block) : values(kRoom, kStep, 0), anyFlag(0) {
  const auto* const words = static_cast<const unsigned char*>(raw_block);
  std::uint32_t count;
  std::memcpy(&count, words, sizeof count);
  for (std::uint32_t i = count; i > 0; --i) {
    std::int32_t v;
    std::memcpy(&v, words + std::size_t{i} * sizeof v, sizeof v);
    Insert(v);
  }
}

KivOmbEnumInteger::KivOmbEnumInteger(KivStreamableInit init)
    : KivOmbiInteger(init), values(kRoom, kStep, 0), anyFlag(1) {}

// A set whose copy found no memory is Nil.
KivOmbEnumInteger::KivOmbEnumInteger(const KivOmbEnumInteger& other)
    : KivOmbiInteger(other),
      values(other.values),
      anyFlag(values.Count() == other.Count() ? other.anyFlag : 0) {}

// The assignment to a variable's domain, or to one that has not the room.
KivOmbEnumInteger& KivOmbEnumInteger::AssignAnew(const KivOmbEnumInteger& other) {
  if (this != &other) Become(other.View(), other.anyFlag, other.GetDelta());
  return *this;
}

KivOmbEnumInteger& KivOmbEnumInteger::operator=(const KivOmbSingleInteger& single) {
  if (single.CheckNil()) {
    Nil();
  } else if (single.CheckAny()) {
    const std::int32_t v = single.GetValue();
    Become({&v, 1}, 0, kStep);
  } else {
    Any();
  }
  return *this;
}

KivOmbEnumInteger::~KivOmbEnumInteger() = default;

int KivOmbEnumInteger::IsNil() const { return CheckNil(); }

int KivOmbEnumInteger::IsUndefined() const { return CheckAny(); }

void KivOmbEnumInteger::Any() { BecomeEmpty(1); }

int KivOmbEnumInteger::Nil() {
  BecomeEmpty(0);
  return 1;
}

void KivOmbEnumInteger::SetNilValue() { Nil(); }

void KivOmbEnumInteger::SetUndefinedValue() { Any(); }

void KivOmbEnumInteger::CheckValue() {}

int KivOmbEnumInteger::CheckErrorStatus() {
  if (SDCheckError() == 0) return 0;
  Nil();
  SDClearError();
  return 1;
}

std::uint32_t KivOmbEnumInteger::GetCardinality() const {
  return CheckAny() ? ~std::uint32_t{0} : Count();
}

std::int32_t KivOmbEnumInteger::GetLowerBound() const {
  if (Count() > 0) return GetFirstL();
  return CheckAny() ? KivOmbSingleInteger::sNC_INT_MIN : KivOmbSingleInteger::sNC_INT_MAX;
}

std::int32_t KivOmbEnumInteger::GetUpperBound() const {
  if (Count() > 0) return GetLastU();
  return CheckAny() ? KivOmbSingleInteger::sNC_INT_MAX : KivOmbSingleInteger::sNC_INT_MIN;
}

std::int32_t KivOmbEnumInteger::GetNextExactValue(std::int32_t v) const {
  if (CheckAny() && v <= KivOmbSingleInteger::sNC_INT_MAX) return Wrapped(v, 1u);
  const unsigned i = values.FindUpperBound(v, 0);
  if (i >= Count()) return v;
  if (values[i] != SubIntBase(v)) return GetValue(i);
  return i + 1 == Count() ? Wrapped(v, 1u) : GetValue(i + 1);
}

std::int32_t KivOmbEnumInteger::GetPrevExactValue(std::int32_t v) const {
  if (CheckAny() && v >= KivOmbSingleInteger::sNC_INT_MIN) return Wrapped(v, ~0u);
  const unsigned i = values.FindLowerBound(v, 0);
  if (i >= Count()) return v;
  if (values[i] != SubIntBase(v)) return GetValue(i);
  return i == 0 ? Wrapped(v, ~0u) : GetValue(i - 1);
}

// All values; of two infinities behind each other, those up to the one that the search of the
// storage meets.
unsigned KivOmbEnumInteger::CountUpToInfinity() const {
  const bool has_twins = Count() > 0 && kiv::kernels::EndsWithTwins(View());
  return has_twins ? values.FindLowerBound(SubIntBase::kMax, 0) + 1 : Count();
}
