#include "framework/abstract_types/constraints/boolean_relations.h"

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/constraints/narrowing.h"

namespace {

enum Argument : unsigned { kLeft, kRight, kTruth, kArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiBooleanEqualConstraint> boolean_equal(
    "KivOmbiBooleanEqualConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiBooleanLessConstraint> boolean_less(
    "KivOmbiBooleanLessConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiBooleanLessOrEqualConstraint>
    boolean_less_or_equal("KivOmbiBooleanLessOrEqualConstraint", kArguments, 0, true);

enum class Truth { kTrue, kFalse, kOpen, kNeither };

// Narrows t by `decide(t)`, which tells what the domains of l and r decide, and says what is known
// of it. `of_itself` is the truth of the relation between a variable and itself.
template <class Decide>
Truth DecideTruth(const KivOmbiObjectEnvironment& environment, bool of_itself, Decide&& decide) {
  if (!environment.Summary(kTruth).IsFixed()) {
    const bool possible = environment.NarrowAny(kTruth, [&](KivOmbiAny& domain) {
      auto& truth = static_cast<KivOmbiBoolean&>(domain);
      if (environment.IsSame(kLeft, kRight)) return truth.CalcTruthValue(of_itself);
      return decide(truth);
    });
    if (!possible) return Truth::kNeither;
  }
  const KivOmbiDomainSummary& truth = environment.Summary(kTruth);
  if (!truth.IsFixed()) return Truth::kOpen;
  return truth.lower != 0 ? Truth::kTrue : Truth::kFalse;
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiBooleanEqualConstraint::sDescriptor = &boolean_equal;

KivOmbiBooleanEqualConstraint::KivOmbiBooleanEqualConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiBooleanEqualConstraint::~KivOmbiBooleanEqualConstraint() = default;

std::int64_t KivOmbiBooleanEqualConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                   std::int64_t) {
  switch (DecideTruth(environment, true, [&](KivOmbiBoolean& t) {
    return environment.Domain(kLeft).CalcIsEqual(environment.Domain(kRight), t);
  })) {
    case Truth::kTrue:
      return kiv::Equate(environment, kLeft, kRight);
    case Truth::kFalse:
      return kiv::Separate(environment, kLeft, kRight);
    case Truth::kNeither:
      return kKivContradiction;
    case Truth::kOpen:
      break;
  }
  return kKivAtFixpoint;
}

bool KivOmbiBooleanEqualConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kLeft] == values[kRight]) == (values[kTruth] != 0);
}

const KivOmbiObjectDescriptor* const KivOmbiBooleanLessConstraint::sDescriptor = &boolean_less;

KivOmbiBooleanLessConstraint::KivOmbiBooleanLessConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiBooleanLessConstraint::~KivOmbiBooleanLessConstraint() = default;

std::int64_t KivOmbiBooleanLessConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                  std::int64_t) {
  switch (DecideTruth(environment, false, [&](KivOmbiBoolean& t) {
    return environment.Integer(kRight).CalcIsLess(environment.Integer(kLeft), t);
  })) {
    case Truth::kTrue:
      return kiv::Order(environment, kRight, kLeft, 1);
    case Truth::kFalse:
      return kiv::Order(environment, kLeft, kRight, 0);
    case Truth::kNeither:
      return kKivContradiction;
    case Truth::kOpen:
      break;
  }
  return kKivAtFixpoint;
}

bool KivOmbiBooleanLessConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kRight] < values[kLeft]) == (values[kTruth] != 0);
}

const KivOmbiObjectDescriptor* const KivOmbiBooleanLessOrEqualConstraint::sDescriptor =
    &boolean_less_or_equal;

KivOmbiBooleanLessOrEqualConstraint::KivOmbiBooleanLessOrEqualConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiBooleanLessOrEqualConstraint::~KivOmbiBooleanLessOrEqualConstraint() = default;

std::int64_t KivOmbiBooleanLessOrEqualConstraint::Filter(
    const KivOmbiObjectEnvironment& environment, std::int64_t) {
  switch (DecideTruth(environment, true, [&](KivOmbiBoolean& t) {
    return environment.Integer(kRight).CalcIsLessOrEqual(environment.Integer(kLeft), t);
  })) {
    case Truth::kTrue:
      return kiv::Order(environment, kRight, kLeft, 0);
    case Truth::kFalse:
      return kiv::Order(environment, kLeft, kRight, 1);
    case Truth::kNeither:
      return kKivContradiction;
    case Truth::kOpen:
      break;
  }
  return kKivAtFixpoint;
}

bool KivOmbiBooleanLessOrEqualConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kRight] <= values[kLeft]) == (values[kTruth] != 0);
}
