#include "tests/framework/numbers/domain.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/support/modules.h"

namespace kiv::test {

std::string Text(const KivOmbiAny& domain) {
  Kivostrstream out;
  domain.PrintOn(out);
  return out.Str();
}

void DestroyDomain::operator()(KivOmbiAny* domain) const {
  domain->GetDescriptor()->DestroyObject(domain);
  ::operator delete(domain);
}

DomainPointer MakeAny(const char* kind) {
  const KivOmbiObjectDescriptor& descriptor = *OpenModules().FindKind(kind);
  void* memory = ::operator new(static_cast<std::size_t>(descriptor.GetObjectSize()));
  return DomainPointer(static_cast<KivOmbiAny*>(descriptor.ConstructObject(memory)));
}

DomainPointer MakeInteger(const char* kind, const std::vector<std::int32_t>& values) {
  DomainPointer domain = MakeAny(kind);
  domain->SetNilValue();
  for (const std::int32_t value : values) AsInteger(domain).InsertExactValue(value);
  return domain;
}

void Listener::Enqueue(std::uint32_t, std::int64_t) { ADD_FAILURE() << "a domain runs nothing"; }

void Listener::WillChange(std::uint32_t variable) {
  EXPECT_EQ(variable, kVariable);
  ++announcements;
}

void Listener::Refresh(std::uint32_t) { ADD_FAILURE() << "a domain does not know its summary"; }

void Listener::SaveWord(std::uint64_t&) { ADD_FAILURE() << "a domain has no words of its own"; }

KivOmbiObject& Listener::Scratch(const KivOmbiObjectDescriptor&, unsigned) {
  throw std::logic_error("a domain computes with itself alone");
}

}  // namespace kiv::test
