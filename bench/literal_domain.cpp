#include "bench/literal_domain.h"

#include <limits>
#include <utility>

namespace kiv::bench {

using reference::EnumSet;

const char LiteralDomain::CastableIdent[] = "LiteralDomain";

int LiteralDomain::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivOmbiNumber::IsDerivedFrom(ident);
}

namespace {

// The set of a domain; null for one that is Nil or of another kind.
const EnumSet* Known(const KivOmbiAny& x) {
  const auto* const domain = KivCast<LiteralDomain>(&x);
  return domain == nullptr || domain->set.IsNil() ? nullptr : &domain->set;
}

}  // namespace

void LiteralDomain::Assign(const KivOmbiAny& x) {
  const EnumSet* const known = Known(x);
  known != nullptr ? static_cast<void>(set = *known) : SetNilValue();
}

int LiteralDomain::IsIntersected(const KivOmbiAny& x) const {
  LiteralDomain common(set);
  common.CalcEqualValue(x);
  return common.IsNil() != 0 ? 0 : 1;
}

void LiteralDomain::Unite(const KivOmbiAny& x) {
  if (const EnumSet* const known = Known(x)) reference::Unite(set, *known);
}

std::uint32_t LiteralDomain::GetCardinality() const {
  return set.IsAny() ? std::numeric_limits<std::uint32_t>::max()
                     : static_cast<std::uint32_t>(set.values.size());
}

// The entries. `core` narrows a set by one or two known ones.

template <class Core>
int LiteralDomain::Forward(const KivOmbiAny& x, Core core) {
  if (set.IsNil()) return 0;
  const EnumSet* const known = Known(x);
  return known == nullptr ? MakeNil(set) : core(set, *known);
}

template <class Core>
int LiteralDomain::Forward(const KivOmbiAny& x, const KivOmbiAny& y, Core core) {
  if (set.IsNil()) return 0;
  const EnumSet* const first = Known(x);
  const EnumSet* const second = Known(y);
  return first == nullptr || second == nullptr ? MakeNil(set) : core(set, *first, *second);
}

template <class Core>
int LiteralDomain::Inverse(KivOmbiAny& target, const KivOmbiAny& known, Core core) const {
  auto* const narrowed = KivCast<LiteralDomain>(&target);
  if (narrowed == nullptr || narrowed->set.IsNil()) return 0;
  const EnumSet* const other = Known(known);
  if (other == nullptr || set.IsNil()) return MakeNil(narrowed->set);
  return core(narrowed->set, set, *other);
}

int LiteralDomain::CalcEqualValue(const KivOmbiAny& x) {
  return Forward(x, [](EnumSet& z, const EnumSet& a) { return reference::Intersect(z, a); });
}

int LiteralDomain::CalcLessOrEqualValue(const KivOmbiAny& x) {
  return Forward(x, [](EnumSet& z, const EnumSet& a) { return reference::LessOrEqual(z, a); });
}

int LiteralDomain::CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y) {
  return Forward(x, y, reference::Min);
}

int LiteralDomain::CalcNextValue(const KivOmbiScalar& x) { return Forward(x, reference::Next); }

int LiteralDomain::CalcAbsoluteValue(const KivOmbiNumber& x) {
  return Forward(x, reference::Absolute);
}

int LiteralDomain::CalcNegativeValue(const KivOmbiNumber& x) {
  return Forward(x, reference::Negative);
}

int LiteralDomain::CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return Forward(x, y, reference::Sum);
}

int LiteralDomain::CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return Inverse(x, y, [](EnumSet& target, const EnumSet& z, const EnumSet& other) {
    return reference::FirstInverseSum(z, target, other);
  });
}

int LiteralDomain::CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return Forward(x, y, reference::Product);
}

int LiteralDomain::CalcFirstInverseProdValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return Inverse(x, y, [](EnumSet& target, const EnumSet& z, const EnumSet& other) {
    return reference::FirstInverseProduct(z, target, other);
  });
}

int LiteralDomain::CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) {
  return Forward(x, y, reference::Mod);
}

int LiteralDomain::CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const {
  return Inverse(x, y, [](EnumSet& target, const EnumSet& z, const EnumSet& other) {
    return reference::FirstInverseMod(z, target, other);
  });
}

int LiteralDomain::CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const {
  return Inverse(y, x, [](EnumSet& target, const EnumSet& z, const EnumSet& other) {
    return reference::SecondInverseMod(z, other, target);
  });
}

}  // namespace kiv::bench
