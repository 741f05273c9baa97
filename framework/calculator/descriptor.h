#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "framework/base/export.h"
#include "framework/base/kiv_string.h"
#include "framework/calculator/domain_summary.h"
#include "framework/calculator/object.h"
#include "framework/intervals/sub_int_base.h"

// What the framework knows of a kind of object: its name in models, its place below other kinds,
// and how to size, construct and destroy its objects in memory of the framework.
class KIV_EXPORT KivOmbiObjectDescriptor : public KivOmbiBase {
 public:
  // `flags` is reserved and 0.
  KivOmbiObjectDescriptor(const KivString& name, const KivOmbiObjectDescriptor* parent, int flags);
  explicit KivOmbiObjectDescriptor(KivStreamableInit init);
  ~KivOmbiObjectDescriptor() override;

  static const char CastableIdent[];
  const char* CastableID() const override;
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  int IsDerivedFrom(const char* ident) const override;

  // A new object in `memory` of GetObjectSize() bytes, from `data` that the kind defines. Null when
  // the kind has no objects or `memory` is null.
  virtual KivOmbiObject* ConstructObjectFrom(void* memory, const void* data) const;
  // A new object in its default state: Any, for a domain.
  virtual KivOmbiObject* ConstructObject(void* memory) const;
  // Ends an object that a construction slot made; its memory stays the caller's.
  virtual void DestroyObject(KivOmbiObject* object) const;
  // Bytes of one object; 0 for a kind without objects.
  virtual std::int64_t GetObjectSize() const;
  // How many arguments an object of this kind takes from its network; 0 for a domain.
  virtual unsigned GetNumberOfArguments() const;
  // Bytes of the argument list that a network keeps for an object of this kind.
  virtual std::int64_t GetArgumentsSize() const;
  // 1 when an object of kind `actual` serves where this kind is asked for: when it is this kind or
  // stands below it.
  virtual int IsMatched(const KivOmbiObjectDescriptor* actual) const;
  virtual void PrintOn(Kivostrstream& out) const;

  // What a network needs of a domain kind to backtrack and to keep its summary.
  // Writes the state of `object` to the beginning of `room` unless it is longer than that; returns
  // how many bytes it takes.
  virtual std::size_t SaveState(const KivOmbiObject& object, std::span<std::byte> room) const;
  // Makes `object` what it was; 0 when there is no memory for it.
  virtual int RestoreState(KivOmbiObject& object, const void* state) const;
  // Puts `values`, ascending, which `object` lost as the network was told, back among those that it
  // has; 0 when there is no memory for them.
  virtual int Regain(KivOmbiObject& object, std::span<const std::int32_t> values) const;
  virtual KivOmbiDomainSummary Summarize(const KivOmbiObject& object) const;

  // The short ways to a domain of integers, which save the operands and the conversions of its
  // operations. A kind that offers none of them is used by its operations alone.
  // Whether a domain that holds values can lose any of them, and not only those at its bounds.
  virtual bool HoldsGaps() const;
  // The values of `object`, ascending, for a kind that lists them; valid until `object` is written.
  // None for a domain without values and for other kinds.
  virtual std::span<const SubIntBase> GetValues(const KivOmbiObject& object) const;
  // Narrows `object` to what lies between the bounds, both included; one of them may be an
  // infinity. The result code of an operation, or kNotOffered.
  static constexpr int kNotOffered = -1;
  virtual int KeepBetween(KivOmbiObject& object, std::int32_t lower, std::int32_t upper) const;
  // Removes `values`, ascending, from `object`. The result code of an operation, or kNotOffered.
  virtual int RemoveValues(KivOmbiObject& object, std::span<const std::int32_t> values) const;
  // Leaves `object`, whose values lie less than 64 apart, those whose bits are set in `word`, where
  // the first bit stands for its lower bound: some of its values, and not all. 1, or kNotOffered.
  virtual int KeepWord(KivOmbiObject& object, std::uint64_t word) const;

  const KivString& GetName() const noexcept { return name_; }
  const KivOmbiObjectDescriptor* GetParent() const noexcept { return parent_; }

 private:
  KivString name_;
  const KivOmbiObjectDescriptor* parent_ = nullptr;
};

// How an operator hands its written operands and its result to its constraint: the argument at
// which the first operand, the second operand and the result arrive.
struct KivOmbiArgumentOrder {
  static constexpr unsigned kNone = ~0u;
  unsigned left = 0;
  unsigned right = kNone;  // kNone for a unary operator
  unsigned result = 1;
};

// What is known of a class of constraints before one is made.
class KIV_EXPORT KivOmbiConstraintDescriptor : public KivOmbiObjectDescriptor {
 public:
  // `optional`: how many of the last `arguments` may be left out. `can_propagate`: whether the
  // class narrows its arguments; one that does not only tests the relation once all of them are
  // fixed.
  KivOmbiConstraintDescriptor(const KivString& name, unsigned arguments, unsigned optional,
                              bool can_propagate);

  unsigned GetOptionalArguments() const noexcept { return optional_; }
  bool CanPropagate() const noexcept { return can_propagate_; }
  unsigned GetNumberOfArguments() const override;
  std::int64_t GetArgumentsSize() const override;

 private:
  unsigned arguments_;
  unsigned optional_;
  bool can_propagate_;
};

// An operator over given kinds: one row of the vocabulary. Its name is the operator's symbol.
class KIV_EXPORT KivOmbiCompoundObjectDescriptor : public KivOmbiObjectDescriptor {
 public:
  // `kinds` in the order of the factory named `factory`; the last is the carrier. `operands` of
  // them are operands; `result` is the position of the result's kind.
  KivOmbiCompoundObjectDescriptor(const KivString& symbol, const char* factory,
                                  std::vector<const KivOmbiObjectDescriptor*> kinds,
                                  unsigned operands, unsigned result, KivOmbiArgumentOrder order,
                                  const KivOmbiObjectDescriptor* constraint);

  static const char CastableIdent[];
  const char* CastableID() const override;
  int IsDerivedFrom(const char* ident) const override;
  unsigned GetNumberOfArguments() const override;
  std::int64_t GetArgumentsSize() const override;
  void PrintOn(Kivostrstream& out) const override;

  const KivString& GetSymbol() const noexcept { return GetName(); }
  const char* GetFactory() const noexcept { return factory_; }
  const std::vector<const KivOmbiObjectDescriptor*>& GetKinds() const noexcept { return kinds_; }
  unsigned GetOperandCount() const noexcept { return operands_; }
  const KivOmbiObjectDescriptor* GetOperand(unsigned i) const { return kinds_[i]; }
  const KivOmbiObjectDescriptor* GetResult() const { return kinds_[result_]; }
  const KivOmbiObjectDescriptor* GetCarrier() const { return kinds_.back(); }
  const KivOmbiArgumentOrder& GetOrder() const noexcept { return order_; }
  // The constraint class that propagates the operator.
  const KivOmbiConstraintDescriptor* GetConstraint() const noexcept { return constraint_; }

 private:
  const char* factory_;
  std::vector<const KivOmbiObjectDescriptor*> kinds_;
  unsigned operands_;
  unsigned result_;
  KivOmbiArgumentOrder order_;
  const KivOmbiConstraintDescriptor* constraint_;
};
