#include "framework/abstract_types/any.h"

const char KivOmbiAny::CastableIdent[] = "KivOmbiAny";

KivOmbiAny::~KivOmbiAny() = default;

int KivOmbiAny::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiObject::IsDerivedFrom(ident);
}

void KivOmbiAny::InputValue(Kivistrstream&) {}

double KivOmbiAny::GetWidth() const {
  const std::uint32_t cardinality = GetCardinality();
  return cardinality <= 1 ? 0.0 : static_cast<double>(cardinality);
}

double KivOmbiAny::GetRelativeWidth(double unit) const {
  return unit > 0.0 ? GetWidth() / unit : GetWidth();
}

void KivOmbiAny::Bisect(KivOmbiObject&, ValueSelection) {}

int KivOmbiAny::CalcMinValue(const KivOmbiAny&, const KivOmbiAny&) { return 0; }
int KivOmbiAny::CalcMinValue() { return 0; }
int KivOmbiAny::CalcMaxValue(const KivOmbiAny&, const KivOmbiAny&) { return 0; }
int KivOmbiAny::CalcMaxValue() { return 0; }
int KivOmbiAny::CalcEqualValue(const KivOmbiAny&) { return 0; }
int KivOmbiAny::CalcInverseEqualValue(KivOmbiAny&) const { return 0; }
int KivOmbiAny::CalcUnequalValue(const KivOmbiAny&) { return 0; }
int KivOmbiAny::CalcInverseUnequalValue(KivOmbiAny&) const { return 0; }
int KivOmbiAny::CalcIsEqual(const KivOmbiAny&, KivOmbiBoolean&) const { return 0; }
int KivOmbiAny::CalcLessOrEqualValue(const KivOmbiAny&) { return 0; }
int KivOmbiAny::CalcInverseLessOrEqualValue(KivOmbiAny&) const { return 0; }
int KivOmbiAny::CalcNotLessAndUnequalValue(const KivOmbiAny&) { return 0; }
int KivOmbiAny::CalcInverseNotLessAndUnequalValue(KivOmbiAny&) const { return 0; }
int KivOmbiAny::CalcIsLessOrEqual(const KivOmbiAny&, KivOmbiBoolean&) const { return 0; }
int KivOmbiAny::CalcFirstInverseMinValue(KivOmbiAny&, const KivOmbiAny&) const { return 0; }
int KivOmbiAny::CalcFirstInverseMaxValue(KivOmbiAny&, const KivOmbiAny&) const { return 0; }
