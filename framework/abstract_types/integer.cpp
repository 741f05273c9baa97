#include "framework/abstract_types/integer.h"

#include "framework/abstract_types/boolean.h"

const char KivOmbiInteger::CastableIdent[] = "KivOmbiInteger";

KivOmbiInteger::~KivOmbiInteger() = default;

int KivOmbiInteger::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiNumber::IsDerivedFrom(ident);
}

namespace {

int MakeNil(KivOmbiAny& target) {
  if (target.IsNil() != 0) return 0;
  target.SetNilValue();
  return 1;
}

int RemoveValueOf(const KivOmbiInteger& known, KivOmbiInteger& target) {
  return known.GetCardinality() == 1 ? target.RemoveExactValue(known.GetLowerBound()) : 0;
}

// False only when no value is common to both.
bool MayBeEqual(const KivOmbiInteger& a, const KivOmbiInteger& b) {
  if (a.GetUpperBound() < b.GetLowerBound() || b.GetUpperBound() < a.GetLowerBound()) return false;
  if (a.GetCardinality() == 1) return b.MayBe(a.GetLowerBound());
  if (b.GetCardinality() == 1) return a.MayBe(b.GetLowerBound());
  return true;
}

// The frame of the three: `decide(b)` narrows `result` when both sides are integers that hold
// values.
template <class Decide>
int DecideRelation(const KivOmbiInteger& a, const KivOmbiAny& x, KivOmbiBoolean& result,
                   Decide&& decide) {
  const auto* b = KivCast<KivOmbiInteger>(&x);
  if (b == nullptr || a.IsNil() != 0 || b->IsNil() != 0) return MakeNil(result);
  return decide(*b);
}

}  // namespace

// The search for the next value is asked only below the upper bound: above it kinds answer with
// numbers that they do not hold.
bool KivOmbiInteger::MayBe(std::int32_t value) const {
  if (IsNil() != 0) return false;
  if (IsUndefined() != 0) return true;
  const std::int32_t lower = GetLowerBound();
  const std::int32_t upper = GetUpperBound();
  if (value <= lower || value >= upper) return value == lower || value == upper;
  return GetNextExactValue(value - 1) == value;
}

int KivOmbiInteger::CalcUnequalValue(const KivOmbiAny& x) {
  const auto* known = KivCast<KivOmbiInteger>(&x);
  return known != nullptr ? RemoveValueOf(*known, *this) : MakeNil(*this);
}

int KivOmbiInteger::CalcInverseUnequalValue(KivOmbiAny& x) const {
  auto* target = KivCast<KivOmbiInteger>(&x);
  return target != nullptr ? RemoveValueOf(*this, *target) : MakeNil(x);
}

int KivOmbiInteger::CalcIsEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const {
  return DecideRelation(*this, x, result, [&](const KivOmbiInteger& other) {
    if (!MayBeEqual(*this, other)) return result.CalcTruthValue(false);
    const bool both_fixed = GetCardinality() == 1 && other.GetCardinality() == 1;
    return both_fixed ? result.CalcTruthValue(true) : 0;
  });
}

int KivOmbiInteger::CalcIsLessOrEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const {
  return DecideRelation(*this, x, result, [&](const KivOmbiInteger& other) {
    if (GetUpperBound() <= other.GetLowerBound()) return result.CalcTruthValue(true);
    if (GetLowerBound() > other.GetUpperBound()) return result.CalcTruthValue(false);
    return 0;
  });
}

int KivOmbiInteger::CalcIsLess(const KivOmbiScalar& x, KivOmbiBoolean& result) const {
  return DecideRelation(*this, x, result, [&](const KivOmbiInteger& other) {
    if (GetUpperBound() < other.GetLowerBound()) return result.CalcTruthValue(true);
    if (GetLowerBound() >= other.GetUpperBound()) return result.CalcTruthValue(false);
    return 0;
  });
}
