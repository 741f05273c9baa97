#include "solver/flatzinc/posting.h"

#include <algorithm>

#include "solver/constraints/clause.h"
#include "solver/flatzinc/error.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {

using Kind = Expression::Kind;

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

void Posting::PostContradiction() const {
  GetNetwork().Emplace<Clause>(std::span<const VariableId>(), 0u);
}

}  // namespace kiv::flatzinc
