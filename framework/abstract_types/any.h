#pragma once

#include <cstdint>
#include <span>

#include "framework/base/export.h"
#include "framework/calculator/network.h"
#include "framework/calculator/object.h"

class KivOmbiBoolean;

// A subdefinite value of any type: the set of values still possible, from Any (nothing is known)
// down to Nil (no value is possible).
//
// Every Calc operation narrows one domain, its target: the receiver of a forward operation, the
// non-const operand of an inverse one. It returns 0 when the target was left as it was and 1 when
// it was narrowed or made Nil. An operation that a kind does not implement narrows nothing and
// returns 0.
class KIV_EXPORT KivOmbiAny : public KivOmbiObject {
 public:
  // The part that Bisect hands over.
  enum ValueSelection : int { kLowerHalf = 0, kUpperHalf = 1, kSmallest = 2, kGreatest = 3 };

  ~KivOmbiAny() override;

  static const KivOmbiObjectDescriptor* const sDescriptor;
  static const char CastableIdent[];
  int IsDerivedFrom(const char* ident) const override;

  // Reads a value in text form. A failure shows in the stream's state. The type itself reads
  // nothing.
  virtual void InputValue(Kivistrstream& in);

  // Replaces this domain by the conversion of `x`.
  virtual void Assign(const KivOmbiAny& x) = 0;
  virtual void SetNilValue() = 0;
  virtual void SetUndefinedValue() = 0;
  virtual int IsNil() const = 0;
  // 1 when the domain is Any.
  virtual int IsUndefined() const = 0;
  // 1 when the two domains may have a value in common.
  virtual int IsIntersected(const KivOmbiAny& x) const = 0;
  virtual void Intersect(const KivOmbiAny& x) = 0;
  virtual void Unite(const KivOmbiAny& x) = 0;
  // How many values are possible; all bits set when that cannot be told.
  virtual std::uint32_t GetCardinality() const = 0;
  // How much is left open: the cardinality as a number, 0 for a fixed or empty domain.
  virtual double GetWidth() const;
  // GetWidth() in units of `unit`; the plain width when `unit` is not positive.
  virtual double GetRelativeWidth(double unit) const;
  // Moves the selected part of this domain's values into `other`, a domain of the same kind, and
  // keeps the rest.
  virtual void Bisect(KivOmbiObject& other, ValueSelection selection);

  virtual int CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y);
  virtual int CalcMinValue();
  virtual int CalcMaxValue(const KivOmbiAny& x, const KivOmbiAny& y);
  virtual int CalcMaxValue();
  virtual int CalcEqualValue(const KivOmbiAny& x);
  virtual int CalcInverseEqualValue(KivOmbiAny& x) const;
  virtual int CalcUnequalValue(const KivOmbiAny& x);
  virtual int CalcInverseUnequalValue(KivOmbiAny& x) const;
  virtual int CalcIsEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const;
  virtual int CalcLessOrEqualValue(const KivOmbiAny& x);
  virtual int CalcInverseLessOrEqualValue(KivOmbiAny& x) const;
  virtual int CalcNotLessAndUnequalValue(const KivOmbiAny& x);
  virtual int CalcInverseNotLessAndUnequalValue(KivOmbiAny& x) const;
  virtual int CalcIsLessOrEqual(const KivOmbiAny& x, KivOmbiBoolean& result) const;
  virtual int CalcFirstInverseMinValue(KivOmbiAny& x, const KivOmbiAny& y) const;
  virtual int CalcFirstInverseMaxValue(KivOmbiAny& x, const KivOmbiAny& y) const;

  // Makes this domain the one of variable `variable` of `network`, which is told before each write.
  void SetOwner(KivOmbiNetwork* network, std::uint32_t variable) noexcept {
    network_ = network;
    variable_ = variable;
  }

 protected:
  KivOmbiAny() = default;
  explicit KivOmbiAny(KivStreamableInit init) : KivOmbiObject(init) {}
  // A copy has no owner, and an assignment does not change whose domain this is.
  KivOmbiAny(const KivOmbiAny&) : KivOmbiObject() {}
  KivOmbiAny& operator=(const KivOmbiAny&) { return *this; }

  // Whether this is the domain of a variable and no temporary.
  bool HasOwner() const noexcept { return network_ != nullptr; }

  // A kind calls this before every write to its value, so that the network can save the domain
  // before the first write of a level. Costs one test for a domain without an owner.
  void WillChange() {
    if (network_ != nullptr) network_->WillChange(variable_);
  }
  // Instead of that before a write that takes `values`, ascending, from the domain and leaves the
  // rest as it is; a kind that calls this can Regain() them.
  void WillLose(std::span<const std::int32_t> values) {
    if (network_ != nullptr) network_->WillLose(variable_, values);
  }

 private:
  KivOmbiNetwork* network_ = nullptr;
  std::uint32_t variable_ = 0;
};
