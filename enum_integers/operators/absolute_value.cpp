// z = abs(x). The values below zero are mirrored and united with the others.

#include <cstdlib>

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/scratch.h"

using kiv::kernels::Scratch;
using kiv::kernels::Values;

// The values on either side of zero are taken for domains with the leftover flag of their source:
// when there are none, the flag says what that side is, and if it is Any, nothing is known of z.
int KivOmbEnumInteger::CalcAbsoluteValue(const KivOmbEnumInteger& x) {
  // When nothing is known of x, z is narrowed by its own absolute values: to those not negative.
  const KivOmbEnumInteger& source = x.CheckAny() ? *this : x;
  if (source.Count() == 0) return Intersect(source);
  const unsigned negatives = source.CountBelow(0);
  const bool is_one_sided = negatives == 0 || negatives == source.Count();
  if (is_one_sided && source.anyFlag == 1) return 0;
  const Scratch mirrored(negatives);
  if (mirrored.Get() == nullptr) return Nil();
  MirrorInto(mirrored.Get(), source.View().first(negatives));
  return IntersectWithUnion({mirrored.Get(), negatives}, source.View().subspan(negatives),
                            SubIntBase::kMin, SubIntBase::kMax,
                            {source.GetDelta(), source.GetDelta()});
}

int KivOmbEnumInteger::CalcInverseAbsoluteValue(KivOmbEnumInteger& x) const {
  if (CheckAny()) return 0;
  const Values candidates = View().subspan(CountBelow(0));
  if (candidates.empty()) return x.Nil();
  const Scratch mirrored(candidates.size());
  if (mirrored.Get() == nullptr) return x.Nil();
  MirrorInto(mirrored.Get(), candidates);
  return x.IntersectWithUnion(candidates, {mirrored.Get(), candidates.size()}, SubIntBase::kMin,
                              SubIntBase::kMax, {GetDelta(), GetDelta()});
}

int KivOmbEnumInteger::CalcInverseAbsoluteValue(KivOmbSingleInteger& x) const {
  if (!x.CheckAny()) return Contains(std::abs(x.GetValue())) ? 0 : x.Nil();
  // Of all absolute values only 0 has a single root.
  if (Count() > 1 || GetFirstL() != 0) return 0;
  x.SetExactValue(0);
  return 1;
}

int KivOmbEnumInteger::CalcAbsoluteValue(const KivOmbiNumber& x) {
  return kiv::ForwardEntry(*this, x, [this](const auto& y) { return CalcAbsoluteValue(y); });
}

int KivOmbEnumInteger::CalcInverseAbsoluteValue(KivOmbiNumber& x) const {
  return kiv::InverseEntry(*this, x, [this](auto& y) { return CalcInverseAbsoluteValue(y); });
}
