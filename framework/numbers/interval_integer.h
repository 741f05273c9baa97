#pragma once

#include <cstdint>

#include "framework/calculator/domain_summary.h"
#include "framework/intervals/subdef_int.h"
#include "framework/numbers/bounded_integer.h"

// A closed interval of integers. The widest one, between the two infinities, is Any; the empty one
// is Nil.
class KIV_EXPORT KivOmbIntervalInteger : public KivOmbBoundedInteger {
 public:
  KivOmbIntervalInteger();  // Any
  KivOmbIntervalInteger(const SubdefInt& interval);
  explicit KivOmbIntervalInteger(KivStreamableInit init);
  KivOmbIntervalInteger(const KivOmbIntervalInteger& other);
  KivOmbIntervalInteger& operator=(const KivOmbIntervalInteger& other);
  ~KivOmbIntervalInteger() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char* const CastableIdent;
  static KivOmbIntervalInteger* DynamicCast(KivOmbiBase* object);
  static const KivOmbIntervalInteger* DynamicCast(const KivOmbiBase* object);
  static KivStreamable* Build(KivStreamable* object);

  KivOmbiDomainSummary Summarize() const;

  const char* CastableID() const override;
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  int IsDerivedFrom(const char* ident) const override;
  const KivOmbiObjectDescriptor* GetDescriptor() const override;
  void PrintOn(Kivostrstream& out) const override;
  void InputValue(Kivistrstream& in) override;

  int CheckAny() const noexcept;
  int CheckNil() const noexcept;
  void Any();
  // Makes the domain Nil; returns 1.
  int Nil();
  // Narrows to the common part; the result code of a Calc operation. An empty operand or an empty
  // common part gives Nil.
  int Intersect(const SubdefInt& interval);

  void Assign(const KivOmbiAny& x) override;
  void SetNilValue() override;
  void SetUndefinedValue() override;
  int IsNil() const override;
  int IsUndefined() const override;
  int IsIntersected(const KivOmbiAny& x) const override;
  void Intersect(const KivOmbiAny& x) override;
  // The hull of both.
  void Unite(const KivOmbiAny& x) override;
  std::uint32_t GetCardinality() const override;
  // The lower half ends at the floor of the middle of the bounds.
  void Bisect(KivOmbiObject& other, ValueSelection selection) override;

  void SetExactValue(std::int32_t value) override;
  // Narrow this side of the interval; Nil stays.
  void SetLowerBound(std::int32_t bound) override;
  void SetUpperBound(std::int32_t bound) override;
  // The hull with the value.
  void InsertExactValue(std::int32_t value) override;
  // Only a bound can be removed.
  int RemoveExactValue(std::int32_t value) override;
  std::int32_t GetLowerBound() const override;
  std::int32_t GetUpperBound() const override;
  std::int32_t GetNextExactValue(std::int32_t value) const override;
  std::int32_t GetPrevExactValue(std::int32_t value) const override;

 private:
  template <class T>
  friend class KivOmbNumberDescriptor;
  struct Value {
    SubIntBase lower;
    SubIntBase upper;
    friend bool operator==(const Value&, const Value&) = default;
  };
  static constexpr Value kAny{SubIntBase::kMin, SubIntBase::kMax};
  static constexpr Value kNil{SubIntBase::kMax, SubIntBase::kMin};

  static Value ValueOf(const SubdefInt& interval);
  // What InputValue reads.
  static Value ReadValue(Kivistrstream& in);
  int Narrow(std::int64_t lower, std::int64_t upper) override;
  int Become(Value value);

  Value value_ = kAny;
};
