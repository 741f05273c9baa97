#include "framework/abstract_types/constraints/unary.h"

#include <cstdlib>

#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kA, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiNumberNegationConstraint> negation(
    "KivOmbiNumberNegationConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiAbsoluteConstraint> absolute(
    "KivOmbiAbsoluteConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiNextConstraint> next("KivOmbiNextConstraint",
                                                                      kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiSignumConstraint> signum("KivOmbiSignumConstraint",
                                                                          kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiEqualConstraint> equal("KivOmbiEqualConstraint",
                                                                        kArguments, 0, true);

constexpr kiv::Hull kOne{1, 1};

KivOmbiFilterResult NarrowNegation(const KivOmbiObjectEnvironment& environment,
                                   const KivOmbiObjectDescriptor& carrier) {
  if (environment.IsSame(kA, kZ)) return kiv::Assign(environment, kA, 0);
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ, kiv::Negation(kiv::HullOf(environment, kA)),
          [](KivOmbiInteger& z, const KivOmbiInteger& a) { return z.CalcNegativeValue(a); }, kA)) {
    return result;
  }
  return kiv::NarrowByOperation(
      environment, carrier, kA, kiv::Negation(kiv::HullOf(environment, kZ)),
      [](KivOmbiInteger& a, const KivOmbiInteger& z) { return z.CalcInverseNegativeValue(a); }, kZ);
}

KivOmbiFilterResult NarrowAbsolute(const KivOmbiObjectEnvironment& environment,
                                   const KivOmbiObjectDescriptor& carrier) {
  if (environment.IsSame(kA, kZ)) return kiv::TightenLower(environment, kA, 0);
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ, kiv::Absolute(kiv::HullOf(environment, kA)),
          [](KivOmbiInteger& z, const KivOmbiInteger& a) { return z.CalcAbsoluteValue(a); }, kA)) {
    return result;
  }
  return kiv::NarrowByOperation(
      environment, carrier, kA,
      kiv::AbsoluteOperand(kiv::HullOf(environment, kA), kiv::HullOf(environment, kZ)),
      [](KivOmbiInteger& a, const KivOmbiInteger& z) { return z.CalcInverseAbsoluteValue(a); }, kZ);
}

KivOmbiFilterResult NarrowNext(const KivOmbiObjectEnvironment& environment,
                               const KivOmbiObjectDescriptor& carrier) {
  if (environment.IsSame(kA, kZ)) return kiv::Empty(environment, kA);
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ, kiv::Sum(kiv::HullOf(environment, kA), kOne),
          [](KivOmbiInteger& z, const KivOmbiInteger& a) { return z.CalcNextValue(a); }, kA)) {
    return result;
  }
  return kiv::NarrowByOperation(
      environment, carrier, kA, kiv::Difference(kiv::HullOf(environment, kZ), kOne),
      [](KivOmbiInteger& a, const KivOmbiInteger& z) { return z.CalcInverseNextValue(a); }, kZ);
}

// A kind may cut too much by a strict order, so that z is narrowed to the signs of a step by step.
KivOmbiFilterResult NarrowBySigns(const KivOmbiObjectEnvironment& environment) {
  const KivOmbiInteger& signs = environment.Integer(kA);
  const bool negative = signs.MayBe(-1);
  const bool zero = signs.MayBe(0);
  const bool positive = signs.MayBe(1);
  if (!negative && !zero && !positive) return kiv::Empty(environment, kA);
  if (zero && !negative && !positive) return kiv::Assign(environment, kZ, 0);
  if (!positive) {
    if (const auto result = kiv::TightenUpper(environment, kZ, zero ? 0 : -1)) return result;
  }
  if (!negative) {
    if (const auto result = kiv::TightenLower(environment, kZ, zero ? 0 : 1)) return result;
  }
  return zero ? 0 : kiv::RemoveValue(environment, kZ, 0);
}

KivOmbiFilterResult NarrowSignum(const KivOmbiObjectEnvironment& environment,
                                 const KivOmbiObjectDescriptor& carrier) {
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kA, kiv::Sign(kiv::HullOf(environment, kZ)),
          [](KivOmbiInteger& a, const KivOmbiInteger& z) { return z.CalcSignumValue(a); }, kZ)) {
    return result;
  }
  return NarrowBySigns(environment);
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiNumberNegationConstraint::sDescriptor = &negation;

KivOmbiNumberNegationConstraint::KivOmbiNumberNegationConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiNumberNegationConstraint::~KivOmbiNumberNegationConstraint() = default;

std::int64_t KivOmbiNumberNegationConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                     std::int64_t) {
  const auto result = NarrowNegation(environment, GetCarrier());
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiNumberNegationConstraint::GetCost() const { return kBinary; }

bool KivOmbiNumberNegationConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == -values[kA];
}

const KivOmbiObjectDescriptor* const KivOmbiAbsoluteConstraint::sDescriptor = &absolute;

KivOmbiAbsoluteConstraint::KivOmbiAbsoluteConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiAbsoluteConstraint::~KivOmbiAbsoluteConstraint() = default;

std::int64_t KivOmbiAbsoluteConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                               std::int64_t) {
  const bool by_values = GetCarrier().HoldsGaps() && kiv::AbsoluteValues::Suit(environment, kA, kZ);
  const auto result =
      by_values ? values_.Narrow(environment, kA, kZ) : NarrowAbsolute(environment, GetCarrier());
  if (result != 0) return result;
  return by_values ? Settle(environment) | kKivAtFixpoint : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiAbsoluteConstraint::GetCost() const { return kBinary; }

bool KivOmbiAbsoluteConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == std::llabs(values[kA]);
}

const KivOmbiObjectDescriptor* const KivOmbiNextConstraint::sDescriptor = &next;

KivOmbiNextConstraint::KivOmbiNextConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiNextConstraint::~KivOmbiNextConstraint() = default;

std::int64_t KivOmbiNextConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                           std::int64_t) {
  const auto result = NarrowNext(environment, GetCarrier());
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiNextConstraint::GetCost() const { return kBinary; }

bool KivOmbiNextConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == values[kA] + 1;
}

const KivOmbiObjectDescriptor* const KivOmbiSignumConstraint::sDescriptor = &signum;

KivOmbiSignumConstraint::KivOmbiSignumConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiSignumConstraint::~KivOmbiSignumConstraint() = default;

std::int64_t KivOmbiSignumConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                             std::int64_t) {
  const auto result = NarrowSignum(environment, GetCarrier());
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiSignumConstraint::GetCost() const { return kBinary; }

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
