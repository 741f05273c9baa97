#include <array>
#include <utility>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/bilinear_values.h"
#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/hull_narrowing.h"
#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/abstract_types/constraints/power_narrowing.h"

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiMultiplicationConstraint> multiplication(
    "KivOmbiMultiplicationConstraint", kArguments, 0, true);

KivOmbiFilterResult NarrowProduct(const KivOmbiObjectEnvironment& environment,
                                  const KivOmbiObjectDescriptor& carrier) {
  const auto settle = [](std::array<kiv::Hull, kArguments>& hulls) {
    auto& [z, x, y] = hulls;
    kiv::SettleProduct(x, y, z);
  };
  if (const auto result =
          kiv::NarrowHulls(environment, std::array<unsigned, kArguments>{kZ, kX, kY}, settle)) {
    return result;
  }
  if (!carrier.HoldsGaps() || environment.AllFixed()) return kKivAtFixpoint;
  if (const auto result = kiv::NarrowBilinear(environment, kX, kY, kZ, {.of_product = 1})) {
    return *result != 0 ? *result : kKivAtFixpoint;
  }
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ,
          kiv::Product(kiv::HullOf(environment, kX), kiv::HullOf(environment, kY)),
          [](KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y) {
            return z.CalcProdValue(x, y);
          },
          kX, kY)) {
    return result;
  }
  // The product is symmetric, so that one inverse serves both factors.
  for (const auto& [factor, other] : {std::pair{kX, kY}, std::pair{kY, kX}}) {
    if (const auto result = kiv::NarrowByOperation(
            environment, carrier, factor,
            kiv::Factor(kiv::HullOf(environment, factor), kiv::HullOf(environment, other),
                        kiv::HullOf(environment, kZ)),
            [](KivOmbiInteger& x, const KivOmbiInteger& z, const KivOmbiInteger& y) {
              return z.CalcFirstInverseProdValue(x, y);
            },
            kZ, other)) {
      return result;
    }
  }
  return 0;
}

// factor = factor * other: one of factor = 0 and other = 1 holds.
KivOmbiFilterResult NarrowUnit(const KivOmbiObjectEnvironment& environment, unsigned factor,
                               unsigned other) {
  if (!environment.Integer(factor).MayBe(0)) return kiv::Assign(environment, other, 1);
  if (!environment.Integer(other).MayBe(1)) return kiv::Assign(environment, factor, 0);
  return 0;
}

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           const KivOmbiObjectDescriptor& carrier) {
  if (environment.IsSame(kX, kZ)) return NarrowUnit(environment, kX, kY);
  if (environment.IsSame(kY, kZ)) return NarrowUnit(environment, kY, kX);
  return environment.IsSame(kX, kY) ? kiv::NarrowFixedPower(environment, carrier, kX, 2, kZ)
                                    : NarrowProduct(environment, carrier);
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiMultiplicationConstraint::sDescriptor = &multiplication;

KivOmbiMultiplicationConstraint::KivOmbiMultiplicationConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiMultiplicationConstraint::~KivOmbiMultiplicationConstraint() = default;

std::int64_t KivOmbiMultiplicationConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                     std::int64_t) {
  const auto result = Narrow(environment, GetCarrier());
  return kiv::IsEnd(result) ? result : result | Settle(environment);
}

bool KivOmbiMultiplicationConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsProduct(values[kX], values[kY], values[kZ]);
}
