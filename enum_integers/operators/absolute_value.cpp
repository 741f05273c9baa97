// z = abs(x). A domain is split at zero and its halves are mirrored and united. The halves keep its
// leftover flag: one that loses all values falls into the state that the flag names, and when that
// is Any, so is the union, which says nothing of the target.

#include <cstdlib>

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"

namespace {

// A target that was Any takes the values without the leftover flag of their source, unlike in the
// plain intersection.
int AcceptAll(const SubIntBase&, void*) { return 1; }

}  // namespace

int KivOmbEnumInteger::CalcAbsoluteValue(const KivOmbEnumInteger& x) {
  // When nothing is known of x, z is narrowed by its own absolute values: to those not negative.
  const KivOmbEnumInteger& source = x.CheckAny() ? *this : x;
  const unsigned negatives = source.CountBelow(0);
  KivOmbEnumInteger mirrored(source);
  mirrored.Keep(0, negatives);
  mirrored.Minus();
  KivOmbEnumInteger others(source);
  others.Keep(negatives, source.Count());
  mirrored.Unite(others);
  return Intersect(mirrored, AcceptAll, nullptr);
}

int KivOmbEnumInteger::CalcInverseAbsoluteValue(KivOmbEnumInteger& x) const {
  if (CheckAny()) return 0;
  const unsigned negatives = CountBelow(0);
  if (negatives == Count()) return x.Nil();
  KivOmbEnumInteger candidates(*this);
  candidates.Keep(negatives, Count());
  KivOmbEnumInteger mirrored(candidates);
  mirrored.Minus();
  candidates.Unite(mirrored);
  return x.Intersect(candidates, AcceptAll, nullptr);
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
