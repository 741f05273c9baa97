#include "solver/flatzinc/posting.h"

#include <algorithm>
#include <stdexcept>

#include "solver/constraints/clause.h"
#include "solver/constraints/reified.h"
#include "solver/flatzinc/annotations.h"
#include "solver/flatzinc/error.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {

using Kind = Expression::Kind;

namespace {

Reification ReificationOf(TruthForm form) {
  return form == TruthForm::kImplied ? Reification::kImplication : Reification::kEquivalence;
}

}  // namespace

bool Posting::HasAnnotation(std::string_view name) const {
  const Model& model = builder_.GetModel();
  return std::ranges::any_of(model.GetAnnotations(constraint_), [&](Expression annotation) {
    return NameOfAnnotation(model, annotation) == name;
  });
}

Strength Posting::GetStrength() const {
  if (HasAnnotation("domain")) return Strength::kDomain;
  return HasAnnotation("bounds") ? Strength::kBounds : Strength::kAutomatic;
}

bool Posting::IsConstant(Expression value) { return value.Is(Kind::kBool) || value.Is(Kind::kInt); }

Posting::VariableId Posting::GetVariable(Expression value) const {
  return IsConstant(value) ? builder_.GetConstant(value.GetValue(), constraint_.offset)
                           : builder_.GetVariable(value.GetPlace());
}

std::span<const Expression> Posting::GetElements(std::size_t i) const {
  const Model& model = builder_.GetModel();
  return model.Get(model.arrays[GetArgument(i).GetPlace()]);
}

std::vector<std::int64_t> Posting::GetIntegers(std::size_t i) const {
  std::vector<std::int64_t> integers;
  for (const Expression element : GetElements(i)) integers.push_back(element.GetValue());
  return integers;
}

std::vector<Posting::VariableId> Posting::GetVariables(std::size_t i) const {
  std::vector<VariableId> variables;
  for (const Expression element : GetElements(i)) variables.push_back(GetVariable(element));
  return variables;
}

LinearExpression Posting::GetExpression(Expression value) const {
  return IsConstant(value) ? LinearExpression(value.GetValue())
                           : LinearExpression(LinearTerm{1, GetVariable(value)});
}

LinearExpression Posting::GetSum(std::size_t coefficients, std::size_t variables) const {
  const auto factors = GetElements(coefficients);
  const auto values = GetElements(variables);
  if (factors.size() != values.size()) Refuse("takes as many coefficients as variables");
  LinearExpression sum;
  for (std::size_t k = 0; k < values.size(); ++k) {
    LinearExpression term = GetExpression(values[k]);
    if (!term.Scale(factors[k].GetValue()) || !sum.Add(term)) {
      Refuse("has numbers that do not fit 64 bits");
    }
  }
  return sum;
}

std::optional<LinearTruth> Posting::GetTruth(TruthForm form) const {
  if (form == TruthForm::kPlain) return std::nullopt;
  return LinearTruth{GetVariable(CountArguments() - 1), ReificationOf(form)};
}

Domain Posting::GetSet(Expression value) const {
  const Model& model = builder_.GetModel();
  return Domain::FromSet(model.sets[value.GetPlace()], model);
}

std::int32_t Posting::NarrowConstant(std::int64_t value) const {
  if (!IsModelInteger(value)) {
    Refuse("has the constant " + std::to_string(value) + ", which is outside the integers " +
           DescribeModelIntegers() + " that Kiv computes with");
  }
  return static_cast<std::int32_t>(value);
}

void Posting::Refuse(const std::string& text) const {
  throw Error(constraint_.offset, '\'' + GetName() + "' " + text);
}

void Posting::Relate(const LinearExpression& left, LinearRelation relation,
                     const LinearExpression& right, TruthForm form) const {
  try {
    PostLinear(GetNetwork(), left, relation, right, GetTruth(form), GetStrength());
  } catch (const std::overflow_error&) {
    Refuse("has coefficients of one variable whose sum does not fit 64 bits");
  }
}

void Posting::Decide(bool holds, TruthForm form) const {
  Relate(LinearExpression(0), LinearRelation::kEqual, LinearExpression(holds ? 0 : 1), form);
}

void Posting::Tie(Builder::Relation relation, TruthForm form) const {
  relation.arguments.push_back(GetVariable(CountArguments() - 1));
  GetNetwork().Emplace<Reified>(relation.arguments, std::move(relation.constraint),
                                ReificationOf(form));
}

void Posting::PostContradiction() const {
  GetNetwork().Emplace<Clause>(std::span<const VariableId>(), 0u);
}

}  // namespace kiv::flatzinc
