// z = next(x), which is x + 1 in the saturating arithmetic. The two directions are unlike at the
// infinities: plus infinity is its own successor, and so a set that also holds its predecessor has
// it twice, but minus infinity has no predecessor.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"

namespace {

constexpr std::int32_t kMin = KivOmbSingleInteger::sNC_INT_MIN;
constexpr std::int32_t kMax = KivOmbSingleInteger::sNC_INT_MAX;

}  // namespace

int KivOmbEnumInteger::CalcNextValue(const KivOmbEnumInteger& x) {
  if (x.CheckNil()) return Nil();
  KivOmbEnumInteger successors(x);
  successors.Shift(1);
  return Intersect(successors);
}

int KivOmbEnumInteger::CalcInverseNextValue(KivOmbEnumInteger& x) const {
  if (CheckAny()) {
    // Every integer but the greatest has a greater one.
    if (x.GetLastU() != kMax) return 0;
    x.Keep(0, x.Count() - 1);
    return 1;
  }
  KivOmbEnumInteger predecessors(*this);
  if (GetFirstL() == kMin) predecessors.Keep(1, Count());
  if (predecessors.Count() == 0) return x.Nil();
  predecessors.Shift(-1);
  return x.Intersect(predecessors);
}

int KivOmbEnumInteger::CalcInverseNextValue(KivOmbSingleInteger& x) const {
  if (!x.CheckAny()) return x.GetValue() < kMax && Contains(x.GetValue() + 1) ? 0 : x.Nil();
  if (Count() > 1) return 0;
  if (GetFirstL() == kMin) return x.Nil();
  x.SetExactValue(GetFirstL() - 1);
  return 1;
}

int KivOmbEnumInteger::CalcNextValue(const KivOmbiScalar& x) {
  return kiv::ForwardEntry(*this, x, [this](const auto& y) { return CalcNextValue(y); });
}

int KivOmbEnumInteger::CalcInverseNextValue(KivOmbiScalar& x) const {
  return kiv::InverseEntry(*this, x, [this](auto& y) { return CalcInverseNextValue(y); });
}

// Adds `step` to every value, saturating.
void KivOmbEnumInteger::Shift(SubIntBase step) {
  KivOmbEnumInteger& self = Writable();
  for (unsigned i = 0; i < Count(); ++i) self.values[i] += step;
}
