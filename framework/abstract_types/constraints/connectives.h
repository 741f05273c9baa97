#pragma once

#include "framework/abstract_types/constraints/operator_constraint.h"

// The connectives between truth values: arguments x, y, t, all booleans, where t is true if and
// only if the connective holds between x and y. They are domain consistent, also where one variable
// stands for several arguments, and run in constant time.

// t if and only if x and y.
class KIV_EXPORT KivOmbiConjunctionConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiConjunctionConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiConjunctionConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// t if and only if x or y, or both.
class KIV_EXPORT KivOmbiDisjunctionConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiDisjunctionConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiDisjunctionConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// t if and only if x is false or y is true.
class KIV_EXPORT KivOmbiImplicationConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiImplicationConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiImplicationConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// t if and only if exactly one of x and y.
class KIV_EXPORT KivOmbiExclusiveOrConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiExclusiveOrConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiExclusiveOrConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// Arguments a, t: t if and only if not a.
class KIV_EXPORT KivOmbiBooleanNegationConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiBooleanNegationConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiBooleanNegationConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  Cost GetCost() const override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};
