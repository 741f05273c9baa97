// The identity of the kind and of its descriptor: the addresses of their names.

#include "enum_integers/domain/enum_integer.h"

namespace {

constexpr char kIdentity[] = "KivOmbEnumInteger";

}  // namespace

const char* const KivOmbEnumInteger::sIdent = kIdentity;
const char* const KivOmbEnumInteger::CastableIdent = kIdentity;

const char* KivOmbEnumInteger::CastableID() const { return CastableIdent; }

int KivOmbEnumInteger::IsDerivedFrom(const char* ident) const {
  return ident == sIdent ? 1 : KivOmbiInteger::IsDerivedFrom(ident);
}

KivOmbEnumInteger* KivOmbEnumInteger::StaticCast(KivOmbiBase* object) {
  return static_cast<KivOmbEnumInteger*>(object);
}

const KivOmbEnumInteger* KivOmbEnumInteger::StaticCast(const KivOmbiBase* object) {
  return static_cast<const KivOmbEnumInteger*>(object);
}
