#pragma once

#include "framework/abstract_types/any.h"

// A subdefinite truth value. Any holds both values.
class KIV_EXPORT KivOmbiBoolean : public KivOmbiAny {
 public:
  ~KivOmbiBoolean() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char CastableIdent[];
  int IsDerivedFrom(const char* ident) const override;

  // Intersects the domain with the one value; the result code of a Calc operation.
  virtual int CalcTruthValue(bool value) = 0;
  // 1 when the value is still possible.
  virtual int CanBe(bool value) const = 0;

 protected:
  KivOmbiBoolean() = default;
  explicit KivOmbiBoolean(KivStreamableInit init) : KivOmbiAny(init) {}
  KivOmbiBoolean(const KivOmbiBoolean&) = default;
  KivOmbiBoolean& operator=(const KivOmbiBoolean&) = default;
};
