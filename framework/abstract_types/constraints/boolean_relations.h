#pragma once

#include "framework/abstract_types/constraints/operator_constraint.h"

// The relations as truth values: arguments l, r, t, where the boolean t is true if and only if the
// relation holds between l and r. They assert nothing until t is known.

// t if and only if l = r; both integers or both booleans.
class KIV_EXPORT KivOmbiBooleanEqualConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiBooleanEqualConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiBooleanEqualConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// t if and only if r < l.
class KIV_EXPORT KivOmbiBooleanLessConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiBooleanLessConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiBooleanLessConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// t if and only if r <= l.
class KIV_EXPORT KivOmbiBooleanLessOrEqualConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiBooleanLessOrEqualConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiBooleanLessOrEqualConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};
