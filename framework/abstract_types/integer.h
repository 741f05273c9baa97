#pragma once

#include <cstdint>

#include "framework/abstract_types/number.h"

// A subdefinite integer. Bounds: Any has the two infinities of SubIntBase, Nil has them exchanged.
class KIV_EXPORT KivOmbiInteger : public KivOmbiNumber {
 public:
  ~KivOmbiInteger() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char CastableIdent[];
  int IsDerivedFrom(const char* ident) const override;

  // this <> x: removes x's value when x holds exactly one. An operand that is no integer makes the
  // target Nil.
  int CalcUnequalValue(const KivOmbiAny& x) override;
  int CalcInverseUnequalValue(KivOmbiAny& x) const override;
  // Narrow `result` to the truth of this = x, this <= x, this < x as far as the domains decide it.
  // Nil on either side makes `result` Nil; an operand that is no integer does so as well.
  int CalcIsEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const override;
  int CalcIsLessOrEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const override;
  int CalcIsLess(const KivOmbiScalar& x, KivOmbiBoolean& result) const override;

  // The domain becomes the one value.
  virtual void SetExactValue(std::int32_t value) = 0;
  // How the bound setters and the exact edits treat Any, Nil and inner values is each kind's own.
  virtual void SetLowerBound(std::int32_t bound) = 0;
  virtual void SetUpperBound(std::int32_t bound) = 0;
  virtual void InsertExactValue(std::int32_t value) = 0;
  // 1 when the value was removed.
  virtual int RemoveExactValue(std::int32_t value) = 0;
  virtual std::int32_t GetLowerBound() const = 0;
  virtual std::int32_t GetUpperBound() const = 0;
  // The least possible value above `value`, the greatest below it; where there is none, some number
  // that is not possible.
  virtual std::int32_t GetNextExactValue(std::int32_t value) const = 0;
  virtual std::int32_t GetPrevExactValue(std::int32_t value) const = 0;

  // Whether `value` is possible.
  bool MayBe(std::int32_t value) const;

 protected:
  KivOmbiInteger() = default;
  explicit KivOmbiInteger(KivStreamableInit init) : KivOmbiNumber(init) {}
  KivOmbiInteger(const KivOmbiInteger&) = default;
  KivOmbiInteger& operator=(const KivOmbiInteger&) = default;
};
