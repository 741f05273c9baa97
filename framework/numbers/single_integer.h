#pragma once

#include <cstdint>

#include "framework/calculator/domain_summary.h"
#include "framework/intervals/sub_int_base.h"
#include "framework/numbers/bounded_integer.h"

// One integer: a value, Any or Nil. It cannot hold a set: an operation that leaves it more than one
// value leaves it as it was.
class KIV_EXPORT KivOmbSingleInteger : public KivOmbBoundedInteger {
 public:
  // The least and the greatest integer, which stand for minus and plus infinity.
  static constexpr std::int32_t sNC_INT_MIN = SubIntBase::kMin;
  static constexpr std::int32_t sNC_INT_MAX = SubIntBase::kMax;

  KivOmbSingleInteger();  // Any
  KivOmbSingleInteger(SubIntBase value);
  explicit KivOmbSingleInteger(KivStreamableInit init);
  KivOmbSingleInteger(const KivOmbSingleInteger& other);
  KivOmbSingleInteger& operator=(const KivOmbSingleInteger& other);
  ~KivOmbSingleInteger() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char* const CastableIdent;
  static KivOmbSingleInteger* DynamicCast(KivOmbiBase* object);
  static const KivOmbSingleInteger* DynamicCast(const KivOmbiBase* object);
  static KivStreamable* Build(KivStreamable* object);

  KivOmbiDomainSummary Summarize() const;

  const char* CastableID() const override;
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  int IsDerivedFrom(const char* ident) const override;
  const KivOmbiObjectDescriptor* GetDescriptor() const override;
  void PrintOn(Kivostrstream& out) const override;
  void InputValue(Kivistrstream& in) override;

  int CheckAny() const noexcept { return value_.state == kAny; }
  int CheckNil() const noexcept { return value_.state == kNil; }
  // The value; 0 unless one is held.
  std::int32_t GetValue() const noexcept { return value_.number.GetValue(); }
  SubIntBase GetUnicalcValue() const noexcept { return value_.number; }
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
  // One value cannot be split in two: `other` receives it for the lower half and the two ends.
  void Bisect(KivOmbiObject& other, ValueSelection selection) override;

  // The value itself is asked for, so that gaps of the operand count.
  int CalcEqualValue(const KivOmbiAny& x) override;

  void SetExactValue(std::int32_t value) override;
  // A value beyond the bound becomes Nil; Any and Nil stay.
  void SetLowerBound(std::int32_t bound) override;
  void SetUpperBound(std::int32_t bound) override;
  // Nil takes the value; another value beside the one held makes the domain Any.
  void InsertExactValue(std::int32_t value) override;
  int RemoveExactValue(std::int32_t value) override;
  std::int32_t GetLowerBound() const override;
  std::int32_t GetUpperBound() const override;
  std::int32_t GetNextExactValue(std::int32_t value) const override;
  std::int32_t GetPrevExactValue(std::int32_t value) const override;

 private:
  template <class T>
  friend class KivOmbNumberDescriptor;
  enum State : std::int32_t { kNil, kValue, kAny };
  // The value is 0 unless the state is kValue.
  struct Value {
    State state = kAny;
    SubIntBase number;
    friend bool operator==(const Value&, const Value&) = default;
  };

  // An Any domain only takes a single value.
  int Narrow(std::int64_t lower, std::int64_t upper) override;
  int Become(Value value);

  Value value_;
};
