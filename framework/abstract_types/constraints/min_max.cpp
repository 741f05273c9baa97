#include <algorithm>
#include <utility>

#include "framework/abstract_types/constraints/arithmetic.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kX, kY, kZ, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiMinimumConstraint> minimum(
    "KivOmbiMinimumConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiMaximumConstraint> maximum(
    "KivOmbiMaximumConstraint", kArguments, 0, true);

// What the two constraints differ in.
struct Extremum {
  kiv::Hull (*of_hulls)(const kiv::Hull& x, const kiv::Hull& y);
  kiv::Hull (*operand_hull)(const kiv::Hull& x, const kiv::Hull& y, const kiv::Hull& z);
  int (KivOmbiAny::*forward)(const KivOmbiAny& x, const KivOmbiAny& y);
  int (KivOmbiAny::*first_inverse)(KivOmbiAny& x, const KivOmbiAny& y) const;
  bool is_least;
};

constexpr Extremum kMinimum = {kiv::Minimum, kiv::MinimumOperand, &KivOmbiAny::CalcMinValue,
                               &KivOmbiAny::CalcFirstInverseMinValue, true};
constexpr Extremum kMaximum = {kiv::Maximum, kiv::MaximumOperand, &KivOmbiAny::CalcMaxValue,
                               &KivOmbiAny::CalcFirstInverseMaxValue, false};

// The operand `first` is the extremum of itself and `second`.
KivOmbiFilterResult NarrowOrder(const KivOmbiObjectEnvironment& environment,
                                const Extremum& extremum, unsigned first, unsigned second) {
  return extremum.is_least ? kiv::Order(environment, first, second, 0)
                           : kiv::Order(environment, second, first, 0);
}

// Whether no value of `other` can be the extremum z.
bool IsExcluded(const Extremum& extremum, const kiv::Hull& other, const kiv::Hull& z) {
  return extremum.is_least ? other.lower > z.upper : other.upper < z.lower;
}

KivOmbiFilterResult Narrow(const KivOmbiObjectEnvironment& environment,
                           const KivOmbiObjectDescriptor& carrier, const Extremum& extremum) {
  const auto hull = [&](unsigned i) { return kiv::HullOf(environment, i); };
  if (environment.IsSame(kX, kY)) return kiv::Equate(environment, kX, kZ);
  if (environment.IsSame(kX, kZ)) return NarrowOrder(environment, extremum, kX, kY);
  if (environment.IsSame(kY, kZ)) return NarrowOrder(environment, extremum, kY, kX);
  if (const auto result = kiv::NarrowByOperation(
          environment, carrier, kZ, extremum.of_hulls(hull(kX), hull(kY)),
          [&](KivOmbiInteger& z, const KivOmbiInteger& x, const KivOmbiInteger& y) {
            return (z.*extremum.forward)(x, y);
          },
          kX, kY)) {
    return result;
  }
  for (const auto& [operand, other] : {std::pair{kX, kY}, std::pair{kY, kX}}) {
    if (const auto result = kiv::NarrowByOperation(
            environment, carrier, operand,
            extremum.operand_hull(hull(operand), hull(other), hull(kZ)),
            [&](KivOmbiInteger& x, const KivOmbiInteger& z, const KivOmbiInteger& y) {
              return (z.*extremum.first_inverse)(x, y);
            },
            kZ, other)) {
      return result;
    }
    if (!IsExcluded(extremum, hull(other), hull(kZ))) continue;
    if (const auto result = kiv::Equate(environment, operand, kZ)) return result;
  }
  return 0;
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiMinimumConstraint::sDescriptor = &minimum;

KivOmbiMinimumConstraint::KivOmbiMinimumConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiMinimumConstraint::~KivOmbiMinimumConstraint() = default;

std::int64_t KivOmbiMinimumConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                              std::int64_t) {
  const auto result = Narrow(environment, GetCarrier(), kMinimum);
  return result != 0 ? result : Settle(environment);
}

bool KivOmbiMinimumConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == std::min(values[kX], values[kY]);
}

const KivOmbiObjectDescriptor* const KivOmbiMaximumConstraint::sDescriptor = &maximum;

KivOmbiMaximumConstraint::KivOmbiMaximumConstraint(const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiMaximumConstraint::~KivOmbiMaximumConstraint() = default;

std::int64_t KivOmbiMaximumConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                              std::int64_t) {
  const auto result = Narrow(environment, GetCarrier(), kMaximum);
  return result != 0 ? result : Settle(environment);
}

bool KivOmbiMaximumConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kZ] == std::max(values[kX], values[kY]);
}
