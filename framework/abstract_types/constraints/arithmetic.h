#pragma once

#include "framework/abstract_types/constraints/operator_constraint.h"

// The constraints z = x op y over integers; their arguments are x, y, z.

class KIV_EXPORT KivOmbiAdditionConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiAdditionConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiAdditionConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// 0 / 0 admits every quotient.
class KIV_EXPORT KivOmbiMultiplicationConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiMultiplicationConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiMultiplicationConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// The power of the framework's integers: any base to the 0 is 1, a negative exponent leaves only
// the bases 1 and -1.
class KIV_EXPORT KivOmbiPowerConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiPowerConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiPowerConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

// Truncating, so with the sign of x; y is not 0.
class KIV_EXPORT KivOmbiRemainderConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiRemainderConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiRemainderConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  std::int64_t GetWakingEvents(unsigned index, unsigned arguments) const override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

class KIV_EXPORT KivOmbiMinimumConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiMinimumConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiMinimumConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};

class KIV_EXPORT KivOmbiMaximumConstraint final : public KivOmbiOperatorConstraint {
 public:
  static const KivOmbiObjectDescriptor* const sDescriptor;
  explicit KivOmbiMaximumConstraint(const KivOmbiCompoundObjectDescriptor* row);
  ~KivOmbiMaximumConstraint() override;

  std::int64_t Filter(const KivOmbiObjectEnvironment& environment, std::int64_t events) override;
  bool Holds(std::span<const std::int64_t> values) const override;
};
