#include "framework/calculator/object.h"

#include <cstdlib>
#include <new>

KivOmbiBase::~KivOmbiBase() = default;

void* KivOmbiBase::operator new(std::size_t size) noexcept {
  return ::operator new(size, std::nothrow);
}

void* KivOmbiBase::operator new(std::size_t, void* memory) noexcept { return memory; }

void KivOmbiBase::operator delete(void* memory) noexcept { ::operator delete(memory); }

KivOmbiObject::~KivOmbiObject() = default;

void KivOmbiObject::Activate(KivOmbiNetwork*) {}

void KivOmbiObject::ActivateByArgument(unsigned, std::int64_t, KivOmbiNetwork*) {}

std::int64_t KivOmbiObject::Filter(const KivOmbiObjectEnvironment&, std::int64_t) { return 0; }

void KivOmbiObject::PrintOn(Kivostrstream&) const {}
