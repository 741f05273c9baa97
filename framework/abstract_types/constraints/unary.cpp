#include "framework/abstract_types/constraints/unary.h"

#include <cstdlib>

#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kA, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiNumberNegationConstraint> negation(
    "KivOmbiNumberNegationConstraint", kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiAbsoluteConstraint> absolute(
    "KivOmbiAbsoluteConstraint", kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiNextConstraint> next("KivOmbiNextConstraint",
                                                                      kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiSignumConstraint> signum("KivOmbiSignumConstraint",
                                                                          kArguments, 0, false);
const KivOmbiOperatorConstraintDescriptor<KivOmbiEqualConstraint> equal("KivOmbiEqualConstraint",
                                                                        kArguments, 0, true);

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiNumberNegationConstraint::sDescriptor = &negation;

KivOmbiNumberNegationConstraint::KivOmbiNumberNegationConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiNumberNegationConstraint::~KivOmbiNumberNegationConstraint() = default;

bool KivOmbiNumberNegationConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == -values[kA];
}

const KivOmbiObjectDescriptor* const KivOmbiAbsoluteConstraint::sDescriptor = &absolute;

KivOmbiAbsoluteConstraint::KivOmbiAbsoluteConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiAbsoluteConstraint::~KivOmbiAbsoluteConstraint() = default;

bool KivOmbiAbsoluteConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == std::llabs(values[kA]);
}

const KivOmbiObjectDescriptor* const KivOmbiNextConstraint::sDescriptor = &next;

KivOmbiNextConstraint::KivOmbiNextConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiNextConstraint::~KivOmbiNextConstraint() = default;

bool KivOmbiNextConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == values[kA] + 1;
}

const KivOmbiObjectDescriptor* const KivOmbiSignumConstraint::sDescriptor = &signum;

KivOmbiSignumConstraint::KivOmbiSignumConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiSignumConstraint::~KivOmbiSignumConstraint() = default;

bool KivOmbiSignumConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsSign(values[kZ], values[kA]);
}

const KivOmbiObjectDescriptor* const KivOmbiEqualConstraint::sDescriptor = &equal;

KivOmbiEqualConstraint::KivOmbiEqualConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiEqualConstraint::~KivOmbiEqualConstraint() = default;

bool KivOmbiEqualConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == values[kA];
}

std::int64_t KivOmbiEqualConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                            std::int64_t) {
  if (const auto result = kiv::Equate(environment, kA, kZ)) return result;
  return Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiEqualConstraint::GetCost() const { return kBinary; }
