#include "solver/flatzinc/builder.h"

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "framework/abstract_types/integer.h"
#include "solver/constraints/membership.h"
#include "solver/flatzinc/error.h"
#include "solver/language/declared_domain.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

// The most values that an enumerated domain holds.
constexpr std::uint64_t kMostEnumerated = 1024;

const KivOmbiObjectDescriptor& RequireKind(const Vocabulary& vocabulary, std::string_view name) {
  const KivOmbiObjectDescriptor* kind = vocabulary.FindKind(name);
  if (kind == nullptr) {
    throw std::runtime_error("no module that is loaded has the kind '" + std::string(name) + '\'');
  }
  return *kind;
}

bool IsEquality(std::string_view name) {
  return name == "bool2int" || name == "int_eq" || name == "bool_eq";
}

Domain DeclaredDomain(const Variable& variable, const Model& model) {
  const auto refuse = [&](const char* what) {
    throw Error(variable.offset, "the variable '" + model.names[variable.name] + "' is " + what +
                                     ", which Kiv does not support");
  };
  switch (variable.type) {
    case BaseType::kBool:
      return Domain::FromRange(0, 1);
    case BaseType::kInt:
      return variable.domain ? Domain::FromSet(model.sets[*variable.domain], model) : Domain();
    case BaseType::kFloat:
      refuse("a float");
      break;
    case BaseType::kSetOfInt:
    case BaseType::kSetOfFloat:
      refuse("a set");
      break;
  }
  return {};
}

// The part of a domain that variables can hold; what is cut away must not matter.
void CheckRange(const Domain& domain, std::uint32_t offset) {
  if (!domain.IsBounded() || domain.IsEmpty()) return;
  for (const std::int64_t bound : {domain.GetLower(), domain.GetUpper()}) {
    if (!IsModelInteger(bound)) {
      throw Error(offset, "the value " + std::to_string(bound) + " is outside the integers " +
                              DescribeModelIntegers() + " that Kiv computes with");
    }
  }
}

void Build(KivOmbNetwork& network, KivOmbNetwork::VariableId variable, const Domain& domain,
           bool explicitly) {
  network.Update(variable, [&](KivOmbiAny& target) {
    target.SetNilValue();
    if (domain.IsEmpty()) return;
    auto& integer = static_cast<KivOmbiInteger&>(target);
    integer.InsertExactValue(static_cast<std::int32_t>(domain.GetLower()));
    if (explicitly && domain.IsRange()) {
      for (std::int64_t value = domain.GetLower() + 1; value < domain.GetUpper(); ++value) {
        integer.InsertExactValue(static_cast<std::int32_t>(value));
      }
    }
    if (explicitly) {
      for (const std::int64_t value : domain.GetValues()) {
        integer.InsertExactValue(static_cast<std::int32_t>(value));
      }
    }
    integer.InsertExactValue(static_cast<std::int32_t>(domain.GetUpper()));
  });
}

std::unique_ptr<KivOmbiConstraint> Construct(const KivOmbiCompoundObjectDescriptor& row) {
  const KivOmbiConstraintDescriptor& kind = *row.GetConstraint();
  void* memory = KivOmbiBase::operator new(static_cast<std::size_t>(kind.GetObjectSize()));
  if (memory == nullptr) throw std::bad_alloc();
  return std::unique_ptr<KivOmbiConstraint>(
      static_cast<KivOmbiConstraint*>(kind.ConstructObjectFrom(memory, &row)));
}

}  // namespace

Builder::Builder(const Model& model, const Vocabulary& vocabulary, KivOmbNetwork& network)
    : model_(model),
      vocabulary_(vocabulary),
      network_(network),
      enumerated_(RequireKind(vocabulary, "enum int")),
      interval_(RequireKind(vocabulary, "interval int")) {
  UniteEqualVariables();
  DeclareVariables();
}

bool Builder::IsDone(const Constraint& constraint) const {
  if (constraint.arguments != 2 || !IsEquality(model_.names[constraint.name])) return false;
  const auto arguments = model_.GetArguments(constraint);
  return arguments[0].Is(Kind::kVariable) && arguments[1].Is(Kind::kVariable);
}

std::uint32_t Builder::FindRepresentative(std::uint32_t place) {
  while (representative_[place] != place) {
    representative_[place] = representative_[representative_[place]];
    place = representative_[place];
  }
  return place;
}

void Builder::UniteEqualVariables() {
  representative_.resize(model_.variables.size());
  for (std::uint32_t i = 0; i < representative_.size(); ++i) representative_[i] = i;
  const auto unite = [&](std::uint32_t a, std::uint32_t b) {
    a = FindRepresentative(a);
    b = FindRepresentative(b);
    representative_[std::max(a, b)] = std::min(a, b);
  };
  for (std::uint32_t i = 0; i < representative_.size(); ++i) {
    const auto& initialiser = model_.variables[i].initialiser;
    if (initialiser && initialiser->Is(Kind::kVariable)) unite(i, initialiser->GetPlace());
  }
  for (const Constraint& constraint : model_.constraints) {
    if (!IsDone(constraint)) continue;
    const auto arguments = model_.GetArguments(constraint);
    unite(arguments[0].GetPlace(), arguments[1].GetPlace());
  }
}

void Builder::DeclareVariables() {
  const std::size_t count = model_.variables.size();
  std::vector<Domain> domains(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    const Variable& variable = model_.variables[i];
    Domain domain = DeclaredDomain(variable, model_);
    if (const auto& value = variable.initialiser; value && !value->Is(Kind::kVariable)) {
      domain.Intersect(Domain::FromRange(value->GetValue(), value->GetValue()));
    }
    domains[FindRepresentative(i)].Intersect(domain);
  }
  variables_.resize(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t representative = FindRepresentative(i);
    variables_[i] = representative == i ? AddVariable(domains[i], model_.variables[i].offset)
                                        : variables_[representative];
    domains[i] = {};
  }
}

Builder::VariableId Builder::GetConstant(std::int64_t value, std::uint32_t offset) {
  const auto [found, is_new] = constants_.try_emplace(value, 0);
  if (is_new) found->second = AddVariable(Domain::FromRange(value, value), offset);
  return found->second;
}

Builder::VariableId Builder::AddVariable(const Domain& domain, std::uint32_t offset) {
  CheckRange(domain, offset);
  const std::uint64_t count = domain.Count();
  const bool is_exact_interval = domain.IsRange() && count <= 2;
  const bool is_enumerated = count <= kMostEnumerated && !is_exact_interval;
  const VariableId variable = network_.AddVariable(is_enumerated ? enumerated_ : interval_);
  if (!domain.IsBounded()) return variable;
  if (const auto like = FindLike(domain, is_enumerated, variable)) {
    network_.Update(variable,
                    [&](KivOmbiAny& target) { target.Assign(network_.GetDomain(*like)); });
  } else {
    Build(network_, variable, domain, is_enumerated);
  }
  if (!domain.IsRange() && !is_enumerated) {
    const auto& values = domain.GetValues();
    network_.Emplace<Membership>({&variable, 1},
                                 std::vector<std::int32_t>(values.begin(), values.end()));
    NoteOrigin(offset);
  }
  return variable;
}

// Models declare many variables alike, and to copy a thousand values takes far less than to insert
// them one by one.
std::optional<Builder::VariableId> Builder::FindLike(const Domain& domain, bool is_enumerated,
                                                     VariableId variable) {
  if (!is_enumerated || !domain.IsRange()) return std::nullopt;
  const auto [found, is_new] =
      built_ranges_.try_emplace({domain.GetLower(), domain.GetUpper()}, variable);
  if (is_new) return std::nullopt;
  // A poster may have narrowed it since.
  const bool is_whole = network_.GetSummary(found->second).cardinality == domain.Count();
  if (!is_whole) found->second = variable;
  return is_whole ? std::optional(found->second) : std::nullopt;
}

void Builder::NoteOrigin(std::uint32_t offset) {
  origins_.resize(network_.CountConstraints(), offset);
}

bool Builder::IsOverSets(std::span<const VariableId> variables, Strength strength) const {
  if (strength != Strength::kAutomatic) return strength == Strength::kDomain;
  return std::ranges::all_of(variables, [&](VariableId variable) {
    return network_.GetSummary(variable).cardinality <= kMostEnumerated;
  });
}

const KivOmbiCompoundObjectDescriptor& Builder::FindRow(std::string_view symbol,
                                                        std::size_t operands,
                                                        std::span<const VariableId> variables,
                                                        Strength strength) const {
  const std::vector kinds(operands, IsOverSets(variables, strength) ? &enumerated_ : &interval_);
  const KivOmbiCompoundObjectDescriptor* row = vocabulary_.GetOperators().Resolve(symbol, kinds);
  if (row == nullptr) {
    throw std::runtime_error("no module that is loaded has the operator '" + std::string(symbol) +
                             '\'');
  }
  return *row;
}

void Builder::PostOperator(std::string_view symbol, VariableId left, VariableId right,
                           VariableId result, Strength strength) {
  network_.Post(FindRow(symbol, 2, std::array{left, right, result}, strength), left, right, result);
}

void Builder::PostOperator(std::string_view symbol, VariableId operand, VariableId result,
                           Strength strength) {
  network_.Post(FindRow(symbol, 1, std::array{operand, result}, strength), operand,
                KivOmbNetwork::kNone, result);
}

Builder::Relation Builder::MakeOperator(std::string_view symbol, VariableId left, VariableId right,
                                        VariableId result, Strength strength) const {
  const auto& row = FindRow(symbol, 2, std::array{left, right, result}, strength);
  Relation relation{Construct(row), std::vector<VariableId>(3)};
  relation.arguments[row.GetOrder().left] = left;
  relation.arguments[row.GetOrder().right] = right;
  relation.arguments[row.GetOrder().result] = result;
  return relation;
}

Builder::Relation Builder::MakeOperator(std::string_view symbol, VariableId operand,
                                        VariableId result, Strength strength) const {
  const auto& row = FindRow(symbol, 1, std::array{operand, result}, strength);
  Relation relation{Construct(row), std::vector<VariableId>(2)};
  relation.arguments[row.GetOrder().left] = operand;
  relation.arguments[row.GetOrder().result] = result;
  return relation;
}

}  // namespace kiv::flatzinc
