#include "solver/constraints/linear_posting.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "framework/intervals/sub_int_base.h"
#include "solver/constraints/bounded_difference.h"
#include "solver/constraints/equal_truth.h"
#include "solver/constraints/linear_disequality.h"
#include "solver/constraints/linear_equation.h"
#include "solver/constraints/linear_inequality.h"
#include "solver/constraints/range_truth.h"
#include "solver/constraints/unequal_difference.h"

namespace kiv {

namespace {

using VariableId = KivOmbNetwork::VariableId;

// A term on its way to the normal form: coefficients of 64 bits may merge to greater ones.
struct WideTerm {
  Int128 coefficient;
  VariableId variable;
};

// sum of terms `relation` constant
struct Form {
  std::vector<WideTerm> terms;
  LinearRelation relation;
  Int128 constant;
};

template <class Domain>
void Require(const KivOmbNetwork& network, VariableId variable, const char* what) {
  if (KivCast<Domain>(&network.GetDomain(variable)) == nullptr) {
    throw std::invalid_argument("a linear constraint over what is no " + std::string(what));
  }
}

void RequireTruth(const KivOmbNetwork& network, VariableId variable) {
  if (KivCast<KivOmbiBoolean>(&network.GetDomain(variable)) != nullptr) return;
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  if (!summary.IsNil() && (summary.lower < 0 || summary.upper > 1)) {
    throw std::invalid_argument("a linear constraint tied to what is no truth value");
  }
}

// A truth value that is known for good.
std::optional<bool> KnownTruth(const KivOmbNetwork& network, VariableId variable) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  if (network.GetLevel() > 0 || !summary.IsFixed()) return std::nullopt;
  return summary.lower != 0;
}

void MergeTerms(Form& form) {
  std::ranges::sort(form.terms, {}, &WideTerm::variable);
  std::vector<WideTerm> merged;
  for (const WideTerm& term : form.terms) {
    if (!merged.empty() && merged.back().variable == term.variable) {
      merged.back().coefficient += term.coefficient;
    } else {
      merged.push_back(term);
    }
  }
  std::erase_if(merged, [](const WideTerm& term) { return term.coefficient == 0; });
  form.terms = std::move(merged);
}

void Negate(Form& form) {
  for (WideTerm& term : form.terms) term.coefficient = -term.coefficient;
  form.constant = -form.constant;
}

// Leaves =, <> and <= as the only relations.
void UnifyRelation(Form& form) {
  switch (form.relation) {
    case LinearRelation::kGreater:
    case LinearRelation::kGreaterOrEqual:
      Negate(form);
      if (form.relation == LinearRelation::kGreater) --form.constant;
      form.relation = LinearRelation::kLessOrEqual;
      break;
    case LinearRelation::kLess:
      --form.constant;
      form.relation = LinearRelation::kLessOrEqual;
      break;
    default:
      break;
  }
}

void DivideByCommonDivisor(Form& form) {
  Int128 divisor = 0;
  for (const WideTerm& term : form.terms) {
    Int128 other = term.coefficient < 0 ? -term.coefficient : term.coefficient;
    while (other != 0) divisor = std::exchange(other, divisor % other);
  }
  if (divisor <= 1) return;
  if (form.relation != LinearRelation::kLessOrEqual && form.constant % divisor != 0) {
    // No sum is equal to the constant: what is left says the same of the sum of nothing.
    form.terms.clear();
    form.constant = 1;
    return;
  }
  for (WideTerm& term : form.terms) term.coefficient /= divisor;
  form.constant = FloorDivide(form.constant, divisor);
}

std::vector<std::int64_t> CoefficientsOf(const Form& form) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  std::vector<std::int64_t> coefficients;
  for (const WideTerm& term : form.terms) {
    if (term.coefficient < -kMost || term.coefficient > kMost) {
      throw std::overflow_error("a coefficient of a linear constraint does not fit 64 bits");
    }
    coefficients.push_back(static_cast<std::int64_t>(term.coefficient));
  }
  return coefficients;
}

// Constants beyond these are left to the classes that tell a sum that is never reached from one
// that is not known.
bool IsPlainConstant(Int128 constant) {
  return constant > SubIntBase::kMin + 1 && constant < SubIntBase::kMax - 1;
}

// A relation of one variable that a truth value goes with, if it has a class of its own. By the
// normal form its coefficient is 1 or -1.
std::optional<KivOmbNetwork::ConstraintId> PostUnaryTruth(KivOmbNetwork& network, const Form& form,
                                                          const LinearTruth& truth) {
  if (!IsPlainConstant(form.constant)) return std::nullopt;
  const bool is_negated = form.terms[0].coefficient < 0;
  const auto constant = static_cast<std::int64_t>(is_negated ? -form.constant : form.constant);
  const bool is_order = form.relation == LinearRelation::kLessOrEqual;
  const std::int64_t lower = is_order && !is_negated ? SubIntBase::kMin : constant;
  const std::int64_t upper = is_order && is_negated ? SubIntBase::kMax : constant;
  const auto which =
      form.relation == LinearRelation::kUnequal ? RangeTruth::kOutside : RangeTruth::kInside;
  return network.Emplace<RangeTruth>(std::array{form.terms[0].variable, truth.variable}, which,
                                     lower, upper, truth.reification);
}

// Likewise of the difference of two variables, with a truth value or without.
std::optional<KivOmbNetwork::ConstraintId> PostDifference(KivOmbNetwork& network, const Form& form,
                                                          const std::optional<LinearTruth>& truth) {
  const bool is_difference =
      form.terms[0].coefficient * form.terms[1].coefficient == -1 && IsPlainConstant(form.constant);
  if (!is_difference) return std::nullopt;
  VariableId x = form.terms[0].variable;
  VariableId y = form.terms[1].variable;
  if (form.terms[0].coefficient < 0) std::swap(x, y);
  const auto constant = static_cast<std::int64_t>(form.constant);
  if (form.relation == LinearRelation::kLessOrEqual) {
    if (!truth) return network.Emplace<BoundedDifference>(std::array{x, y}, constant);
    return network.Emplace<BoundedDifferenceTruth>(std::array{x, y, truth->variable}, constant,
                                                   truth->reification);
  }
  if (!truth) {
    if (form.relation == LinearRelation::kEqual) return std::nullopt;
    return network.Emplace<UnequalDifference>(std::array{x, y}, constant);
  }
  if (constant != 0) return std::nullopt;
  const auto which =
      form.relation == LinearRelation::kEqual ? EqualTruth::kEqual : EqualTruth::kUnequal;
  return network.Emplace<EqualTruth>(std::array{x, y, truth->variable}, which, truth->reification);
}

// By one of the light classes for what models say most often.
std::optional<KivOmbNetwork::ConstraintId> PostShort(KivOmbNetwork& network, const Form& form,
                                                     const std::optional<LinearTruth>& truth) {
  if (form.terms.size() == 1 && truth) return PostUnaryTruth(network, form, *truth);
  if (form.terms.size() == 2) return PostDifference(network, form, truth);
  return std::nullopt;
}

std::uint64_t MostPairsFor(Strength strength) {
  switch (strength) {
    case Strength::kAutomatic:
      return kMostPairs;
    case Strength::kBounds:
      return 0;
    case Strength::kDomain:
      break;
  }
  return kAllPairs;
}

KivOmbNetwork::ConstraintId Post(KivOmbNetwork& network, Form form,
                                 std::optional<LinearTruth> truth, Strength strength) {
  for (const WideTerm& term : form.terms) {
    Require<KivOmbiInteger>(network, term.variable, "integer");
  }
  if (truth) RequireTruth(network, truth->variable);
  MergeTerms(form);
  if (const auto known = truth ? KnownTruth(network, truth->variable) : std::nullopt) {
    if (!*known) {
      // A false premise implies anything: all that is left is that the sum of nothing is 0.
      const bool is_implication = truth->reification == Reification::kImplication;
      form = is_implication ? Form{{}, LinearRelation::kEqual, 0}
                            : Form{std::move(form.terms), NegationOf(form.relation), form.constant};
    }
    truth.reset();
  }
  UnifyRelation(form);
  DivideByCommonDivisor(form);
  if (const auto posted = PostShort(network, form, truth)) return *posted;

  std::vector<std::int64_t> coefficients = CoefficientsOf(form);
  std::vector<VariableId> arguments;
  for (const WideTerm& term : form.terms) arguments.push_back(term.variable);
  if (truth) {
    arguments.push_back(truth->variable);
    return network.Emplace<LinearReified>(arguments, std::move(coefficients), form.relation,
                                          form.constant, truth->reification);
  }
  if (form.relation == LinearRelation::kEqual) {
    return network.Emplace<LinearEquation>(arguments, std::move(coefficients), form.constant,
                                           MostPairsFor(strength));
  }
  if (form.relation == LinearRelation::kUnequal) {
    return network.Emplace<LinearDisequality>(arguments, std::move(coefficients), form.constant);
  }
  return network.Emplace<LinearInequality>(arguments, std::move(coefficients), form.constant);
}

void Append(Form& form, std::span<const LinearTerm> terms, int sign) {
  for (const LinearTerm& term : terms) {
    form.terms.push_back({static_cast<Int128>(term.coefficient) * sign, term.variable});
  }
}

}  // namespace

KivOmbNetwork::ConstraintId PostLinear(KivOmbNetwork& network, std::span<const LinearTerm> terms,
                                       LinearRelation relation, std::int64_t constant,
                                       std::optional<LinearTruth> truth, Strength strength) {
  Form form{{}, relation, constant};
  Append(form, terms, 1);
  return Post(network, std::move(form), truth, strength);
}

KivOmbNetwork::ConstraintId PostLinear(KivOmbNetwork& network, const LinearExpression& left,
                                       LinearRelation relation, const LinearExpression& right,
                                       std::optional<LinearTruth> truth, Strength strength) {
  Form form{{}, relation, static_cast<Int128>(right.GetConstant()) - left.GetConstant()};
  Append(form, left.GetTerms(), 1);
  Append(form, right.GetTerms(), -1);
  return Post(network, std::move(form), truth, strength);
}

}  // namespace kiv
