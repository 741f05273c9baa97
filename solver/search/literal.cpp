#include "solver/search/literal.h"

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "framework/intervals/sub_int_base.h"

namespace kiv {

namespace {

using Relation = Literal::Relation;

bool MayBe(const KivOmbNetwork& network, KivOmbNetwork::VariableId variable, std::int32_t value) {
  const KivOmbiDomainSummary& summary = network.GetSummary(variable);
  if (value < summary.lower || value > summary.upper) return false;
  return network.IsBoolean(variable) ||
         static_cast<const KivOmbiInteger&>(network.GetDomain(variable)).MayBe(value);
}

bool Admits(const Literal& literal, std::int32_t value) {
  switch (literal.relation) {
    case Relation::kEqual:
      return value == literal.value;
    case Relation::kUnequal:
      return value != literal.value;
    case Relation::kAtMost:
      return value <= literal.value;
    case Relation::kAtLeast:
      return value >= literal.value;
  }
  return false;
}

void Narrow(KivOmbiBoolean& domain, const Literal& literal) {
  for (const bool truth : {false, true}) {
    if (!Admits(literal, truth)) domain.CalcTruthValue(!truth);
  }
}

// Narrows to the values between the bounds. Operands of the domain's own kind are refused by no
// kind.
void KeepBetween(KivOmbNetwork& network, const KivOmbiObjectDescriptor& kind,
                 KivOmbiInteger& domain, std::int32_t lower, std::int32_t upper) {
  if (kind.KeepBetween(domain, lower, upper) != KivOmbiObjectDescriptor::kNotOffered) return;
  auto& edge = static_cast<KivOmbiInteger&>(network.Scratch(kind, 0));
  if (lower != SubIntBase::kMin) {
    edge.SetExactValue(lower);
    domain.CalcNotLessValue(edge);
  }
  if (upper != SubIntBase::kMax) {
    edge.SetExactValue(upper);
    domain.CalcLessOrEqualValue(edge);
  }
}

void Narrow(KivOmbNetwork& network, KivOmbiInteger& domain, const Literal& literal) {
  const KivOmbiObjectDescriptor& kind = network.GetKind(literal.variable);
  if (literal.relation == Relation::kUnequal) {
    domain.RemoveExactValue(literal.value);
    return;
  }
  if (literal.value == SubIntBase::kMin || literal.value == SubIntBase::kMax) {
    domain.SetNilValue();
    return;
  }
  const bool has_lower = literal.relation != Relation::kAtMost;
  const bool has_upper = literal.relation != Relation::kAtLeast;
  KeepBetween(network, kind, domain, has_lower ? literal.value : SubIntBase::kMin,
              has_upper ? literal.value : SubIntBase::kMax);
}

}  // namespace

Literal Negated(const Literal& literal) {
  switch (literal.relation) {
    case Relation::kEqual:
      return {literal.variable, Relation::kUnequal, literal.value};
    case Relation::kUnequal:
      return {literal.variable, Relation::kEqual, literal.value};
    case Relation::kAtMost:
      return {literal.variable, Relation::kAtLeast, literal.value + 1};
    case Relation::kAtLeast:
      break;
  }
  return {literal.variable, Relation::kAtMost, literal.value - 1};
}

bool IsEntailed(const KivOmbNetwork& network, const Literal& literal) {
  const KivOmbiDomainSummary& summary = network.GetSummary(literal.variable);
  switch (literal.relation) {
    case Relation::kEqual:
      return summary.IsFixed() && summary.lower == literal.value;
    case Relation::kUnequal:
      return !MayBe(network, literal.variable, literal.value);
    case Relation::kAtMost:
      return summary.upper <= literal.value;
    case Relation::kAtLeast:
      break;
  }
  return summary.lower >= literal.value;
}

bool IsImpossible(const KivOmbNetwork& network, const Literal& literal) {
  return IsEntailed(network, Negated(literal));
}

bool Impose(KivOmbNetwork& network, const Literal& literal) {
  const KivOmbNetwork::VariableId variable = literal.variable;
  const KivOmbiDomainSummary before = network.GetSummary(variable);
  network.Update(variable, [&](KivOmbiAny& domain) {
    if (network.IsBoolean(variable)) {
      Narrow(static_cast<KivOmbiBoolean&>(domain), literal);
    } else {
      Narrow(network, static_cast<KivOmbiInteger&>(domain), literal);
    }
  });
  return network.GetSummary(variable) != before;
}

}  // namespace kiv
