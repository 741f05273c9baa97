#pragma once

#include "framework/abstract_types/constraints/absolute_values.h"
#include "framework/abstract_types/constraints/operator_constraint.h"

// The constraints of one operand.

// Arguments a, z: z = -a.
class KIV_EXPORT KivOmbiNumberNegationConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiNumberNegationConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiNumberNegationConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// Arguments a, z: z = |a|.
class KIV_EXPORT KivOmbiAbsoluteConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiAbsoluteConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiAbsoluteConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;

 private:
  kiv::AbsoluteValues values_;
};

// Arguments a, z: z = a + 1.
class KIV_EXPORT KivOmbiNextConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiNextConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiNextConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// Arguments a, z: a = sign(z).
class KIV_EXPORT KivOmbiSignumConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiSignumConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiSignumConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// Arguments a, z: z = a.
class KIV_EXPORT KivOmbiEqualConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiEqualConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiEqualConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};
