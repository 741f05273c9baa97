#include "framework/abstract_types/constraints/relations.h"

#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kLeft, kRight, kValue, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiEqualTernaryConstraint> equal(
    "KivOmbiEqualTernaryConstraint", kArguments, 1, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiUnequalTernaryConstraint> unequal(
    "KivOmbiUnequalTernaryConstraint", kArguments, 1, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiLessOrEqualTernaryConstraint> less_or_equal(
    "KivOmbiLessOrEqualTernaryConstraint", kArguments, 1, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiLessTernaryConstraint> less(
    "KivOmbiLessTernaryConstraint", kArguments, 1, true);

// `relation` is what narrowing l and r gave. Unless that ends the run, adds that v, where there is
// one, equals the operand written on the right; the relation alone is then not the whole of the
// constraint.
KivOmbiFilterResult WithValue(const KivOmbiObjectEnvironment& environment, unsigned written_right,
                              KivOmbiFilterResult relation) {
  const bool ends = (relation & (kKivContradiction | kKivOverflow)) != 0;
  if (ends || environment.Count() < kArguments) return relation;
  return kiv::Equate(environment, kValue, written_right);
}

bool HasValue(std::span<const std::int64_t> values, unsigned written_right) {
  return values.size() < kArguments || values[kValue] == values[written_right];
}

// `relation`: the events of l and r that matter to the relation. Where there is a v, every change
// of it and of the operand that it follows matters.
std::int64_t WakingEvents(unsigned written_right, unsigned index, unsigned arguments,
                          std::int64_t relation) {
  const bool follows = arguments == kArguments && (index == kValue || index == written_right);
  return follows ? kKivAnyEvent : relation;
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiEqualTernaryConstraint::sDescriptor = &equal;

KivOmbiEqualTernaryConstraint::KivOmbiEqualTernaryConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiEqualTernaryConstraint::~KivOmbiEqualTernaryConstraint() = default;

std::int64_t KivOmbiEqualTernaryConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                   std::int64_t) {
  const auto result =
      WithValue(environment, GetWrittenRight(), kiv::Equate(environment, kLeft, kRight));
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiEqualTernaryConstraint::GetCost() const { return kBinary; }

std::int64_t KivOmbiEqualTernaryConstraint::GetWakingEvents(unsigned index,
                                                            unsigned arguments) const {
  return WakingEvents(GetWrittenRight(), index, arguments, kKivAnyEvent);
}

bool KivOmbiEqualTernaryConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kLeft] == values[kRight] && HasValue(values, GetWrittenRight());
}

const KivOmbiObjectDescriptor* const KivOmbiUnequalTernaryConstraint::sDescriptor = &unequal;

KivOmbiUnequalTernaryConstraint::KivOmbiUnequalTernaryConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiUnequalTernaryConstraint::~KivOmbiUnequalTernaryConstraint() = default;

std::int64_t KivOmbiUnequalTernaryConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                     std::int64_t) {
  const auto result =
      WithValue(environment, GetWrittenRight(), kiv::Separate(environment, kLeft, kRight));
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiUnequalTernaryConstraint::GetCost() const { return kBinary; }

std::int64_t KivOmbiUnequalTernaryConstraint::GetWakingEvents(unsigned index,
                                                              unsigned arguments) const {
  return WakingEvents(GetWrittenRight(), index, arguments, kKivFixed | kKivBoundsOfGapless);
}

bool KivOmbiUnequalTernaryConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kLeft] != values[kRight] && HasValue(values, GetWrittenRight());
}

const KivOmbiObjectDescriptor* const KivOmbiLessOrEqualTernaryConstraint::sDescriptor =
    &less_or_equal;

KivOmbiLessOrEqualTernaryConstraint::KivOmbiLessOrEqualTernaryConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiLessOrEqualTernaryConstraint::~KivOmbiLessOrEqualTernaryConstraint() = default;

std::int64_t KivOmbiLessOrEqualTernaryConstraint::Filter(
    const KivOmbiObjectEnvironment& environment, std::int64_t) {
  const auto result =
      WithValue(environment, GetWrittenRight(), kiv::Order(environment, kRight, kLeft, 0));
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiLessOrEqualTernaryConstraint::GetCost() const { return kBinary; }

std::int64_t KivOmbiLessOrEqualTernaryConstraint::GetWakingEvents(unsigned index,
                                                                  unsigned arguments) const {
  return WakingEvents(GetWrittenRight(), index, arguments, kKivBounds);
}

bool KivOmbiLessOrEqualTernaryConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kRight] <= values[kLeft] && HasValue(values, GetWrittenRight());
}

const KivOmbiObjectDescriptor* const KivOmbiLessTernaryConstraint::sDescriptor = &less;

KivOmbiLessTernaryConstraint::KivOmbiLessTernaryConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiLessTernaryConstraint::~KivOmbiLessTernaryConstraint() = default;

std::int64_t KivOmbiLessTernaryConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                  std::int64_t) {
  const auto result =
      WithValue(environment, GetWrittenRight(), kiv::Order(environment, kRight, kLeft, 1));
  return result != 0 ? result : Settle(environment);
}

KivOmbiConstraint::Cost KivOmbiLessTernaryConstraint::GetCost() const { return kBinary; }

std::int64_t KivOmbiLessTernaryConstraint::GetWakingEvents(unsigned index,
                                                           unsigned arguments) const {
  return WakingEvents(GetWrittenRight(), index, arguments, kKivBounds);
}

bool KivOmbiLessTernaryConstraint::Holds(std::span<const std::int64_t> values) const {
  return values[kRight] < values[kLeft] && HasValue(values, GetWrittenRight());
}
