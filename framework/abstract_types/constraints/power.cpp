#include <array>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/hull_narrowing.h"
#include "framework/abstract_types/constraints/narrowing.h"
#include "framework/abstract_types/constraints/power_narrowing.h"

namespace kiv {

KivOmbiFilterResult NarrowFixedPower(const KivOmbiObjectEnvironment& environment,
                                     const KivOmbiObjectDescriptor& carrier, unsigned x,
                                     std::int32_t exponent, unsigned z) {
  const Hull exponents{exponent, exponent};
  const auto settle = [&](std::array<Hull, 2>& hulls) {
    auto& [power, base] = hulls;
    SettlePower(base, exponent, power);
  };
  if (const auto result = NarrowHulls(environment, std::array{z, x}, settle)) return result;
  if (!carrier.HoldsGaps()) return kKivAtFixpoint;
  if (const auto result = NarrowByOperation(
          environment, carrier, z, Power(HullOf(environment, x), exponents),
          [&](KivOmbiInteger& power, const KivOmbiInteger& base) {
            return power.CalcPowerValue(base, Constant(environment, carrier, exponent));
          },
          x)) {
    return result;
  }
  return NarrowByOperation(
      environment, carrier, x, Base(HullOf(environment, x), exponents, HullOf(environment, z)),
      [&](KivOmbiInteger& base, const KivOmbiInteger& power) {
        return power.CalcFirstInversePowerValue(base, Constant(environment, carrier, exponent));
      },
      z);
}

}  // namespace kiv

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiPowerConstraint> power("KivOmbiPowerConstraint",
                                                                        kArguments, 0, true);

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           const KivOmbiObjectDescriptor& carrier) {
  if (const auto& y = environment.Summary(kY); y.IsFixed() && y.lower > 0) {
    return kiv::NarrowFixedPower(environment, carrier, kX, y.lower, kZ);
  }
  const auto hull = [&](unsigned i) { return kiv::HullOf(environment, i); };
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ, kiv::Power(hull(kX), hull(kY)),
          [](KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y) {
            return z.CalcPowerValue(x, y);
          },
          kX, kY)) {
    return result;
  }
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kY, kiv::Exponent(hull(kX), hull(kY), hull(kZ)),
          [](KivOmbiInteger& y, const KivOmbiInteger& z, const KivOmbiInteger& x) {
            return z.CalcSecondInversePowerValue(x, y);
          },
          kZ, kX)) {
    return result;
  }
  // Every base has the same power for the exponent 0, and a kind may keep only the ends of the
  // bases that it finds; so bases are looked at one by one only where that exponent is excluded.
  const kiv::Hull bases = kiv::Base(hull(kX), hull(kY), hull(kZ));
  if (environment.Integer(kY).MayBe(0)) return kiv::NarrowToHull(environment, kX, bases);
  return kiv::NarrowByOperation(
      environment, carrier, kX, bases,
      [](KivOmbiInteger& x, const KivOmbiInteger& z, const KivOmbiInteger& y) {
        return z.CalcFirstInversePowerValue(x, y);
      },
      kZ, kY);
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiPowerConstraint::sDescriptor = &power;

KivOmbiPowerConstraint::KivOmbiPowerConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiPowerConstraint::~KivOmbiPowerConstraint() = default;

std::int64_t KivOmbiPowerConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                            std::int64_t) {
  const auto result = Narrow(environment, GetCarrier());
  return kiv::IsEnd(result) ? result : result | Settle(environment);
}

bool KivOmbiPowerConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsPower(values[kX], values[kY], values[kZ]);
}
