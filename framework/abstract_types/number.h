#pragma once

#include "framework/abstract_types/scalar.h"

class KivOmbiInteger;

// A subdefinite number. In the binary operations the receiver of an inverse is the result z of
// z = x op y; the first inverse narrows x, the second y.
class KIV_EXPORT KivOmbiNumber : public KivOmbiScalar {
 public:
  ~KivOmbiNumber() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char CastableIdent[];
  int IsDerivedFrom(const char* ident) const override;

  virtual int CalcZeroValue();
  virtual int CalcOneValue();
  virtual int CalcAbsoluteValue(const KivOmbiNumber& x);
  virtual int CalcInverseAbsoluteValue(KivOmbiNumber& x) const;
  virtual int CalcNegativeValue(const KivOmbiNumber& x);
  virtual int CalcInverseNegativeValue(KivOmbiNumber& x) const;
  // The receiver is x of s = sign(x): the first narrows s, the second x.
  virtual int CalcSignumValue(KivOmbiInteger& s) const;
  virtual int CalcInverseSignumValue(const KivOmbiInteger& s);
  virtual int CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y);
  virtual int CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const;
  virtual int CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y);
  virtual int CalcFirstInverseProdValue(KivOmbiNumber& x, const KivOmbiNumber& y) const;
  virtual int CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y);
  virtual int CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const;
  virtual int CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const;
  virtual int CalcPowerValue(const KivOmbiNumber& x, const KivOmbiNumber& y);
  virtual int CalcFirstInversePowerValue(KivOmbiNumber& x, const KivOmbiNumber& y) const;
  virtual int CalcSecondInversePowerValue(const KivOmbiNumber& x, KivOmbiNumber& y) const;

 protected:
  KivOmbiNumber() = default;
  explicit KivOmbiNumber(KivStreamableInit init) : KivOmbiScalar(init) {}
  KivOmbiNumber(const KivOmbiNumber&) = default;
  KivOmbiNumber& operator=(const KivOmbiNumber&) = default;
};
