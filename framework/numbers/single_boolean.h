#pragma once

#include <cstdint>

#include "framework/abstract_types/boolean.h"
#include "framework/calculator/domain_summary.h"

// One truth value: true, false, Any (either) or Nil (neither).
class KIV_EXPORT KivOmbSingleBoolean : public KivOmbiBoolean {
 public:
  KivOmbSingleBoolean();  // Any
  explicit KivOmbSingleBoolean(bool value);
  explicit KivOmbSingleBoolean(KivStreamableInit init);
  KivOmbSingleBoolean(const KivOmbSingleBoolean& other);
  KivOmbSingleBoolean& operator=(const KivOmbSingleBoolean& other);
  ~KivOmbSingleBoolean() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char* const CastableIdent;
  static KivOmbSingleBoolean* DynamicCast(KivOmbiBase* object);
  static const KivOmbSingleBoolean* DynamicCast(const KivOmbiBase* object);
  static KivStreamable* Build(KivStreamable* object);

  KivOmbiDomainSummary Summarize() const;

  const char* CastableID() const override;
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  int IsDerivedFrom(const char* ident) const override;
  const KivOmbiObjectDescriptor* GetDescriptor() const override;
  void PrintOn(Kivostrstream& out) const override;
  void InputValue(Kivistrstream& in) override;

  int CheckAny() const noexcept { return value_ == kBoth; }
  int CheckNil() const noexcept { return value_ == kNeither; }
  void Any();
  // Makes the domain Nil; returns 1.
  int Nil();

  void Assign(const KivOmbiAny& x) override;
  void SetNilValue() override;
  void SetUndefinedValue() override;
  int IsNil() const override;
  int IsUndefined() const override;
  int IsIntersected(const KivOmbiAny& x) const override;
  void Intersect(const KivOmbiAny& x) override;
  void Unite(const KivOmbiAny& x) override;
  std::uint32_t GetCardinality() const override;
  // False is the lower half of Any, true the upper one.
  void Bisect(KivOmbiObject& other, ValueSelection selection) override;

  int CalcEqualValue(const KivOmbiAny& x) override;
  int CalcInverseEqualValue(KivOmbiAny& x) const override;
  int CalcUnequalValue(const KivOmbiAny& x) override;
  int CalcInverseUnequalValue(KivOmbiAny& x) const override;
  // Nil on either side, or an operand that is no boolean, makes `result` Nil.
  int CalcIsEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const override;

  int CalcTruthValue(bool value) override;
  int CanBe(bool value) const override;

 private:
  template <class T>
  friend class KivOmbNumberDescriptor;
  // Which values are possible, a bit each.
  using Value = std::uint32_t;
  static constexpr Value kNeither = 0;
  static constexpr Value kFalse = 1;
  static constexpr Value kTrue = 2;
  static constexpr Value kBoth = 3;

  // The values of an operand; what is no boolean has none.
  static Value ValueOf(const KivOmbiAny& x);
  // What InputValue reads.
  static Value ReadValue(Kivistrstream& in);
  int Narrow(Value possible);
  int Become(Value value);

  Value value_ = kBoth;
};
