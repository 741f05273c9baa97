#include "framework/numbers/bounds.h"

#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_integer.h"

namespace kiv {

namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

// No bound and whatever bound together are no bound; an exact infinity absorbs what is finite.
SubIntBase AddLower(std::int32_t a, std::int32_t b) {
  return a == kMin || b == kMin ? SubIntBase(kMin) : base_plus(a, b);
}

SubIntBase AddUpper(std::int32_t a, std::int32_t b) {
  return a == kMax || b == kMax ? SubIntBase(kMax) : base_plus(a, b);
}

int MakeNil(KivOmbiAny& target) {
  target.SetNilValue();
  return 1;
}

// The frame of the inverse order relations.
template <class Narrow>
int NarrowTarget(const KivOmbiInteger& known, KivOmbiAny& target, Narrow&& narrow) {
  if (target.IsNil() != 0) return 0;
  auto* integer = KivCast<KivOmbiInteger>(&target);
  return integer == nullptr || known.IsNil() != 0 ? MakeNil(target) : narrow(*integer);
}

}  // namespace

std::int64_t StrictUpperBound(const KivOmbiInteger& operand) {
  const std::int64_t upper = operand.GetUpperBound();
  return upper == kMax && operand.GetCardinality() != 1 ? upper : upper - 1;
}

std::int64_t StrictLowerBound(const KivOmbiInteger& operand) {
  const std::int64_t lower = operand.GetLowerBound();
  return lower == kMin && operand.GetCardinality() != 1 ? lower : lower + 1;
}

Bounds SumBounds(const KivOmbiInteger& x, const KivOmbiInteger& y) {
  return {AddLower(x.GetLowerBound(), y.GetLowerBound()),
          AddUpper(x.GetUpperBound(), y.GetUpperBound())};
}

Bounds DifferenceBounds(const KivOmbiInteger& z, const KivOmbiInteger& y) {
  return {AddLower(z.GetLowerBound(), -y.GetUpperBound()),
          AddUpper(z.GetUpperBound(), -y.GetLowerBound())};
}

const KivOmbiInteger* AsInteger(const KivOmbiAny& operand) {
  const auto* integer = KivCast<KivOmbiInteger>(&operand);
  return integer != nullptr && integer->IsNil() == 0 ? integer : nullptr;
}

int NarrowTargetAtLeast(const KivOmbiInteger& known, KivOmbiAny& target, std::int64_t bound) {
  return NarrowTarget(known, target, [&](KivOmbiInteger& integer) {
    if (bound <= kMin) return 0;
    if (bound > kMax) return MakeNil(target);
    return integer.CalcNotLessValue(KivOmbSingleInteger(SubIntBase::Clamp(bound)));
  });
}

int NarrowTargetAtMost(const KivOmbiInteger& known, KivOmbiAny& target, std::int64_t bound) {
  return NarrowTarget(known, target, [&](KivOmbiInteger& integer) {
    if (bound >= kMax) return 0;
    if (bound < kMin) return MakeNil(target);
    return integer.CalcLessOrEqualValue(KivOmbSingleInteger(SubIntBase::Clamp(bound)));
  });
}

void PrintNumber(Kivostrstream& out, std::int32_t value) {
  if (value <= kMin) {
    out << "Min";
  } else if (value >= kMax) {
    out << "Max";
  } else {
    out << value;
  }
}

int NarrowTerm(const KivOmbiInteger& z, KivOmbiNumber& x, const KivOmbiNumber& y) {
  if (x.IsNil() != 0) return 0;
  const KivOmbiInteger* other = AsInteger(y);
  if (other == nullptr || z.IsNil() != 0) return MakeNil(x);
  const Bounds bounds = DifferenceBounds(z, *other);
  return x.CalcEqualValue(KivOmbIntervalInteger(SubdefInt(bounds.lower, bounds.upper)));
}

}  // namespace kiv
