#include <utility>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/ground_truth.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiAdditionConstraint> addition(
    "KivOmbiAdditionConstraint", kArguments, 0, true);

// z = x + x, as z = 2 * x.
KivOmbiFilterResult NarrowDouble(const KivOmbiObjectEnvironment& environment,
                                 const KivOmbiObjectDescriptor& carrier) {
  constexpr kiv::Hull kTwo{2, 2};
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ, kiv::Product(kiv::HullOf(environment, kX), kTwo),
          [&](KivOmbiInteger& z, const KivOmbiInteger& x) {
            return z.CalcProdValue(x, kiv::Constant(environment, carrier, 2));
          },
          kX)) {
    return result;
  }
  return kiv::NarrowByOperation(
      environment, carrier, kX,
      kiv::Factor(kiv::HullOf(environment, kX), kTwo, kiv::HullOf(environment, kZ)),
      [&](KivOmbiInteger& x, const KivOmbiInteger& z) {
        return z.CalcFirstInverseProdValue(x, kiv::Constant(environment, carrier, 2));
      },
      kZ);
}

KivOmbiFilterResult NarrowSum(const KivOmbiObjectEnvironment& environment,
                              const KivOmbiObjectDescriptor& carrier) {
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ,
          kiv::Sum(kiv::HullOf(environment, kX), kiv::HullOf(environment, kY)),
          [](KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y) {
            return z.CalcSumValue(x, y);
          },
          kX, kY)) {
    return result;
  }
  // The sum is symmetric, so that one inverse serves both terms.
  for (const auto& [term, other] : {std::pair{kX, kY}, std::pair{kY, kX}}) {
    if (const auto result = kiv::NarrowByOperation(
            environment, carrier, term,
            kiv::Difference(kiv::HullOf(environment, kZ), kiv::HullOf(environment, other)),
            [](KivOmbiInteger& x, const KivOmbiInteger& z, const KivOmbiInteger& y) {
              return z.CalcFirstInverseSumValue(x, y);
            },
            kZ, other)) {
      return result;
    }
  }
  return 0;
}

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           const KivOmbiObjectDescriptor& carrier) {
  // A term that equals the sum leaves 0 for the other one.
  if (environment.IsSame(kX, kZ)) return kiv::Assign(environment, kY, 0);
  if (environment.IsSame(kY, kZ)) return kiv::Assign(environment, kX, 0);
  return environment.IsSame(kX, kY) ? NarrowDouble(environment, carrier)
                                    : NarrowSum(environment, carrier);
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiAdditionConstraint::sDescriptor = &addition;

KivOmbiAdditionConstraint::KivOmbiAdditionConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiAdditionConstraint::~KivOmbiAdditionConstraint() = default;

std::int64_t KivOmbiAdditionConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                               std::int64_t) {
  const auto result = Narrow(environment, GetCarrier());
  return result != 0 ? result : Settle(environment);
}

bool KivOmbiAdditionConstraint::Holds(std::span<const std::int64_t> values) const {
  return kiv::ground_truth::IsSum(values[kX], values[kY], values[kZ]);
}
