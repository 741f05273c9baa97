#include "framework/abstract_types/number.h"

const char KivOmbiNumber::CastableIdent[] = "KivOmbiNumber";

KivOmbiNumber::~KivOmbiNumber() = default;

int KivOmbiNumber::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiScalar::IsDerivedFrom(ident);
}

int KivOmbiNumber::CalcZeroValue() { return 0; }
int KivOmbiNumber::CalcOneValue() { return 0; }
int KivOmbiNumber::CalcAbsoluteValue(const KivOmbiNumber&) { return 0; }
int KivOmbiNumber::CalcInverseAbsoluteValue(KivOmbiNumber&) const { return 0; }
int KivOmbiNumber::CalcNegativeValue(const KivOmbiNumber&) { return 0; }
int KivOmbiNumber::CalcInverseNegativeValue(KivOmbiNumber&) const { return 0; }
int KivOmbiNumber::CalcSignumValue(KivOmbiInteger&) const { return 0; }
int KivOmbiNumber::CalcInverseSignumValue(const KivOmbiInteger&) { return 0; }
int KivOmbiNumber::CalcSumValue(const KivOmbiNumber&, const KivOmbiNumber&) { return 0; }
int KivOmbiNumber::CalcFirstInverseSumValue(KivOmbiNumber&, const KivOmbiNumber&) const {
  return 0;
}
int KivOmbiNumber::CalcProdValue(const KivOmbiNumber&, const KivOmbiNumber&) { return 0; }
int KivOmbiNumber::CalcFirstInverseProdValue(KivOmbiNumber&, const KivOmbiNumber&) const {
  return 0;
}
int KivOmbiNumber::CalcModValue(const KivOmbiNumber&, const KivOmbiNumber&) { return 0; }
int KivOmbiNumber::CalcFirstInverseModValue(KivOmbiNumber&, const KivOmbiNumber&) const {
  return 0;
}
int KivOmbiNumber::CalcSecondInverseModValue(const KivOmbiNumber&, KivOmbiNumber&) const {
  return 0;
}
int KivOmbiNumber::CalcPowerValue(const KivOmbiNumber&, const KivOmbiNumber&) { return 0; }
int KivOmbiNumber::CalcFirstInversePowerValue(KivOmbiNumber&, const KivOmbiNumber&) const {
  return 0;
}
int KivOmbiNumber::CalcSecondInversePowerValue(const KivOmbiNumber&, KivOmbiNumber&) const {
  return 0;
}
