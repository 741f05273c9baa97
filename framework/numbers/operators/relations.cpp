// Equality and order. A strict bound is the weak one of the neighbouring integer.

#include "framework/intervals/sub_int_base.h"
#include "framework/numbers/bounded_integer.h"
#include "framework/numbers/operands.h"

namespace {

constexpr std::int32_t kMin = SubIntBase::kMin;
constexpr std::int32_t kMax = SubIntBase::kMax;

// What is less than some value of `x`, and greater. The bound of x is no bound when it is infinite,
// unless the infinity is the one value of x.
kiv::Hull Below(const KivOmbiInteger& x) {
  const std::int64_t upper = x.GetUpperBound();
  return {kMin, upper == kMax && x.GetCardinality() != 1 ? upper : upper - 1};
}

kiv::Hull Above(const KivOmbiInteger& x) {
  const std::int64_t lower = x.GetLowerBound();
  return {lower == kMin && x.GetCardinality() != 1 ? lower : lower + 1, kMax};
}

kiv::Hull AtMost(const KivOmbiInteger& x) { return {kMin, x.GetUpperBound()}; }
kiv::Hull AtLeast(const KivOmbiInteger& x) { return {x.GetLowerBound(), kMax}; }

}  // namespace

int KivOmbBoundedInteger::CalcEqualValue(const KivOmbiAny& x) {
  return kiv::Forward(*this, x, [this](const KivOmbiInteger& operand) {
    return Narrow(operand.GetLowerBound(), operand.GetUpperBound());
  });
}

int KivOmbBoundedInteger::CalcInverseEqualValue(KivOmbiAny& x) const {
  return x.CalcEqualValue(*this);
}

int KivOmbBoundedInteger::CalcLessOrEqualValue(const KivOmbiAny& x) {
  return kiv::Forward(*this, x,
                      [this](const KivOmbiInteger& operand) { return NarrowTo(AtMost(operand)); });
}

int KivOmbBoundedInteger::CalcInverseLessOrEqualValue(KivOmbiAny& x) const {
  return kiv::Inverse(*this, x, [this](const KivOmbiInteger&) { return AtLeast(*this); });
}

int KivOmbBoundedInteger::CalcNotLessAndUnequalValue(const KivOmbiAny& x) {
  return kiv::Forward(*this, x,
                      [this](const KivOmbiInteger& operand) { return NarrowTo(Above(operand)); });
}

int KivOmbBoundedInteger::CalcInverseNotLessAndUnequalValue(KivOmbiAny& x) const {
  return kiv::Inverse(*this, x, [this](const KivOmbiInteger&) { return Below(*this); });
}

int KivOmbBoundedInteger::CalcLessValue(const KivOmbiScalar& x) {
  return kiv::Forward(*this, x,
                      [this](const KivOmbiInteger& operand) { return NarrowTo(Below(operand)); });
}

int KivOmbBoundedInteger::CalcInverseLessValue(KivOmbiScalar& x) const {
  return kiv::Inverse(*this, x, [this](const KivOmbiInteger&) { return Above(*this); });
}

int KivOmbBoundedInteger::CalcNotLessValue(const KivOmbiScalar& x) {
  return kiv::Forward(*this, x,
                      [this](const KivOmbiInteger& operand) { return NarrowTo(AtLeast(operand)); });
}

int KivOmbBoundedInteger::CalcInverseNotLessValue(KivOmbiScalar& x) const {
  return kiv::Inverse(*this, x, [this](const KivOmbiInteger&) { return AtMost(*this); });
}
