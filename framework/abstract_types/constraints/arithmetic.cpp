#include "framework/abstract_types/constraints/arithmetic.h"

#include <algorithm>
#include <utility>

#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiAdditionConstraint> addition(
    "KivOmbiAdditionConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiMultiplicationConstraint> multiplication(
    "KivOmbiMultiplicationConstraint", kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiPowerConstraint> power("KivOmbiPowerConstraint",
                                                                        kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiRemainderConstraint> remainder(
    "KivOmbiRemainderConstraint", kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiMinimumConstraint> minimum(
    "KivOmbiMinimumConstraint", kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiMaximumConstraint> maximum(
    "KivOmbiMaximumConstraint", kArguments, 0, false);

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiAdditionConstraint::sDescriptor = &addition;

KivOmbiAdditionConstraint::KivOmbiAdditionConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiAdditionConstraint::~KivOmbiAdditionConstraint() = default;

std::int64_t KivOmbiAdditionConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                               std::int64_t) {
  const auto hull = [&](unsigned i) { return kiv::HullOf(environment.Summary(i)); };
  if (const auto result = kiv::NarrowByOperation(
          environment, GetCarrier(), kZ, kX, kY, kiv::Sum(hull(kX), hull(kY)),
          [](KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y) {
            return z.CalcSumValue(x, y);
          })) {
    return result;
  }
  // The sum is symmetric, so that one inverse serves both terms.
  for (const auto& [term, other] : {std::pair{kX, kY}, std::pair{kY, kX}}) {
    if (const auto result = kiv::NarrowByOperation(
            environment, GetCarrier(), term, kZ, other, kiv::Difference(hull(kZ), hull(other)),
            [](KivOmbiInteger& x, const KivOmbiInteger& z, const KivOmbiInteger& y) {
              return z.CalcFirstInverseSumValue(x, y);
            })) {
      return result;
    }
  }
  return Settle(environment);
}

bool KivOmbiAdditionConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsSum(values[kX], values[kY], values[kZ]);
}

const KivOmbiObjectDescriptor* const KivOmbiMultiplicationConstraint::sDescriptor = &multiplication;

KivOmbiMultiplicationConstraint::KivOmbiMultiplicationConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiMultiplicationConstraint::~KivOmbiMultiplicationConstraint() = default;

bool KivOmbiMultiplicationConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsProduct(values[kX], values[kY], values[kZ]);
}

const KivOmbiObjectDescriptor* const KivOmbiPowerConstraint::sDescriptor = &power;

KivOmbiPowerConstraint::KivOmbiPowerConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiPowerConstraint::~KivOmbiPowerConstraint() = default;

bool KivOmbiPowerConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsPower(values[kX], values[kY], values[kZ]);
}

const KivOmbiObjectDescriptor* const KivOmbiRemainderConstraint::sDescriptor = &remainder;

KivOmbiRemainderConstraint::KivOmbiRemainderConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiRemainderConstraint::~KivOmbiRemainderConstraint() = default;

bool KivOmbiRemainderConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsRemainder(values[kX], values[kY], values[kZ]);
}

const KivOmbiObjectDescriptor* const KivOmbiMinimumConstraint::sDescriptor = &minimum;

KivOmbiMinimumConstraint::KivOmbiMinimumConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiMinimumConstraint::~KivOmbiMinimumConstraint() = default;

bool KivOmbiMinimumConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == std::min(values[kX], values[kY]);
}

const KivOmbiObjectDescriptor* const KivOmbiMaximumConstraint::sDescriptor = &maximum;

KivOmbiMaximumConstraint::KivOmbiMaximumConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiMaximumConstraint::~KivOmbiMaximumConstraint() = default;

bool KivOmbiMaximumConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == std::max(values[kX], values[kY]);
}
