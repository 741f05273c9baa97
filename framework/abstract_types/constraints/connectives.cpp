#include "framework/abstract_types/constraints/connectives.h"

#include "framework/abstract_types/boolean.h"

namespace {

enum Argument : unsigned { kX, kY, kT, kArguments };
// Of a negation, whose truth value is the second argument.
enum NegationArgument : unsigned { kOperand, kOpposite, kNegationArguments };

const KivOmbiOperatorConstraintDescriptor<KivOmbiConjunctionConstraint> conjunction(
    "KivOmbiConjunctionConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiDisjunctionConstraint> disjunction(
    "KivOmbiDisjunctionConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiImplicationConstraint> implication(
    "KivOmbiImplicationConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiExclusiveOrConstraint> exclusive_or(
    "KivOmbiExclusiveOrConstraint", kArguments, 0, true);
const KivOmbiOperatorConstraintDescriptor<KivOmbiBooleanNegationConstraint> negation(
    "KivOmbiBooleanNegationConstraint", kNegationArguments, 0, true);

// A set of lines of a truth table over three arguments, a bit for each of its eight lines.
using Lines = unsigned;
constexpr Lines kAllLines = 0xFF;
// The lines in which argument i is true.
constexpr Lines kTrueLines[] = {0xAA, 0xCC, 0xF0};
// The lines in which two propositions, given by those in which they are true, are equivalent.
constexpr Lines Equivalent(Lines a, Lines b) { return kAllLines & ~(a ^ b); }

constexpr Lines kXLines = kTrueLines[kX];
constexpr Lines kYLines = kTrueLines[kY];
constexpr Lines kTLines = kTrueLines[kT];

// The lines that the domains of the arguments admit. A negation has two arguments; its lines do not
// depend on the third.
Lines AdmittedLines(const KivOmbiObjectEnvironment& environment) {
  Lines lines = kAllLines;
  for (unsigned i = 0; i < environment.Count(); ++i) {
    const auto& truth = static_cast<const KivOmbiBoolean&>(environment.Domain(i));
    if (truth.CanBe(true) == 0) lines &= ~kTrueLines[i];
    if (truth.CanBe(false) == 0) lines &= kTrueLines[i];
    for (unsigned j = 0; j < i; ++j) {
      if (environment.IsSame(i, j)) lines &= Equivalent(kTrueLines[i], kTrueLines[j]);
    }
  }
  return lines;
}

// Keeps of each argument what occurs in a line that is admitted and satisfies the constraint, which
// holds in the lines `holding`.
KivOmbiFilterResult FilterByLines(const KivOmbiObjectEnvironment& environment, Lines holding) {
  const Lines supported = AdmittedLines(environment) & holding;
  if (supported == 0) return kKivContradiction;
  for (unsigned i = 0; i < environment.Count(); ++i) {
    const bool can_be_true = (supported & kTrueLines[i]) != 0;
    const bool can_be_false = (supported & ~kTrueLines[i]) != 0;
    if (can_be_true == can_be_false) continue;
    environment.NarrowAny(i, [&](KivOmbiAny& domain) {
      return static_cast<KivOmbiBoolean&>(domain).CalcTruthValue(can_be_true);
    });
  }
  const bool entailed = (AdmittedLines(environment) & ~holding) == 0;
  return entailed ? kKivAtFixpoint | kKivEntailed : kKivAtFixpoint;
}

}  // namespace

const KivOmbiObjectDescriptor* const KivOmbiConjunctionConstraint::sDescriptor = &conjunction;

KivOmbiConjunctionConstraint::KivOmbiConjunctionConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiConjunctionConstraint::~KivOmbiConjunctionConstraint() = default;

std::int64_t KivOmbiConjunctionConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                  std::int64_t) {
  return FilterByLines(environment, Equivalent(kTLines, kXLines & kYLines));
}

std::int64_t KivOmbiConjunctionConstraint::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed;
}

bool KivOmbiConjunctionConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kT] != 0) == (values[kX] != 0 && values[kY] != 0);
}

const KivOmbiObjectDescriptor* const KivOmbiDisjunctionConstraint::sDescriptor = &disjunction;

KivOmbiDisjunctionConstraint::KivOmbiDisjunctionConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiDisjunctionConstraint::~KivOmbiDisjunctionConstraint() = default;

std::int64_t KivOmbiDisjunctionConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                  std::int64_t) {
  return FilterByLines(environment, Equivalent(kTLines, kXLines | kYLines));
}

std::int64_t KivOmbiDisjunctionConstraint::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed;
}

bool KivOmbiDisjunctionConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kT] != 0) == (values[kX] != 0 || values[kY] != 0);
}

const KivOmbiObjectDescriptor* const KivOmbiImplicationConstraint::sDescriptor = &implication;

KivOmbiImplicationConstraint::KivOmbiImplicationConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiImplicationConstraint::~KivOmbiImplicationConstraint() = default;

std::int64_t KivOmbiImplicationConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                  std::int64_t) {
  return FilterByLines(environment, Equivalent(kTLines, ~kXLines | kYLines));
}

std::int64_t KivOmbiImplicationConstraint::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed;
}

bool KivOmbiImplicationConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kT] != 0) == (values[kX] == 0 || values[kY] != 0);
}

const KivOmbiObjectDescriptor* const KivOmbiExclusiveOrConstraint::sDescriptor = &exclusive_or;

KivOmbiExclusiveOrConstraint::KivOmbiExclusiveOrConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiExclusiveOrConstraint::~KivOmbiExclusiveOrConstraint() = default;

std::int64_t KivOmbiExclusiveOrConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                  std::int64_t) {
  return FilterByLines(environment, Equivalent(kTLines, kXLines ^ kYLines));
}

std::int64_t KivOmbiExclusiveOrConstraint::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed;
}

bool KivOmbiExclusiveOrConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kT] != 0) == (values[kX] != values[kY]);
}

const KivOmbiObjectDescriptor* const KivOmbiBooleanNegationConstraint::sDescriptor = &negation;

KivOmbiBooleanNegationConstraint::KivOmbiBooleanNegationConstraint(
    const KivOmbiCompoundObjectDescriptor* row)
    : KivOmbiOperatorConstraint(sDescriptor, row) {}

KivOmbiBooleanNegationConstraint::~KivOmbiBooleanNegationConstraint() = default;

std::int64_t KivOmbiBooleanNegationConstraint::Filter(const KivOmbiObjectEnvironment& environment,
                                                      std::int64_t) {
  return FilterByLines(environment, Equivalent(kTrueLines[kOpposite], ~kTrueLines[kOperand]));
}

KivOmbiConstraint::Cost KivOmbiBooleanNegationConstraint::GetCost() const { return kBinary; }

std::int64_t KivOmbiBooleanNegationConstraint::GetWakingEvents(unsigned, unsigned) const {
  return kKivFixed;
}

bool KivOmbiBooleanNegationConstraint::Holds(std::span<const std::int64_t> values) const {
  return (values[kOpposite] != 0) == (values[kOperand] == 0);
}
