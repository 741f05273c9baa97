#pragma once

#include <cstdint>

#include "framework/abstract_types/integer.h"
#include "framework/intervals/hull.h"

// What the kinds of integers have in common that narrow by bounds alone. All operators reason about
// the bounds of their operands, of whatever kinds; each kind says what it makes of new bounds of
// its own. An unbounded operand is no reason to leave a target unchanged: the absolute value of an
// unknown integer is 0 at least.
//
// An operation may leave values without a solution inside the bounds, and where an operand is known
// to have gaps; it never loses one that has a solution.
class KIV_EXPORT KivOmbBoundedInteger : public KivOmbiInteger {
 public:
  ~KivOmbBoundedInteger() override;

  int CalcMinValue() override;
  int CalcMaxValue() override;
  int CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y) override;
  int CalcMaxValue(const KivOmbiAny& x, const KivOmbiAny& y) override;
  int CalcFirstInverseMinValue(KivOmbiAny& x, const KivOmbiAny& y) const override;
  int CalcFirstInverseMaxValue(KivOmbiAny& x, const KivOmbiAny& y) const override;

  int CalcEqualValue(const KivOmbiAny& x) override;
  int CalcInverseEqualValue(KivOmbiAny& x) const override;
  int CalcLessOrEqualValue(const KivOmbiAny& x) override;
  int CalcInverseLessOrEqualValue(KivOmbiAny& x) const override;
  int CalcNotLessAndUnequalValue(const KivOmbiAny& x) override;
  int CalcInverseNotLessAndUnequalValue(KivOmbiAny& x) const override;
  int CalcLessValue(const KivOmbiScalar& x) override;
  int CalcInverseLessValue(KivOmbiScalar& x) const override;
  int CalcNotLessValue(const KivOmbiScalar& x) override;
  int CalcInverseNotLessValue(KivOmbiScalar& x) const override;

  int CalcNextValue(const KivOmbiScalar& x) override;
  int CalcInverseNextValue(KivOmbiScalar& x) const override;
  int CalcZeroValue() override;
  int CalcOneValue() override;
  int CalcAbsoluteValue(const KivOmbiNumber& x) override;
  int CalcInverseAbsoluteValue(KivOmbiNumber& x) const override;
  int CalcNegativeValue(const KivOmbiNumber& x) override;
  int CalcInverseNegativeValue(KivOmbiNumber& x) const override;
  int CalcSignumValue(KivOmbiInteger& s) const override;
  int CalcInverseSignumValue(const KivOmbiInteger& s) override;

  int CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  // The first inverse keeps what some real number, not always an integer, completes to a product.
  int CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseProdValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  // A modulus 0 has no remainder: it is passed over among others, and alone it makes the target
  // Nil.
  int CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const override;
  // The powers are those of PowerOf. Any as base or exponent, and a power of two values that is not
  // known, narrow nothing. The inverses narrow to the hull of what has a power in the receiver or
  // one that is not known, exactly; an Any receiver or exponent narrows nothing.
  int CalcPowerValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInversePowerValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcSecondInversePowerValue(const KivOmbiNumber& x, KivOmbiNumber& y) const override;

 protected:
  KivOmbBoundedInteger() = default;
  explicit KivOmbBoundedInteger(KivStreamableInit init) : KivOmbiInteger(init) {}
  KivOmbBoundedInteger(const KivOmbBoundedInteger&) = default;
  KivOmbBoundedInteger& operator=(const KivOmbBoundedInteger&) = default;

  // Narrows to [lower, upper], which may be empty or reach beyond the integers. Returns the result
  // code of an operation.
  virtual int Narrow(std::int64_t lower, std::int64_t upper) = 0;

  // "Min" and "Max" for the infinities, else the number.
  static void PrintNumber(Kivostrstream& out, std::int32_t value);

 private:
  // Narrows to a hull, the part of which beyond the integers is taken to their ends.
  int NarrowTo(const kiv::Hull& possible);
};
