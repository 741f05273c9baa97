#pragma once

#include "framework/abstract_types/constraints/operator_constraint.h"

// The relations between l and r. Their arguments are l, r and, where anybody uses it, the value v
// of the relation: that of the operand written on the right, so that chains read as in mathematics.

// l = r. Serves every type that is equated with itself.
class KIV_EXPORT KivOmbiEqualTernaryConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiEqualTernaryConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiEqualTernaryConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// l <> r.
class KIV_EXPORT KivOmbiUnequalTernaryConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiUnequalTernaryConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiUnequalTernaryConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// r <= l.
class KIV_EXPORT KivOmbiLessOrEqualTernaryConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiLessOrEqualTernaryConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiLessOrEqualTernaryConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// r < l.
class KIV_EXPORT KivOmbiLessTernaryConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiLessTernaryConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiLessTernaryConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};
