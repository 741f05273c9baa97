#include "framework/numbers/bounded_integer.h"

#include "framework/intervals/sub_int_base.h"

KivOmbBoundedInteger::~KivOmbBoundedInteger() = default;

int KivOmbBoundedInteger::CalcMinValue() { return Narrow(SubIntBase::kMin, SubIntBase::kMin); }

int KivOmbBoundedInteger::CalcMaxValue() { return Narrow(SubIntBase::kMax, SubIntBase::kMax); }

int KivOmbBoundedInteger::CalcZeroValue() { return Narrow(0, 0); }

int KivOmbBoundedInteger::CalcOneValue() { return Narrow(1, 1); }

void KivOmbBoundedInteger::PrintNumber(Kivostrstream& out, std::int32_t value) {
  if (value <= SubIntBase::kMin) {
    out << "Min";
  } else if (value >= SubIntBase::kMax) {
    out << "Max";
  } else {
    out << value;
  }
}

int KivOmbBoundedInteger::NarrowTo(const kiv::Hull& possible) {
  if (possible.IsEmpty()) {
    if (IsNil() != 0) return 0;
    SetNilValue();
    return 1;
  }
  return Narrow(SubIntBase::Clamp(possible.lower).GetValue(),
                SubIntBase::Clamp(possible.upper).GetValue());
}
