#include "framework/abstract_types/scalar.h"

const char KivOmbiScalar::CastableIdent[] = "KivOmbiScalar";

KivOmbiScalar::~KivOmbiScalar() = default;

int KivOmbiScalar::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiAny::IsDerivedFrom(ident);
}

int KivOmbiScalar::CalcLessValue(const KivOmbiScalar&) { return 0; }
int KivOmbiScalar::CalcInverseLessValue(KivOmbiScalar&) const { return 0; }
int KivOmbiScalar::CalcNotLessValue(const KivOmbiScalar&) { return 0; }
int KivOmbiScalar::CalcInverseNotLessValue(KivOmbiScalar&) const { return 0; }
int KivOmbiScalar::CalcIsLess(const KivOmbiScalar&, KivOmbiBoolean&) const { return 0; }
int KivOmbiScalar::CalcNextValue(const KivOmbiScalar&) { return 0; }
int KivOmbiScalar::CalcInverseNextValue(KivOmbiScalar&) const { return 0; }
