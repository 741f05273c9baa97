#pragma once

#include "framework/abstract_types/any.h"

// A subdefinite value of an ordered type.
class KIV_EXPORT KivOmbiScalar : public KivOmbiAny {
 public:
  ~KivOmbiScalar() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char CastableIdent[];
  int IsDerivedFrom(const char* ident) const override;

  virtual int CalcLessValue(const KivOmbiScalar& x);
  virtual int CalcInverseLessValue(KivOmbiScalar& x) const;
  virtual int CalcNotLessValue(const KivOmbiScalar& x);
  virtual int CalcInverseNotLessValue(KivOmbiScalar& x) const;
  virtual int CalcIsLess(const KivOmbiScalar& x, KivOmbiBoolean& result) const;
  virtual int CalcNextValue(const KivOmbiScalar& x);
  virtual int CalcInverseNextValue(KivOmbiScalar& x) const;

 protected:
  KivOmbiScalar() = default;
  explicit KivOmbiScalar(KivStreamableInit init) : KivOmbiAny(init) {}
  KivOmbiScalar(const KivOmbiScalar&) = default;
  KivOmbiScalar& operator=(const KivOmbiScalar&) = default;
};
