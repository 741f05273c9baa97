// z = -x.

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/scratch.h"

int KivOmbEnumInteger::CalcNegativeValue(const KivOmbEnumInteger& x) {
  if (x.Count() == 0) return Intersect(x);
  const kiv::kernels::Scratch mirrored(x.Count());
  if (mirrored.Get() == nullptr) return Nil();
  MirrorInto(mirrored.Get(), x.View());
  return IntersectWithImage({mirrored.Get(), x.Count()}, x);
}

int KivOmbEnumInteger::CalcInverseNegativeValue(KivOmbEnumInteger& x) const {
  return x.CalcNegativeValue(*this);
}

int KivOmbEnumInteger::CalcInverseNegativeValue(KivOmbSingleInteger& x) const {
  if (!x.CheckAny()) return Contains(-x.GetValue()) ? 0 : x.Nil();
  if (!CheckDefined()) return 0;
  x.SetExactValue(-GetFirstL());
  return 1;
}

int KivOmbEnumInteger::CalcNegativeValue(const KivOmbiNumber& x) {
  return kiv::ForwardEntry(*this, x, [this](const auto& y) { return CalcNegativeValue(y); });
}

int KivOmbEnumInteger::CalcInverseNegativeValue(KivOmbiNumber& x) const {
  return kiv::InverseEntry(*this, x, [this](auto& y) { return CalcInverseNegativeValue(y); });
}
