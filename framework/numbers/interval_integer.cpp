#include "framework/numbers/interval_integer.h"

#include <algorithm>

#include "framework/numbers/number_descriptor.h"
#include "framework/numbers/operands.h"

namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

const char identity[] = "KivOmbIntervalInteger";
const KivStreamableClass streamable(identity, KivOmbIntervalInteger::Build, 1);
const KivOmbNumberDescriptor<KivOmbIntervalInteger> descriptor("interval int",
                                                               KivOmbiInteger::sDescriptor, 0);

}  // namespace

const char* const KivOmbIntervalInteger::CastableIdent = identity;
const KivOmbiObjectDescriptor* const KivOmbIntervalInteger::sDescriptor = &descriptor;

KivOmbIntervalInteger::KivOmbIntervalInteger() = default;

KivOmbIntervalInteger::KivOmbIntervalInteger(const SubdefInt& interval)
    : value_(ValueOf(interval)) {}

KivOmbIntervalInteger::KivOmbIntervalInteger(KivStreamableInit init) : KivOmbBoundedInteger(init) {}
KivOmbIntervalInteger::KivOmbIntervalInteger(const KivOmbIntervalInteger& other) = default;
KivOmbIntervalInteger::~KivOmbIntervalInteger() = default;

KivOmbIntervalInteger& KivOmbIntervalInteger::operator=(const KivOmbIntervalInteger& other) {
  Become(other.value_);
  return *this;
}

KivOmbIntervalInteger* KivOmbIntervalInteger::DynamicCast(KivOmbiBase* object) {
  return KivCast<KivOmbIntervalInteger>(object);
}

const KivOmbIntervalInteger* KivOmbIntervalInteger::DynamicCast(const KivOmbiBase* object) {
  return KivCast<KivOmbIntervalInteger>(object);
}

KivStreamable* KivOmbIntervalInteger::Build(KivStreamable* object) {
  return object != nullptr ? object : new KivOmbIntervalInteger(kKivStreamableInit);
}

KivOmbiDomainSummary KivOmbIntervalInteger::Summarize() const {
  const std::int32_t lower = value_.lower.GetValue();
  const std::int32_t upper = value_.upper.GetValue();
  if (lower > upper) return {lower, upper, 0, KivOmbiDomainSummary::kNil};
  return {lower, upper, static_cast<std::uint32_t>(std::int64_t{upper} - lower + 1),
          value_ == kAny ? KivOmbiDomainSummary::kAny : KivOmbiDomainSummary::kValues};
}

const char* KivOmbIntervalInteger::CastableID() const { return CastableIdent; }

// The record: lower bound, upper bound.
void KivOmbIntervalInteger::Write(Kivopstream& out) const {
  KivStreamable::Write(out);
  out << GetLowerBound() << GetUpperBound();
}

void KivOmbIntervalInteger::Read(Kivipstream& in) {
  KivStreamable::Read(in);
  std::int32_t lower = kMax;
  std::int32_t upper = kMin;
  in >> lower >> upper;
  Become(ValueOf(SubdefInt(lower, upper)));
}

int KivOmbIntervalInteger::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiInteger::IsDerivedFrom(ident);
}

const KivOmbiObjectDescriptor* KivOmbIntervalInteger::GetDescriptor() const { return sDescriptor; }

void KivOmbIntervalInteger::PrintOn(Kivostrstream& out) const {
  if (CheckNil() != 0) {
    out << "Nil";
  } else if (CheckAny() != 0) {
    out << "Any";
  } else if (value_.lower == value_.upper) {
    PrintNumber(out, GetLowerBound());
  } else {
    out << "[";
    PrintNumber(out, GetLowerBound());
    out << ", ";
    PrintNumber(out, GetUpperBound());
    out << "]";
  }
}

void KivOmbIntervalInteger::InputValue(Kivistrstream& in) { Become(ReadValue(in)); }

KivOmbIntervalInteger::Value KivOmbIntervalInteger::ReadValue(Kivistrstream& in) {
  switch (CheckNumString(in)) {
    case kKivInterval: {
      const std::int32_t lower = GetSIValue(in);
      char comma = '\0';
      in >> ws >> comma;
      const std::int32_t upper = GetSIValue(in);
      char bracket = '\0';
      in >> ws >> bracket;
      if (comma == ',' && bracket == ']') return ValueOf(SubdefInt(lower, upper));
      break;
    }
    case kKivAny:
      return kAny;
    case kKivNil:
      return kNil;
    case kKivMin:
    case kKivMinusInfinity:
      return {kMin, kMin};
    case kKivMax:
    case kKivPlusInfinity:
      return {kMax, kMax};
    case kKivNumber: {
      std::int32_t value = 0;
      in >> value;
      return {value, value};
    }
    default:  // a set in braces
      break;
  }
  in.Clear(Kivpstream::kFailure);
  return kNil;
}

int KivOmbIntervalInteger::CheckAny() const noexcept { return value_ == kAny; }

int KivOmbIntervalInteger::CheckNil() const noexcept { return value_.lower > value_.upper; }

void KivOmbIntervalInteger::Any() { Become(kAny); }

int KivOmbIntervalInteger::Nil() {
  Become(kNil);
  return 1;
}

int KivOmbIntervalInteger::Intersect(const SubdefInt& interval) {
  return Narrow(interval.GetLower().GetValue(), interval.GetUpper().GetValue());
}

void KivOmbIntervalInteger::Assign(const KivOmbiAny& x) {
  const KivOmbiInteger* operand = kiv::AsInteger(x);
  if (operand == nullptr) {
    Nil();
  } else {
    Become({operand->GetLowerBound(), operand->GetUpperBound()});
  }
}

void KivOmbIntervalInteger::SetNilValue() { Nil(); }

void KivOmbIntervalInteger::SetUndefinedValue() { Any(); }

int KivOmbIntervalInteger::IsNil() const { return CheckNil(); }

int KivOmbIntervalInteger::IsUndefined() const { return CheckAny(); }

int KivOmbIntervalInteger::IsIntersected(const KivOmbiAny& x) const {
  const KivOmbiInteger* operand = kiv::AsInteger(x);
  if (CheckNil() != 0 || operand == nullptr) return 0;
  if (GetCardinality() == 1) return operand->MayBe(GetLowerBound());
  return GetLowerBound() <= operand->GetUpperBound() && operand->GetLowerBound() <= GetUpperBound();
}

void KivOmbIntervalInteger::Intersect(const KivOmbiAny& x) { CalcEqualValue(x); }

void KivOmbIntervalInteger::Unite(const KivOmbiAny& x) {
  const KivOmbiInteger* operand = kiv::AsInteger(x);
  if (operand == nullptr) return;
  Become({std::min(GetLowerBound(), operand->GetLowerBound()),
          std::max(GetUpperBound(), operand->GetUpperBound())});
}

std::uint32_t KivOmbIntervalInteger::GetCardinality() const { return Summarize().cardinality; }

void KivOmbIntervalInteger::Bisect(KivOmbiObject& other, ValueSelection selection) {
  if (CheckNil() != 0 || CheckAny() != 0) return;
  auto* receiver = DynamicCast(&other);
  if (receiver == nullptr || selection < kLowerHalf || selection > kGreatest) {
    Nil();
    return;
  }
  const std::int64_t lower = GetLowerBound();
  const std::int64_t upper = GetUpperBound();
  const std::int64_t middle = (lower + upper) >> 1;  // rounds down, for negative sums as well
  // The last value of the lower part, and which part is handed over.
  const std::int64_t cut = selection == kSmallest   ? lower
                           : selection == kGreatest ? upper - 1
                                                    : middle;
  const bool give_lower = selection == kLowerHalf || selection == kSmallest;
  receiver->Become(value_);
  if (give_lower) {
    receiver->Narrow(lower, cut);
    Narrow(cut + 1, upper);
  } else {
    receiver->Narrow(cut + 1, upper);
    Narrow(lower, cut);
  }
}

void KivOmbIntervalInteger::SetExactValue(std::int32_t value) { Become({value, value}); }

void KivOmbIntervalInteger::SetLowerBound(std::int32_t bound) { Narrow(bound, kMax); }

void KivOmbIntervalInteger::SetUpperBound(std::int32_t bound) { Narrow(kMin, bound); }

void KivOmbIntervalInteger::InsertExactValue(std::int32_t value) {
  Become({std::min(GetLowerBound(), SubIntBase(value).GetValue()),
          std::max(GetUpperBound(), SubIntBase(value).GetValue())});
}

int KivOmbIntervalInteger::RemoveExactValue(std::int32_t value) {
  if (CheckNil() != 0 || CheckAny() != 0) return 0;
  const SubIntBase removed = value;
  if (removed == value_.lower) return Narrow(std::int64_t{removed.GetValue()} + 1, kMax);
  if (removed == value_.upper) return Narrow(kMin, std::int64_t{removed.GetValue()} - 1);
  return 0;
}

std::int32_t KivOmbIntervalInteger::GetLowerBound() const { return value_.lower.GetValue(); }

std::int32_t KivOmbIntervalInteger::GetUpperBound() const { return value_.upper.GetValue(); }

std::int32_t KivOmbIntervalInteger::GetNextExactValue(std::int32_t value) const {
  if (CheckNil() != 0) return value;
  return std::max(SubIntBase::Clamp(std::int64_t{value} + 1).GetValue(), GetLowerBound());
}

std::int32_t KivOmbIntervalInteger::GetPrevExactValue(std::int32_t value) const {
  if (CheckNil() != 0) return value;
  return std::min(SubIntBase::Clamp(std::int64_t{value} - 1).GetValue(), GetUpperBound());
}

KivOmbIntervalInteger::Value KivOmbIntervalInteger::ValueOf(const SubdefInt& interval) {
  return interval.IsEmpty() ? kNil : Value{interval.GetLower(), interval.GetUpper()};
}

int KivOmbIntervalInteger::Narrow(std::int64_t lower, std::int64_t upper) {
  if (CheckNil() != 0) return 0;
  lower = std::max<std::int64_t>(lower, value_.lower.GetValue());
  upper = std::min<std::int64_t>(upper, value_.upper.GetValue());
  if (lower > upper) return Nil();
  return Become({SubIntBase::Clamp(lower), SubIntBase::Clamp(upper)});
}

int KivOmbIntervalInteger::Become(Value value) {
  if (value == value_) return 0;
  WillChange();
  value_ = value;
  return 1;
}
