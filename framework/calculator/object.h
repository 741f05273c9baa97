#pragma once

#include <cstddef>
#include <cstdint>
#include <typeinfo>

#include "framework/base/export.h"
#include "framework/utilities/object_stream.h"
#include "framework/utilities/text_stream.h"

class KivOmbiNetwork;
class KivOmbiObjectDescriptor;
class KivOmbiObjectEnvironment;

// The root of everything that the calculator allocates, constructs in its own memory and casts.
class KIV_EXPORT KivOmbiBase : public KivStreamable {
 public:
  ~KivOmbiBase() override;

  // Null when there is no memory.
  static void* operator new(std::size_t size) noexcept;
  // The placement form: an object of `size` bytes in the framework's `memory`; null stays null.
  static void* operator new(std::size_t size, void* memory) noexcept;
  static void operator delete(void* memory) noexcept;
  static void operator delete(void*, void*) noexcept {}

 protected:
  KivOmbiBase() = default;
  explicit KivOmbiBase(KivStreamableInit init) : KivStreamable(init) {}
  KivOmbiBase(const KivOmbiBase&) = default;
  KivOmbiBase& operator=(const KivOmbiBase&) = default;
};

// An object of a network: a domain or a constraint.
class KIV_EXPORT KivOmbiObject : public KivOmbiBase {
 public:
  ~KivOmbiObject() override;

  virtual const KivOmbiObjectDescriptor* GetDescriptor() const = 0;

  // The three by which a network runs a constraint; a domain leaves them empty.
  // Asks `network` to run the object.
  virtual void Activate(KivOmbiNetwork* network);
  // The argument at `index` changed in the ways that the bits `events` (KivOmbiEvent) tell.
  virtual void ActivateByArgument(unsigned index, std::int64_t events, KivOmbiNetwork* network);
  // Narrows the arguments; `events` are those since the last run. The result is made of
  // KivOmbiFilterResult bits.
  virtual std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events);

  virtual void PrintOn(Kivostrstream& out) const;

 protected:
  KivOmbiObject() = default;
  explicit KivOmbiObject(KivStreamableInit init) : KivOmbiBase(init) {}
  KivOmbiObject(const KivOmbiObject&) = default;
  KivOmbiObject& operator=(const KivOmbiObject&) = default;
};

// `object` as a T, or null when it is none. T names its class by T::CastableIdent. An object of the
// very class T, as most are that anybody asks about, is known without a call by its type's address.
template <class T>
T* KivCast(KivOmbiBase* object) {
  if (object == nullptr) return nullptr;
  const bool is_one =
      &typeid(*object) == &typeid(T) || object->IsDerivedFrom(T::CastableIdent) != 0;
  return is_one ? static_cast<T*>(object) : nullptr;
}
template <class T>
const T* KivCast(const KivOmbiBase* object) {
  return KivCast<T>(const_cast<KivOmbiBase*>(object));
}
