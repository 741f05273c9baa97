#include "framework/numbers/single_integer.h"

#include "framework/numbers/number_descriptor.h"
#include "framework/numbers/operands.h"

namespace {

const char identity[] = "KivOmbSingleInteger";
const KivStreamableClass streamable(identity, KivOmbSingleInteger::Build, 1);
const KivOmbNumberDescriptor<KivOmbSingleInteger> descriptor("int", KivOmbiInteger::sDescriptor, 0);

}  // namespace

const char* const KivOmbSingleInteger::CastableIdent = identity;
const KivOmbiObjectDescriptor* const KivOmbSingleInteger::sDescriptor = &descriptor;

KivOmbSingleInteger::KivOmbSingleInteger() = default;
KivOmbSingleInteger::KivOmbSingleInteger(SubIntBase value) : value_{kValue, value} {}
KivOmbSingleInteger::KivOmbSingleInteger(KivStreamableInit init) : KivOmbBoundedInteger(init) {}
KivOmbSingleInteger::KivOmbSingleInteger(const KivOmbSingleInteger& other) = default;
KivOmbSingleInteger::~KivOmbSingleInteger() = default;

KivOmbSingleInteger& KivOmbSingleInteger::operator=(const KivOmbSingleInteger& other) {
  Become(other.value_);
  return *this;
}

KivOmbSingleInteger* KivOmbSingleInteger::DynamicCast(KivOmbiBase* object) {
  return KivCast<KivOmbSingleInteger>(object);
}

const KivOmbSingleInteger* KivOmbSingleInteger::DynamicCast(const KivOmbiBase* object) {
  return KivCast<KivOmbSingleInteger>(object);
}

KivStreamable* KivOmbSingleInteger::Build(KivStreamable* object) {
  return object != nullptr ? object : new KivOmbSingleInteger(kKivStreamableInit);
}

KivOmbiDomainSummary KivOmbSingleInteger::Summarize() const {
  switch (value_.state) {
    case kNil:
      return {sNC_INT_MAX, sNC_INT_MIN, 0, KivOmbiDomainSummary::kNil};
    case kAny:
      return {sNC_INT_MIN, sNC_INT_MAX, ~std::uint32_t{0}, KivOmbiDomainSummary::kAny};
    case kValue:
      break;
  }
  return {GetValue(), GetValue(), 1, KivOmbiDomainSummary::kValues};
}

const char* KivOmbSingleInteger::CastableID() const { return CastableIdent; }

// The record: state, value.
void KivOmbSingleInteger::Write(Kivopstream& out) const {
  KivStreamable::Write(out);
  out << std::int32_t{value_.state} << GetValue();
}

void KivOmbSingleInteger::Read(Kivipstream& in) {
  KivStreamable::Read(in);
  std::int32_t state = kNil;
  std::int32_t number = 0;
  in >> state >> number;
  Become(state == kValue ? Value{kValue, number} : Value{state == kAny ? kAny : kNil, 0});
}

int KivOmbSingleInteger::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiInteger::IsDerivedFrom(ident);
}

const KivOmbiObjectDescriptor* KivOmbSingleInteger::GetDescriptor() const { return sDescriptor; }

void KivOmbSingleInteger::PrintOn(Kivostrstream& out) const {
  if (CheckNil() != 0) {
    out << "Nil";
  } else if (CheckAny() != 0) {
    out << "Any";
  } else {
    PrintNumber(out, GetValue());
  }
}

void KivOmbSingleInteger::InputValue(Kivistrstream& in) {
  switch (CheckNumString(in)) {
    case kKivAny:
      return Any();
    case kKivNil:
      return SetNilValue();
    case kKivMin:
    case kKivMinusInfinity:
      return SetExactValue(sNC_INT_MIN);
    case kKivMax:
    case kKivPlusInfinity:
      return SetExactValue(sNC_INT_MAX);
    case kKivNumber: {
      std::int32_t value = 0;
      in >> value;
      return SetExactValue(value);
    }
    default:  // an interval or a set is more than one value
      in.Clear(Kivpstream::kFailure);
      SetNilValue();
  }
}

void KivOmbSingleInteger::Any() { Become({kAny, 0}); }

int KivOmbSingleInteger::Nil() {
  Become({kNil, 0});
  return 1;
}

void KivOmbSingleInteger::Assign(const KivOmbiAny& x) {
  const KivOmbiInteger* operand = kiv::AsInteger(x);
  if (operand == nullptr) {
    Nil();
  } else if (operand->GetCardinality() == 1) {
    SetExactValue(operand->GetLowerBound());
  } else {
    Any();
  }
}

void KivOmbSingleInteger::SetNilValue() { Nil(); }

void KivOmbSingleInteger::SetUndefinedValue() { Any(); }

int KivOmbSingleInteger::IsNil() const { return CheckNil(); }

int KivOmbSingleInteger::IsUndefined() const { return CheckAny(); }

int KivOmbSingleInteger::IsIntersected(const KivOmbiAny& x) const {
  const KivOmbiInteger* operand = kiv::AsInteger(x);
  if (CheckNil() != 0 || operand == nullptr) return 0;
  return CheckAny() != 0 || operand->MayBe(GetValue());
}

void KivOmbSingleInteger::Intersect(const KivOmbiAny& x) { CalcEqualValue(x); }

void KivOmbSingleInteger::Unite(const KivOmbiAny& x) {
  const KivOmbiInteger* operand = kiv::AsInteger(x);
  if (operand == nullptr) return;
  if (CheckNil() != 0) {
    Assign(x);
  } else if (operand->GetCardinality() != 1 || operand->GetLowerBound() != GetValue()) {
    Any();
  }
}

std::uint32_t KivOmbSingleInteger::GetCardinality() const { return Summarize().cardinality; }

void KivOmbSingleInteger::Bisect(KivOmbiObject& other, ValueSelection selection) {
  if (value_.state != kValue) return;
  auto* receiver = DynamicCast(&other);
  if (receiver == nullptr || selection < kLowerHalf || selection > kGreatest) {
    Nil();
  } else if (selection == kUpperHalf) {
    receiver->Nil();
  } else {
    receiver->Become(value_);
    Nil();
  }
}

int KivOmbSingleInteger::CalcEqualValue(const KivOmbiAny& x) {
  return kiv::Forward(*this, x, [&](const KivOmbiInteger& operand) {
    if (CheckAny() == 0) return operand.MayBe(GetValue()) ? 0 : Nil();
    return operand.GetCardinality() == 1 ? Become({kValue, operand.GetLowerBound()}) : 0;
  });
}

void KivOmbSingleInteger::SetExactValue(std::int32_t value) { Become({kValue, value}); }

void KivOmbSingleInteger::SetLowerBound(std::int32_t bound) {
  if (value_.state == kValue) Narrow(bound, sNC_INT_MAX);
}

void KivOmbSingleInteger::SetUpperBound(std::int32_t bound) {
  if (value_.state == kValue) Narrow(sNC_INT_MIN, bound);
}

void KivOmbSingleInteger::InsertExactValue(std::int32_t value) {
  Unite(KivOmbSingleInteger(value));
}

int KivOmbSingleInteger::RemoveExactValue(std::int32_t value) {
  return value_.state == kValue && value_.number == SubIntBase(value) ? Nil() : 0;
}

std::int32_t KivOmbSingleInteger::GetLowerBound() const { return Summarize().lower; }

std::int32_t KivOmbSingleInteger::GetUpperBound() const { return Summarize().upper; }

std::int32_t KivOmbSingleInteger::GetNextExactValue(std::int32_t value) const {
  if (CheckNil() != 0) return value;
  const std::int32_t next = SubIntBase::Clamp(std::int64_t{value} + 1).GetValue();
  return CheckAny() == 0 && value < GetValue() ? GetValue() : next;
}

std::int32_t KivOmbSingleInteger::GetPrevExactValue(std::int32_t value) const {
  if (CheckNil() != 0) return value;
  const std::int32_t previous = SubIntBase::Clamp(std::int64_t{value} - 1).GetValue();
  return CheckAny() == 0 && value > GetValue() ? GetValue() : previous;
}

int KivOmbSingleInteger::Narrow(std::int64_t lower, std::int64_t upper) {
  if (CheckNil() != 0) return 0;
  if (lower > upper) return Nil();
  if (CheckAny() == 0) return lower <= GetValue() && GetValue() <= upper ? 0 : Nil();
  return lower == upper ? Become({kValue, SubIntBase::Clamp(lower)}) : 0;
}

int KivOmbSingleInteger::Become(Value value) {
  if (value == value_) return 0;
  WillChange();
  value_ = value;
  return 1;
}
