#include "framework/abstract_types/boolean.h"

const char KivOmbiBoolean::CastableIdent[] = "KivOmbiBoolean";

KivOmbiBoolean::~KivOmbiBoolean() = default;

int KivOmbiBoolean::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiAny::IsDerivedFrom(ident);
}
