#include "framework/calculator/descriptor.h"

#include <utility>

const char KivOmbiObjectDescriptor::CastableIdent[] = "KivOmbiObjectDescriptor";
const char KivOmbiCompoundObjectDescriptor::CastableIdent[] = "KivOmbiCompoundObjectDescriptor";

KivOmbiObjectDescriptor::KivOmbiObjectDescriptor(const KivString& name,
                                                 const KivOmbiObjectDescriptor* parent, int)
    : name_(name), parent_(parent) {}

KivOmbiObjectDescriptor::KivOmbiObjectDescriptor(KivStreamableInit init) : KivOmbiBase(init) {}

KivOmbiObjectDescriptor::~KivOmbiObjectDescriptor() = default;

const char* KivOmbiObjectDescriptor::CastableID() const { return CastableIdent; }

// The parent is not part of the record: a kind's place below others is its class's own, not a
// value.
void KivOmbiObjectDescriptor::Write(Kivopstream& out) const {
  KivOmbiBase::Write(out);
  out << name_;
}

void KivOmbiObjectDescriptor::Read(Kivipstream& in) {
  KivOmbiBase::Read(in);
  in >> name_;
}

int KivOmbiObjectDescriptor::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiBase::IsDerivedFrom(ident);
}

KivOmbiObject* KivOmbiObjectDescriptor::ConstructObjectFrom(void*, const void*) const {
  return nullptr;
}

KivOmbiObject* KivOmbiObjectDescriptor::ConstructObject(void*) const { return nullptr; }

void KivOmbiObjectDescriptor::DestroyObject(KivOmbiObject* object) const {
  if (object != nullptr) object->~KivOmbiObject();
}

std::int64_t KivOmbiObjectDescriptor::GetObjectSize() const { return 0; }

unsigned KivOmbiObjectDescriptor::GetNumberOfArguments() const { return 0; }

std::int64_t KivOmbiObjectDescriptor::GetArgumentsSize() const { return 0; }

int KivOmbiObjectDescriptor::IsMatched(const KivOmbiObjectDescriptor* actual) const {
  while (actual != nullptr && actual != this) actual = actual->parent_;
  return actual == this ? 1 : 0;
}

void KivOmbiObjectDescriptor::PrintOn(Kivostrstream& out) const { out << name_; }

std::size_t KivOmbiObjectDescriptor::SaveState(const KivOmbiObject&, std::span<std::byte>) const {
  return 0;
}

int KivOmbiObjectDescriptor::RestoreState(KivOmbiObject&, const void*) const { return 1; }

int KivOmbiObjectDescriptor::Regain(KivOmbiObject&, std::span<const std::int32_t>) const {
  return 0;
}

KivOmbiDomainSummary KivOmbiObjectDescriptor::Summarize(const KivOmbiObject&) const { return {}; }

bool KivOmbiObjectDescriptor::HoldsGaps() const { return false; }

std::span<const SubIntBase> KivOmbiObjectDescriptor::GetValues(const KivOmbiObject&) const {
  return {};
}

int KivOmbiObjectDescriptor::KeepBetween(KivOmbiObject&, std::int32_t, std::int32_t) const {
  return kNotOffered;
}

int KivOmbiObjectDescriptor::RemoveValues(KivOmbiObject&, std::span<const std::int32_t>) const {
  return kNotOffered;
}

int KivOmbiObjectDescriptor::KeepWord(KivOmbiObject&, std::uint64_t) const { return kNotOffered; }

KivOmbiConstraintDescriptor::KivOmbiConstraintDescriptor(const KivString& name, unsigned arguments,
                                                         unsigned optional, bool can_propagate)
    : KivOmbiObjectDescriptor(name, nullptr, 0),
      arguments_(arguments),
      optional_(optional),
      can_propagate_(can_propagate) {}

unsigned KivOmbiConstraintDescriptor::GetNumberOfArguments() const { return arguments_; }

std::int64_t KivOmbiConstraintDescriptor::GetArgumentsSize() const {
  return std::int64_t{arguments_} * static_cast<std::int64_t>(sizeof(std::uint32_t));
}

KivOmbiCompoundObjectDescriptor::KivOmbiCompoundObjectDescriptor(
    const KivString& symbol, const char* factory, std::vector<const KivOmbiObjectDescriptor*> kinds,
    unsigned operands, unsigned result, KivOmbiArgumentOrder order,
    const KivOmbiObjectDescriptor* constraint)
    : KivOmbiObjectDescriptor(symbol, nullptr, 0),
      factory_(factory),
      kinds_(std::move(kinds)),
      operands_(operands),
      result_(result),
      order_(order),
      constraint_(static_cast<const KivOmbiConstraintDescriptor*>(constraint)) {}

const char* KivOmbiCompoundObjectDescriptor::CastableID() const { return CastableIdent; }

int KivOmbiCompoundObjectDescriptor::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiObjectDescriptor::IsDerivedFrom(ident);
}

unsigned KivOmbiCompoundObjectDescriptor::GetNumberOfArguments() const { return operands_ + 1; }

std::int64_t KivOmbiCompoundObjectDescriptor::GetArgumentsSize() const {
  return constraint_->GetArgumentsSize();
}

// The symbol and the kinds, for example "+(int, enum int) -> enum int".
void KivOmbiCompoundObjectDescriptor::PrintOn(Kivostrstream& out) const {
  out << GetSymbol() << "(";
  for (unsigned i = 0; i < operands_; ++i) out << (i == 0 ? "" : ", ") << kinds_[i]->GetName();
  out << ") -> " << GetResult()->GetName();
}
