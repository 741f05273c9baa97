#include "framework/numbers/single_boolean.h"

#include <bit>

#include "framework/numbers/number_descriptor.h"

namespace {

const char identity[] = "KivOmbSingleBoolean";
const KivStreamableClass streamable(identity, KivOmbSingleBoolean::Build, 1);
const KivOmbNumberDescriptor<KivOmbSingleBoolean> descriptor("bool", KivOmbiBoolean::sDescriptor,
                                                             0);

}  // namespace

const char* const KivOmbSingleBoolean::CastableIdent = identity;
const KivOmbiObjectDescriptor* const KivOmbSingleBoolean::sDescriptor = &descriptor;

KivOmbSingleBoolean::KivOmbSingleBoolean() = default;
KivOmbSingleBoolean::KivOmbSingleBoolean(bool value) : value_(value ? kTrue : kFalse) {}
KivOmbSingleBoolean::KivOmbSingleBoolean(KivStreamableInit init) : KivOmbiBoolean(init) {}
KivOmbSingleBoolean::KivOmbSingleBoolean(const KivOmbSingleBoolean& other) = default;
KivOmbSingleBoolean::~KivOmbSingleBoolean() = default;

KivOmbSingleBoolean& KivOmbSingleBoolean::operator=(const KivOmbSingleBoolean& other) {
  Become(other.value_);
  return *this;
}

KivOmbSingleBoolean* KivOmbSingleBoolean::DynamicCast(KivOmbiBase* object) {
  return KivCast<KivOmbSingleBoolean>(object);
}

const KivOmbSingleBoolean* KivOmbSingleBoolean::DynamicCast(const KivOmbiBase* object) {
  return KivCast<KivOmbSingleBoolean>(object);
}

KivStreamable* KivOmbSingleBoolean::Build(KivStreamable* object) {
  return object != nullptr ? object : new KivOmbSingleBoolean(kKivStreamableInit);
}

// Two values are all there are, so that an open boolean is a set of values like any other.
KivOmbiDomainSummary KivOmbSingleBoolean::Summarize() const {
  if (CheckNil() != 0) return {1, 0, 0, KivOmbiDomainSummary::kNil};
  return {CanBe(false) != 0 ? 0 : 1, CanBe(true) != 0 ? 1 : 0, GetCardinality(),
          KivOmbiDomainSummary::kValues};
}

const char* KivOmbSingleBoolean::CastableID() const { return CastableIdent; }

// The record: the possible values, a bit each (1 false, 2 true).
void KivOmbSingleBoolean::Write(Kivopstream& out) const {
  KivStreamable::Write(out);
  out << value_;
}

void KivOmbSingleBoolean::Read(Kivipstream& in) {
  KivStreamable::Read(in);
  Value value = kNeither;
  in >> value;
  Become(value <= kBoth ? value : kNeither);
}

int KivOmbSingleBoolean::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiBoolean::IsDerivedFrom(ident);
}

const KivOmbiObjectDescriptor* KivOmbSingleBoolean::GetDescriptor() const { return sDescriptor; }

void KivOmbSingleBoolean::PrintOn(Kivostrstream& out) const {
  static constexpr const char* kTexts[] = {"Nil", "false", "true", "Any"};
  out << kTexts[value_];
}

void KivOmbSingleBoolean::InputValue(Kivistrstream& in) { Become(ReadValue(in)); }

KivOmbSingleBoolean::Value KivOmbSingleBoolean::ReadValue(Kivistrstream& in) {
  const int token = CheckNumString(in);
  if (token == kKivAny) return kBoth;
  if (token == kKivNil) return kNeither;
  if (token == kKivNumber) {
    char next = '\0';
    in >> next;
    const bool value = next == 't';
    for (const char* expected = value ? "true" : "false"; next == *expected; in >> next) {
      if (*++expected == '\0') return value ? kTrue : kFalse;
    }
  }
  in.Clear(Kivpstream::kFailure);
  return kNeither;
}

void KivOmbSingleBoolean::Any() { Become(kBoth); }

int KivOmbSingleBoolean::Nil() {
  Become(kNeither);
  return 1;
}

void KivOmbSingleBoolean::Assign(const KivOmbiAny& x) { Become(ValueOf(x)); }

void KivOmbSingleBoolean::SetNilValue() { Nil(); }

void KivOmbSingleBoolean::SetUndefinedValue() { Any(); }

int KivOmbSingleBoolean::IsNil() const { return CheckNil(); }

int KivOmbSingleBoolean::IsUndefined() const { return CheckAny(); }

int KivOmbSingleBoolean::IsIntersected(const KivOmbiAny& x) const {
  return (value_ & ValueOf(x)) != kNeither;
}

void KivOmbSingleBoolean::Intersect(const KivOmbiAny& x) { CalcEqualValue(x); }

void KivOmbSingleBoolean::Unite(const KivOmbiAny& x) { Become(value_ | ValueOf(x)); }

std::uint32_t KivOmbSingleBoolean::GetCardinality() const {
  return static_cast<std::uint32_t>(std::popcount(value_));
}

void KivOmbSingleBoolean::Bisect(KivOmbiObject& other, ValueSelection selection) {
  if (CheckNil() != 0) return;
  auto* receiver = DynamicCast(&other);
  if (receiver == nullptr || selection < kLowerHalf || selection > kGreatest) {
    Nil();
    return;
  }
  Value given = value_;
  if (CheckAny() != 0) {
    given = selection == kLowerHalf || selection == kSmallest ? kFalse : kTrue;
  } else if (selection == kUpperHalf) {
    given = kNeither;
  }
  receiver->Become(given);
  Become(value_ & ~given);
}

int KivOmbSingleBoolean::CalcEqualValue(const KivOmbiAny& x) { return Narrow(ValueOf(x)); }

int KivOmbSingleBoolean::CalcInverseEqualValue(KivOmbiAny& x) const {
  return x.CalcEqualValue(*this);
}

int KivOmbSingleBoolean::CalcUnequalValue(const KivOmbiAny& x) {
  const Value known = ValueOf(x);
  return Narrow(((known & kTrue) != 0 ? kFalse : kNeither) |
                ((known & kFalse) != 0 ? kTrue : kNeither));
}

int KivOmbSingleBoolean::CalcInverseUnequalValue(KivOmbiAny& x) const {
  return x.CalcUnequalValue(*this);
}

int KivOmbSingleBoolean::CalcIsEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const {
  const Value other = ValueOf(x);
  if (value_ == kNeither || other == kNeither) {
    if (result.IsNil() != 0) return 0;
    result.SetNilValue();
    return 1;
  }
  if ((value_ & other) == kNeither) return result.CalcTruthValue(false);
  return value_ == other && value_ != kBoth ? result.CalcTruthValue(true) : 0;
}

int KivOmbSingleBoolean::CalcTruthValue(bool value) { return Narrow(value ? kTrue : kFalse); }

int KivOmbSingleBoolean::CanBe(bool value) const {
  return (value_ & (value ? kTrue : kFalse)) != 0;
}

KivOmbSingleBoolean::Value KivOmbSingleBoolean::ValueOf(const KivOmbiAny& x) {
  const auto* operand = KivCast<KivOmbiBoolean>(&x);
  if (operand == nullptr) return kNeither;
  return (operand->CanBe(false) != 0 ? kFalse : kNeither) |
         (operand->CanBe(true) != 0 ? kTrue : kNeither);
}

int KivOmbSingleBoolean::Narrow(Value possible) { return Become(value_ & possible); }

int KivOmbSingleBoolean::Become(Value value) {
  if (value == value_) return 0;
  WillChange();
  value_ = value;
  return 1;
}
