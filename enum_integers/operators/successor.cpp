// z = next(x), which is x + 1 in the saturating arithmetic. The two directions are unlike at the
// infinities: plus infinity is its own successor, and so a set that also holds its predecessor has
// it twice, but minus infinity has no predecessor.

#include <algorithm>

#include "enum_integers/domain/entry_frames.h"
#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/kernels/scratch.h"

namespace {

constexpr std::int32_t kMin = KivOmbSingleInteger::sNC_INT_MIN;
constexpr std::int32_t kMax = KivOmbSingleInteger::sNC_INT_MAX;

}  // namespace

int KivOmbEnumInteger::CalcNextValue(const KivOmbEnumInteger& x) {
  if (x.CheckNil()) return Nil();
  if (x.CheckAny()) return 0;
  return IntersectWithShifted(x.View(), 1, x);
}

int KivOmbEnumInteger::CalcInverseNextValue(KivOmbEnumInteger& x) const {
  if (CheckAny()) {
    // Every integer but the greatest has a greater one.
    if (x.GetLastU() != kMax) return 0;
    x.Keep(0, x.Count() - 1);
    return 1;
  }
  const kiv::kernels::Values with_predecessor = View().subspan(GetFirstL() == kMin ? 1 : 0);
  if (with_predecessor.empty()) return x.Nil();
  return x.IntersectWithShifted(with_predecessor, -1, *this);
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

// With the values, one at least, of `source` moved by `step`, saturating.
int KivOmbEnumInteger::IntersectWithShifted(kiv::kernels::Values of_source, SubIntBase step,
                                            const KivOmbEnumInteger& source) {
  const kiv::kernels::Scratch shifted(of_source.size());
  if (shifted.Get() == nullptr) return Nil();
  std::transform(of_source.begin(), of_source.end(), shifted.Get(),
                 [step](std::int32_t v) { return base_plus(v, step).GetValue(); });
  return IntersectWithImage({shifted.Get(), of_source.size()}, source);
}
