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
  const auto* integer = KivCast<KivOmbiInteger>(&network.GetDomain(variable));
  return integer == nullptr || integer->MayBe(value);
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

// `edge` is of the domain's own kind, whose operands no kind refuses.
void Narrow(KivOmbiInteger& domain, const Literal& literal, KivOmbiInteger& edge) {
  if (literal.relation == Relation::kUnequal) {
    domain.RemoveExactValue(literal.value);
    return;
  }
  if (literal.value == SubIntBase::kMin || literal.value == SubIntBase::kMax) {
    domain.SetNilValue();
    return;
  }
  edge.SetExactValue(literal.value);
  switch (literal.relation) {
    case Relation::kEqual:
      domain.Intersect(edge);
      break;
    case Relation::kAtMost:
      domain.CalcLessOrEqualValue(edge);
      break;
    default:
      domain.CalcNotLessValue(edge);
  }
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
    if (auto* truth = KivCast<KivOmbiBoolean>(&domain)) {
      Narrow(*truth, literal);
    } else {
      Narrow(static_cast<KivOmbiInteger&>(domain), literal,
             static_cast<KivOmbiInteger&>(network.Scratch(network.GetKind(variable), 0)));
    }
  });
  return network.GetSummary(variable) != before;
}

}  // namespace kiv
